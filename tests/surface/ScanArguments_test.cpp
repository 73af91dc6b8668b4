// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "src/surface/ScanArguments.h"

#include "support/MarkedList.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>

namespace {

TEST(ScanArguments, AScanNeedsDataACompleteListAndAStepThatFitsTheBox) {
    GLObjectList list;
    tamo::test::makeMarkedList(list);
    GLObjectList shorter;
    tamo::test::makeMarkedList(shorter, 255);
    unsigned char const voxel = 0;
    EXPECT_TRUE(tamo::isScannable(&voxel, 2, {2, 3, 4}, list));
    EXPECT_FALSE(tamo::isScannable(nullptr, 2, {2, 3, 4}, list));
    EXPECT_FALSE(tamo::isScannable(&voxel, 2, {2, 3, 4}, shorter));
    EXPECT_FALSE(tamo::isScannable(&voxel, 0, {2, 3, 4}, list));
    EXPECT_FALSE(tamo::isScannable(&voxel, 3, {2, 3, 4}, list));
    EXPECT_FALSE(tamo::isScannable(&voxel, 4, {4, 3, 4}, list));
    EXPECT_FALSE(tamo::isScannable(&voxel, 4, {4, 4, 3}, list));
    EXPECT_TRUE(tamo::isScannable(&voxel, 4000000000U, {-1, -1, -1}, list)) << "sides are read as unsigned";
}

TEST(ScanArguments, IncrementsOfAnyTypeAreTakenWhereTheyFit) {
    EXPECT_EQ(tamo::scanIncrements(GLtVec3<int>(1, -2, 3)), (GLtVec3<int>(1, -2, 3)));
    EXPECT_EQ(tamo::scanIncrements(GLtVec3<short>(1, -2, 3)), (GLtVec3<int>(1, -2, 3)));
    EXPECT_EQ(tamo::scanIncrements(GLtVec3<std::ptrdiff_t>(1, -2, 3)), (GLtVec3<int>(1, -2, 3)));
    constexpr int kHighest = std::numeric_limits<int>::max();
    constexpr int kLowest = std::numeric_limits<int>::min();
    EXPECT_EQ(tamo::scanIncrements(GLtVec3<long>(kHighest, kLowest, 0)), (GLtVec3<int>(kHighest, kLowest, 0)));
    EXPECT_FALSE(tamo::scanIncrements(GLtVec3<long>(kHighest + 1L, 0, 0)));
    EXPECT_FALSE(tamo::scanIncrements(GLtVec3<long>(0, kLowest - 1L, 0)));
    EXPECT_FALSE(tamo::scanIncrements(GLtVec3<unsigned int>(0, 0, 3000000000U)));
    EXPECT_FALSE(tamo::scanIncrements(GLtVec3<std::size_t>(0, std::numeric_limits<std::size_t>::max(), 0)));
    EXPECT_EQ(tamo::scanIncrements(GLtVec3<std::size_t>(1, kHighest, 3)), (GLtVec3<int>(1, kHighest, 3)));
}

} // namespace
