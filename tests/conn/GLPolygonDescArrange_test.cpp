// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/PlainAdjacency.h"
#include "support/PlainDescriptor.h"

#include <tamo/conn/GLPolygonDesc.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using namespace tamo::test;
using Links = std::vector<unsigned int>;

GLVec3f libraryOf(Plain3 v) { return {v.x, v.y, v.z}; }
Plain3 plainOf(GLVec3f const& v) { return {v.x, v.y, v.z}; }

/// Holds the same vertices in the library's descriptor and in the slow one.
struct Twins {
    explicit Twins(std::vector<Plain3> const& positions) : plainPoints(positions) {
        for (Plain3 const& point : positions) {
            points.push_back(libraryOf(point));
        }
    }
    Twins(Twins const&) = delete;
    Twins& operator=(Twins const&) = delete;
    ~Twins() = default;

    void add(unsigned int link, Plain3 normal) {
        desc.addVertex(static_cast<unsigned char>(link), libraryOf(normal));
        plain.add(link, normal);
    }

    void setFan(bool fan) {
        desc.fan = fan;
        plain.fan = fan;
    }

    void arrange(unsigned int first, unsigned int second, bool close, std::optional<Plain3> given = std::nullopt) {
        desc.arrange(static_cast<unsigned char>(first), static_cast<unsigned char>(second), close,
                     given ? std::optional<GLVec3f>(libraryOf(*given)) : std::nullopt);
        plain.arrange(first, second, close, given);
    }

    [[nodiscard]] Links order() const { return {desc.conn.begin(), desc.conn.begin() + desc.count}; }

    void expectEqual() const {
        EXPECT_EQ(order(), plain.links);
        EXPECT_EQ(Links(desc.normalIndex.begin(), desc.normalIndex.begin() + desc.count), plain.slots);
        EXPECT_EQ(desc.hasCentre, plain.hasCentre);
        EXPECT_EQ(desc.closed, plain.closed);
        EXPECT_EQ(desc.ccw, plain.ccw);
        EXPECT_EQ(desc.fan, plain.fan);
        EXPECT_EQ(desc.strip, plain.strip);
        EXPECT_TRUE(sameFloats(plainOf(desc.centre), plain.centre));
        EXPECT_TRUE(sameFloats(plainOf(desc.meanNormal), plain.meanNormal));
    }

    std::vector<Plain3> plainPoints;
    std::vector<GLVec3f> points;
    GLPolygonDesc desc{points, 28};
    PlainDescriptor plain{plainPoints};

  private:
    Twins() = delete;
};

std::vector<Plain3> linkMidpoints() {
    std::vector<Plain3> points;
    for (CornerPair const& ends : plainLinks()) {
        points.push_back(times(plus(plainCorner(ends[0]), plainCorner(ends[1])), 0.5F));
    }
    return points;
}

/// Draws numbers that are the same everywhere.
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
    /// Returns a direction of a link, or 0, or any vector.
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

/// Adds 2 to 16 vertices and arranges them in one of all ways.
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

/// Returns points on a circle about the z axis, in bundles whose members differ by some 1e-8 of a turn.
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

/// Four points about (2, 2, 2) in the plane z = 2, counter-clockwise seen from above, then others.
std::vector<Plain3> squarePoints() {
    return {{3, 2, 2}, {2, 3, 2}, {1, 2, 2}, {2, 1, 2}, {2, 2, 2}, {0.5F, 0.5F, 0.5F}, {2.5F, 2.5F, 2}};
}

class ArrangeSquare : public testing::Test {
  protected:
    void add(Links const& links, Plain3 normal = {0, 0, 1}) {
        for (unsigned int const link : links) {
            twins.add(link, normal);
        }
    }

    void expectOrder(Links const& links) {
        EXPECT_EQ(twins.order(), links);
        twins.expectEqual();
    }

    Twins twins{squarePoints()};
};

TEST_F(ArrangeSquare, TurnsCounterClockwiseAboutTheMeanNormal) {
    add({0, 3, 2, 1});
    twins.arrange(0, 0, false);
    expectOrder({0, 1, 2, 3});
    EXPECT_FALSE(twins.desc.hasCentre);
    EXPECT_FALSE(twins.desc.closed);
    EXPECT_TRUE(twins.desc.ccw);
}

TEST_F(ArrangeSquare, TurnsTheOtherWayAboutTheOppositeNormal) {
    add({0, 3, 2, 1}, {0, 0, -1});
    twins.arrange(0, 0, false);
    expectOrder({0, 3, 2, 1});
}

TEST_F(ArrangeSquare, GivenNormalOverridesTheMean) {
    add({0, 3, 2, 1});
    twins.arrange(0, 0, false, Plain3{0, 0, -5});
    expectOrder({0, 3, 2, 1});
}

TEST_F(ArrangeSquare, StartsAtTheFirstVertexAskedFor) {
    add({0, 3, 2, 1});
    twins.arrange(2, 0, false);
    expectOrder({2, 3, 0, 1});
}

