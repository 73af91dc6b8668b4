// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/GLDataInfo.h>

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace {

using Vec = GLtVec3<int>;

void expectFields(GLDataInfo info, Vec const& offset, Vec const& size, unsigned int step,
                  std::array<std::size_t, 3> const& counts) {
    EXPECT_EQ(info.offset(), offset);
    EXPECT_EQ(info.size(), size);
    EXPECT_EQ(info.step(), step);
    EXPECT_EQ(info.triangles(), counts[0]);
    EXPECT_EQ(info.vertices(), counts[1]);
    EXPECT_EQ(info.primitives(), counts[2]);
}

TEST(GLDataInfo, StartsWithZeros) { expectFields(GLDataInfo(), {0, 0, 0}, {0, 0, 0}, 0, {0, 0, 0}); }

TEST(GLDataInfo, KeepsWhatItIsConstructedWith) {
    expectFields(GLDataInfo({1, -2, 3}, {4, 5, 6}, 7, 8, 9, 10), {1, -2, 3}, {4, 5, 6}, 7, {8, 9, 10});
}

TEST(GLDataInfo, CountsAreWidenedWithoutASign) {
    unsigned int const largest = std::numeric_limits<unsigned int>::max();
    GLDataInfo const info({0, 0, 0}, {0, 0, 0}, largest, largest, largest, largest);
    expectFields(info, {0, 0, 0}, {0, 0, 0}, largest, {4294967295U, 4294967295U, 4294967295U});
}

TEST(GLDataInfo, AccessorsGiveAccessToTheFields) {
    GLDataInfo info;
    info.offset() = {1, 2, 3};
    info.size() = {4, 5, 6};
    info.step() = 7;
    info.triangles() = std::size_t{8} << 40U;
    info.vertices() = std::size_t{9} << 40U;
    info.primitives() = std::size_t{10} << 40U;
    expectFields(info, {1, 2, 3}, {4, 5, 6}, 7, {std::size_t{8} << 40U, std::size_t{9} << 40U, std::size_t{10} << 40U});
    GLDataInfo const& readOnly = info;
    EXPECT_EQ(readOnly.offset(), info.offset());
    EXPECT_EQ(readOnly.size(), info.size());
    EXPECT_EQ(readOnly.step(), 7U);
    EXPECT_EQ(readOnly.triangles(), info.triangles());
    EXPECT_EQ(readOnly.vertices(), info.vertices());
    EXPECT_EQ(readOnly.primitives(), info.primitives());
}

TEST(GLDataInfo, CopiesCarryEveryField) {
    GLDataInfo const info({1, 2, 3}, {4, 5, 6}, 7, 8, 9, 10);
    GLDataInfo const copy(info);
    expectFields(copy, {1, 2, 3}, {4, 5, 6}, 7, {8, 9, 10});
    GLDataInfo assigned({9, 9, 9}, {9, 9, 9}, 9, 9, 9, 9);
    assigned = info;
    expectFields(assigned, {1, 2, 3}, {4, 5, 6}, 7, {8, 9, 10});
}

TEST(GLDataInfo, ResetMakesEveryFieldZero) {
    GLDataInfo info({1, 2, 3}, {4, 5, 6}, 7, 8, 9, 10);
    info.reset();
    expectFields(info, {0, 0, 0}, {0, 0, 0}, 0, {0, 0, 0});
}

} // namespace
