// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/SystemName.h"
#include "support/oracle/DrawnSurface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace {

using namespace tamo::test;

class LocalSurface : public testing::TestWithParam<Neighborhood::NHConfig> {
  protected:
    SystemList _objects{GetParam()};
};

TEST_P(LocalSurface, EdgesInsideTheCellBelongToTwoTriangles) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        SCOPED_TRACE(configuration);
        std::map<HalfEdge, int> uses;
        for (HalfTriangle const& triangle : drawnTriangles(_objects[configuration])) {
            for (std::size_t i = 0; i < 3; ++i) {
                ++uses[{triangle[i], triangle[(i + 1) % 3]}];
            }
        }
        for (auto const& [edge, count] : uses) {
            if (!isOnCellFace(edge)) {
                EXPECT_EQ(count, 1);
                EXPECT_EQ((uses.count({edge[1], edge[0]})), 1U);
            }
        }
    }
}

// Returns the four values of a cell face, from the two other axes' low corner on.
unsigned int facePattern(unsigned int configuration, std::size_t axis, bool isHigh) {
    unsigned int pattern = 0;
    for (unsigned int corner = 0, place = 0; corner < 8; ++corner) {
        if (((corner >> axis & 1U) != 0) == isHigh) {
            pattern |= (configuration >> corner & 1U) << place++;
        }
    }
    return pattern;
}

// Returns the outline on a cell face, its points moved to the low face of the axis.
std::vector<HalfEdge> faceOutline(std::vector<HalfTriangle> const& triangles, std::size_t axis, bool isHigh) {
    int const plane = isHigh ? 2 : 0;
    std::vector<HalfEdge> onFace;
    for (HalfEdge edge : outlineOf(triangles)) {
        if (edge[0][axis] == plane && edge[1][axis] == plane) {
            edge[0][axis] = 0;
            edge[1][axis] = 0;
            onFace.push_back(edge);
        }
    }
    return onFace;
}

std::vector<HalfEdge> reversed(std::vector<HalfEdge> edges) {
    for (HalfEdge& edge : edges) {
        std::swap(edge[0], edge[1]);
    }
    std::sort(edges.begin(), edges.end());
    return edges;
}

TEST_P(LocalSurface, OutlineOnAFaceFollowsFromItsFourSamples) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::map<unsigned int, std::vector<HalfEdge>> outlines;
        for (unsigned int configuration = 0; configuration < 256; ++configuration) {
            std::vector<HalfTriangle> const triangles = drawnTriangles(_objects[configuration]);
            for (bool const isHigh : {false, true}) {
                std::vector<HalfEdge> outline = faceOutline(triangles, axis, isHigh);
                outline = isHigh ? reversed(outline) : outline;
                unsigned int const pattern = facePattern(configuration, axis, isHigh);
                auto const known = outlines.emplace(pattern, outline).first;
                EXPECT_EQ(known->second, outline) << configuration << ", axis " << axis << (isHigh ? " high" : " low");
            }
        }
        EXPECT_EQ(outlines.size(), 16U);
        // A face with both values on it is cut, and one with a single value is not.
        for (auto const& [pattern, outline] : outlines) {
            EXPECT_EQ(outline.empty(), pattern == 0 || pattern == 15) << pattern;
        }
    }
}

TEST_P(LocalSurface, WhatIsLeftOfTheEdgesLiesOnTheFaces) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        for (HalfEdge const& edge : outlineOf(drawnTriangles(_objects[configuration]))) {
            EXPECT_TRUE(isOnCellFace(edge)) << configuration;
        }
    }
}

TEST_P(LocalSurface, TrianglesHaveThreeCornersAndAnArea) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        for (HalfTriangle const& triangle : drawnTriangles(_objects[configuration])) {
            EXPECT_EQ((std::set<HalfPoint>{triangle[0], triangle[1], triangle[2]}).size(), 3U) << configuration;
            EXPECT_NE(normalOf(triangle), HalfPoint{}) << configuration;
        }
    }
}

TEST_P(LocalSurface, VerticesAreTheMidpointsBetweenUnlikeCorners) {
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        SCOPED_TRACE(configuration);
        for (HalfTriangle const& triangle : drawnTriangles(_objects[configuration])) {
            for (HalfPoint const& point : triangle) {
                // The corners of all links with this midpoint: on a face or through the centre there are several.
                std::set<unsigned int> values;
                for (unsigned int a = 0; a < 8; ++a) {
                    auto const at = [&](unsigned int corner, unsigned int axis) {
                        return static_cast<int>(corner >> axis & 1U);
                    };
                    bool isEnd = true;
                    for (unsigned int axis = 0; axis < 3; ++axis) {
                        isEnd = isEnd && (point[axis] == 1 || point[axis] == 2 * at(a, axis));
                    }
                    if (isEnd) {
                        values.insert(configuration >> a & 1U);
                    }
                }
                EXPECT_EQ(values.size(), 2U);
            }
        }
    }
}

TEST_P(LocalSurface, NormalsAreNumbersOfUnitLength) {
    EXPECT_EQ(configurationsWithABadNormal(_objects.list()), std::vector<unsigned int>());
}

INSTANTIATE_TEST_SUITE_P(Systems, LocalSurface, testing::ValuesIn(kSurfaceSystems), nameOfSystem);

} // namespace
