// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/DescriptorTwins.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace tamo::test;
using Links = std::vector<unsigned int>;

// Four points about (2, 2, 2) in the plane z = 2, counter-clockwise seen from above, then others.
std::vector<Plain3> squarePoints() {
    return {{3, 2, 2}, {2, 3, 2}, {1, 2, 2}, {2, 1, 2}, {2, 2, 2}, {0.5F, 0.5F, 0.5F}, {2.5F, 2.5F, 2}};
}

class ArrangeSquare : public testing::Test {
  protected:
    void add(Links const& links, Plain3 normal = {0, 0, 1}) {
        for (unsigned int const link : links) {
            _twins.add(link, normal);
        }
    }

    void expectOrder(Links const& links) {
        EXPECT_EQ(_twins.order(), links);
        _twins.expectEqual();
    }

    Twins _twins{squarePoints()};
};

TEST_F(ArrangeSquare, TurnsCounterClockwiseAboutTheMeanNormal) {
    add({0, 3, 2, 1});
    _twins.arrange(0, 0, false);
    expectOrder({0, 1, 2, 3});
    EXPECT_FALSE(_twins.desc.hasCentre);
    EXPECT_FALSE(_twins.desc.closed);
    EXPECT_TRUE(_twins.desc.ccw);
}

TEST_F(ArrangeSquare, TurnsTheOtherWayAboutTheOppositeNormal) {
    add({0, 3, 2, 1}, {0, 0, -1});
    _twins.arrange(0, 0, false);
    expectOrder({0, 3, 2, 1});
}

TEST_F(ArrangeSquare, GivenNormalOverridesTheMean) {
    add({0, 3, 2, 1});
    _twins.arrange(0, 0, false, Plain3{0, 0, -5});
    expectOrder({0, 3, 2, 1});
}

TEST_F(ArrangeSquare, StartsAtTheFirstVertexAskedFor) {
    add({0, 3, 2, 1});
    _twins.arrange(2, 0, false);
    expectOrder({2, 3, 0, 1});
}

TEST_F(ArrangeSquare, SecondIsSortedWhereThereIsNoCentre) {
    add({0, 1, 2, 3});
    _twins.arrange(0, 3, false);
    expectOrder({0, 1, 2, 3});
}

TEST_F(ArrangeSquare, VertexOnTheCentroidLeadsAndTheStartFollows) {
    add({3, 1, 0, 4, 2});
    _twins.arrange(0, 0, false);
    expectOrder({4, 3, 0, 1, 2});
    EXPECT_TRUE(_twins.desc.hasCentre);
    EXPECT_FALSE(_twins.desc.closed);
}

TEST_F(ArrangeSquare, SecondStaysBehindTheStartWhereThereIsACentre) {
    add({3, 1, 0, 2, 4});
    _twins.arrange(0, 3, false);
    expectOrder({4, 3, 2, 0, 1});
}

TEST_F(ArrangeSquare, CentreThatStandsFirstIsTheReferenceItself) {
    // Its turns about itself are NaN: nothing moves.
    add({4, 3, 1, 2, 0});
    _twins.arrange(0, 0, true);
    expectOrder({4, 3, 1, 2, 0, 3});
    EXPECT_TRUE(_twins.desc.hasCentre);
}

TEST_F(ArrangeSquare, CellCentreCountsAsCentre) {
    add({0, 1, 5, 2, 3});
    _twins.arrange(0, 0, true);
    EXPECT_EQ(_twins.order().front(), 5U);
    EXPECT_TRUE(_twins.desc.hasCentre);
    _twins.expectEqual();
}

TEST_F(ArrangeSquare, ClosingRepeatsTheSecondVertexOfAFan) {
    add({0, 3, 2, 1});
    _twins.setFan(true);
    _twins.arrange(0, 0, true);
    expectOrder({0, 1, 2, 3, 1});
    EXPECT_TRUE(_twins.desc.closed);
    EXPECT_EQ(_twins.desc.normalIndex[4], _twins.desc.normalIndex[1]);
}

TEST_F(ArrangeSquare, ClosingNeedsAFanOrACentre) {
    add({0, 3, 2, 1});
    _twins.arrange(0, 0, true);
    expectOrder({0, 1, 2, 3});
    EXPECT_FALSE(_twins.desc.closed);
}

TEST_F(ArrangeSquare, CentreClosesWithoutTheFanFlag) {
    add({3, 1, 0, 4, 2});
    _twins.arrange(0, 0, true);
    expectOrder({4, 3, 0, 1, 2, 3});
    EXPECT_TRUE(_twins.desc.closed);
    EXPECT_FALSE(_twins.desc.fan);
}

TEST_F(ArrangeSquare, SecondArrangementClearsClosedAndCentre) {
    add({3, 1, 0, 4, 2});
    _twins.arrange(0, 0, true);
    _twins.desc.removeVertex(4);
    _twins.plain.remove(4);
    _twins.arrange(0, 0, false);
    EXPECT_FALSE(_twins.desc.closed);
    EXPECT_FALSE(_twins.desc.hasCentre);
    _twins.expectEqual();
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

TEST_F(ArrangeSquare, VertexInTheDirectionOfTheStartComesLast) {
    std::vector<Plain3> points = squarePoints();
    points[4] = {5, 2, 2};
    Twins row(points);
    for (unsigned int const link : {0U, 4U, 3U, 2U, 1U}) {
        row.add(link, {0, 0, 1});
    }
    row.arrange(0, 0, false);
    EXPECT_EQ(row.order(), (Links{0, 1, 2, 3, 4}));
    row.expectEqual();
}

TEST_F(ArrangeSquare, EqualAnglesKeepTheirOrder) {
    add({0, 2, 1, 1, 3, 1}, {0, 0, 1});
    _twins.arrange(0, 0, false);
    Links const slots(_twins.desc.normalIndex.begin(), _twins.desc.normalIndex.begin() + 6);
    EXPECT_EQ(_twins.order(), (Links{0, 1, 1, 1, 2, 3}));
    _twins.expectEqual();
}

TEST_F(ArrangeSquare, NormalOfTheCentreStandsInForAZeroMean) {
    // The sum's squared length overflows; divided by it, the mean is zero.
    add({3, 1, 0}, {0, 0, 1e25F});
    add({4}, {0, 0, -1});
    add({2}, {0, 0, 1e25F});
    _twins.arrange(0, 0, false);
    EXPECT_EQ(_twins.desc.meanNormal, GLVec3f());
    expectOrder({4, 3, 2, 1, 0});
}

TEST_F(ArrangeSquare, MeanThatIsNaNIsKept) {
    add({3, 1, 0}, {0, 0, 0});
    add({4}, {0, 0, 1});
    add({2}, {0, 0, -1});
    _twins.arrange(0, 0, false);
    EXPECT_TRUE(std::isnan(_twins.desc.meanNormal.z));
    // NaN compares with nothing.
    expectOrder({4, 3, 0, 1, 2});
}

} // namespace