TEST_F(ArrangeSquare, SecondIsSortedWhereThereIsNoCentre) {
    add({0, 1, 2, 3});
    twins.arrange(0, 3, false);
    expectOrder({0, 1, 2, 3});
}

TEST_F(ArrangeSquare, VertexOnTheCentroidLeadsAndTheStartFollows) {
    add({3, 1, 0, 4, 2});
    twins.arrange(0, 0, false);
    expectOrder({4, 3, 0, 1, 2});
    EXPECT_TRUE(twins.desc.hasCentre);
    EXPECT_FALSE(twins.desc.closed);
}

TEST_F(ArrangeSquare, SecondStaysBehindTheStartWhereThereIsACentre) {
    add({3, 1, 0, 2, 4});
    twins.arrange(0, 3, false);
    expectOrder({4, 3, 2, 0, 1});
}

TEST_F(ArrangeSquare, CentreThatStandsFirstIsTheReferenceItself) {
    // No turn about itself is a number: nothing moves.
    add({4, 3, 1, 2, 0});
    twins.arrange(0, 0, true);
    expectOrder({4, 3, 1, 2, 0, 3});
    EXPECT_TRUE(twins.desc.hasCentre);
}

TEST_F(ArrangeSquare, CellCentreCountsAsCentre) {
    add({0, 1, 5, 2, 3});
    twins.arrange(0, 0, true);
    EXPECT_EQ(twins.order().front(), 5U);
    EXPECT_TRUE(twins.desc.hasCentre);
    twins.expectEqual();
}

TEST_F(ArrangeSquare, ClosingRepeatsTheSecondVertexOfAFan) {
    add({0, 3, 2, 1});
    twins.setFan(true);
    twins.arrange(0, 0, true);
    expectOrder({0, 1, 2, 3, 1});
    EXPECT_TRUE(twins.desc.closed);
    EXPECT_EQ(twins.desc.normalIndex[4], twins.desc.normalIndex[1]);
}

TEST_F(ArrangeSquare, ClosingNeedsAFanOrACentre) {
    add({0, 3, 2, 1});
    twins.arrange(0, 0, true);
    expectOrder({0, 1, 2, 3});
    EXPECT_FALSE(twins.desc.closed);
}

TEST_F(ArrangeSquare, CentreClosesWithoutTheFanFlag) {
    add({3, 1, 0, 4, 2});
    twins.arrange(0, 0, true);
    expectOrder({4, 3, 0, 1, 2, 3});
    EXPECT_TRUE(twins.desc.closed);
    EXPECT_FALSE(twins.desc.fan);
}

TEST_F(ArrangeSquare, SecondArrangementClearsClosedAndCentre) {
    add({3, 1, 0, 4, 2});
    twins.arrange(0, 0, true);
    twins.desc.removeVertex(4);
    twins.plain.remove(4);
    twins.arrange(0, 0, false);
    EXPECT_FALSE(twins.desc.closed);
    EXPECT_FALSE(twins.desc.hasCentre);
    twins.expectEqual();
}

TEST_F(ArrangeSquare, OppositeVertexStandsAtHalfATurnWhateverTheRounding) {
    // A hair beyond the opposite point its turn would be less than that of vertex 1 by the cosine alone.
    std::vector<Plain3> points = squarePoints();
    points[2] = {1, 2.004F, 2};
    points[6] = {1, 1.999F, 2};
    Twins pair(points);
    for (unsigned int const link : {0U, 6U, 2U}) {
        pair.add(link, {0, 0, 1});
    }
    pair.arrange(0, 0, false);
    pair.expectEqual();
}

TEST_F(ArrangeSquare, EqualAnglesKeepTheirOrder) {
    add({0, 2, 1, 1, 3, 1}, {0, 0, 1});
    twins.arrange(0, 0, false);
    Links const slots(twins.desc.normalIndex.begin(), twins.desc.normalIndex.begin() + 6);
    EXPECT_EQ(twins.order(), (Links{0, 1, 1, 1, 2, 3}));
    twins.expectEqual();
}

TEST_F(ArrangeSquare, NormalOfTheCentreStandsInForAZeroMean) {
    // The sum's squared length overflows; divided by it, the mean is zero.
    add({3, 1, 0}, {0, 0, 1e25F});
    add({4}, {0, 0, -1});
    add({2}, {0, 0, 1e25F});
    twins.arrange(0, 0, false);
    EXPECT_EQ(twins.desc.meanNormal, GLVec3f());
    expectOrder({4, 3, 2, 1, 0});
}

TEST_F(ArrangeSquare, MeanThatIsNoNumberIsKept) {
    add({3, 1, 0}, {0, 0, 0});
    add({4}, {0, 0, 1});
    add({2}, {0, 0, -1});
    twins.arrange(0, 0, false);
    EXPECT_TRUE(std::isnan(twins.desc.meanNormal.z));
    // Nothing compares with a turn that is no number.
    expectOrder({4, 3, 0, 1, 2});
}

} // namespace
