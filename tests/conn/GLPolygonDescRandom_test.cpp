// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/DescriptorTwins.h"
#include "support/oracle/PlainAdjacency.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using namespace tamo::test;

std::vector<Plain3> linkMidpoints() {
    std::vector<Plain3> points;
    for (CornerPair const& ends : plainLinks()) {
        points.push_back(times(plus(plainCorner(ends[0]), plainCorner(ends[1])), 0.5F));
    }
    return points;
}

// Draws numbers that are the same everywhere.
class Drawing {
  public:
    explicit Drawing(unsigned int seed) : _engine(seed) {}
    unsigned int below(unsigned int limit) { return static_cast<unsigned int>(_engine() % limit); }
    float fraction() { return static_cast<float>(below(1U << 24)) / static_cast<float>(1U << 23) - 1; }
    Plain3 vector() {
        float const x = fraction();
        float const y = fraction();
        return {x, y, fraction()};
    }
    // Returns a direction of a link, or 0, or any vector.
    Plain3 normal() {
        switch (below(3)) {
        case 0:
            return vector();
        default:
            Plain3 const lattice = {static_cast<float>(below(3)) - 1, static_cast<float>(below(3)) - 1,
                                    static_cast<float>(below(3)) - 1};
            return lattice;
        }
    }

  private:
    std::mt19937 _engine;
};

// Adds 2 to 16 vertices and arranges them in one of all ways.
void arrangeAnything(Drawing& drawing, Twins& twins) {
    unsigned int const count = 2 + drawing.below(15);
    for (unsigned int k = 0; k < count; ++k) {
        twins.add(drawing.below(28), drawing.normal());
    }
    twins.setFan(drawing.below(2) == 0);
    unsigned int const second = drawing.below(4) == 0 && count > 2 ? drawing.below(count) : 0;
    std::optional<Plain3> given;
    if (drawing.below(2) == 0) {
        given = drawing.normal();
    }
    twins.arrange(drawing.below(count), second, drawing.below(2) == 0, given);
    twins.expectEqual();
}

TEST(GLPolygonDescArrange, OrdersLinksOfTheCellAsTheSlowOne) {
    Drawing drawing(1);
    for (int round = 0; round < 5000 && !testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE(round);
        Twins twins(linkMidpoints());
        arrangeAnything(drawing, twins);
    }
}

TEST(GLPolygonDescArrange, OrdersScatteredPointsAsTheSlowOne) {
    Drawing drawing(2);
    for (int round = 0; round < 5000 && !testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE(round);
        std::vector<Plain3> points(28);
        for (Plain3& point : points) {
            point = drawing.vector();
        }
        Twins twins(points);
        arrangeAnything(drawing, twins);
    }
}

// Returns points on a circle about the z axis, in bundles whose members differ by some 1e-8 of a turn.
std::vector<Plain3> bundledPoints(Drawing& drawing) {
    std::vector<Plain3> points(28);
    for (std::size_t k = 0; k < points.size(); ++k) {
        double const bundle = static_cast<double>(drawing.below(5)) * 1.2566370614359172;
        double const turn = bundle - 0.001 * drawing.below(3) + 1e-8 * static_cast<double>(drawing.below(40));
        double const radius = 1.0 + static_cast<double>(drawing.below(3));
        points[k] = {static_cast<float>(radius * std::cos(turn)), static_cast<float>(radius * std::sin(turn)), 0};
    }
    return points;
}

TEST(GLPolygonDescArrange, OrdersNearEqualAnglesAsTheSlowOne) {
    Drawing drawing(3);
    for (int round = 0; round < 5000 && !testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE(round);
        Twins twins(bundledPoints(drawing));
        for (unsigned int k = 0; k < 12; ++k) {
            twins.add(drawing.below(28), {0, 0, 1});
        }
        twins.setFan(true);
        twins.arrange(drawing.below(12), 0, drawing.below(2) == 0);
        twins.expectEqual();
    }
}

} // namespace
