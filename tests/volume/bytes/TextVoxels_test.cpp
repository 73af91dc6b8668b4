// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/TextVoxels.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <vector>

namespace {

using tamo::volume::ScalarType;

// The numbers of a row of voxels, or nothing where they are refused.
template <typename T>
std::optional<std::vector<T>> rowOf(std::string const& text, std::int64_t count, ScalarType type,
                                    std::uint64_t start = 0) {
    TemporaryFolder const folder;
    writeFile(folder / "a.txt", text);
    std::vector<T> voxels(static_cast<std::size_t>(count));
    bool const isRead =
        tamo::volume::readTextBox(folder / "a.txt", start, {{count, 1, 1}, type, false}, {{0, 0, 0}, {count - 1, 0, 0}},
                                  reinterpret_cast<unsigned char*>(voxels.data()), {});
    return isRead ? std::optional(voxels) : std::nullopt;
}

TEST(TextVoxels, AreNumbersWithAnyBlanksBetweenThem) {
    auto const row = rowOf<std::int16_t>("skip \r\n\t-7\v+8\f9\n\n10 rest", 4, ScalarType::Int16, 4);
    EXPECT_EQ(row, (std::vector<std::int16_t>{-7, 8, 9, 10}));
}

TEST(TextVoxels, MayEndWithTheFile) {
    EXPECT_EQ(rowOf<std::uint8_t>("7 12", 2, ScalarType::UInt8), (std::vector<std::uint8_t>{7, 12}));
    EXPECT_FALSE(rowOf<std::uint8_t>("7 12", 3, ScalarType::UInt8));
    EXPECT_FALSE(rowOf<std::uint8_t>("", 1, ScalarType::UInt8));
    EXPECT_FALSE(rowOf<std::uint8_t>("7 12", 1, ScalarType::UInt8, 100));
}

TEST(TextVoxels, AreWhateverTheirTypeHolds) {
    EXPECT_EQ(rowOf<std::uint64_t>("18446744073709551615", 1, ScalarType::UInt64)->front(), UINT64_MAX);
    EXPECT_EQ(rowOf<std::int64_t>("-9223372036854775808", 1, ScalarType::Int64)->front(), INT64_MIN);
    EXPECT_EQ(rowOf<std::int8_t>("-128", 1, ScalarType::Int8)->front(), -128);
    EXPECT_EQ(rowOf<double>("1.25e300", 1, ScalarType::Float64)->front(), 1.25e300);
    EXPECT_EQ(rowOf<float>("-.5", 1, ScalarType::Float32)->front(), -0.5F);
}

TEST(TextVoxels, MayBeNoNumbersInFloatingPoint) {
    auto const row = rowOf<float>("nan NaN -inf +INF infinity", 5, ScalarType::Float32).value();
    EXPECT_TRUE(std::isnan(row[0]) && std::isnan(row[1]));
    EXPECT_EQ(row[2], -INFINITY);
    EXPECT_EQ(row[3], INFINITY);
    EXPECT_EQ(row[4], INFINITY);
}

TEST(TextVoxels, TooSmallForTheirTypeAreCloseToZero) {
    EXPECT_NEAR(rowOf<float>("1e-60", 1, ScalarType::Float32)->front(), 0, 1e-40);
    EXPECT_NEAR(rowOf<double>("-1e-999", 1, ScalarType::Float64)->front(), 0, 1e-300);
    EXPECT_NEAR(rowOf<double>("1e-310", 1, ScalarType::Float64)->front(), 1e-310, 1e-320);
}

TEST(TextVoxels, PastTheirTypeAreRefused) {
    EXPECT_FALSE(rowOf<std::uint8_t>("256", 1, ScalarType::UInt8));
    EXPECT_FALSE(rowOf<std::uint8_t>("-1", 1, ScalarType::UInt8));
    EXPECT_FALSE(rowOf<std::int8_t>("-129", 1, ScalarType::Int8));
    EXPECT_FALSE(rowOf<std::int16_t>("1.5", 1, ScalarType::Int16));
    EXPECT_FALSE(rowOf<std::int16_t>("nan", 1, ScalarType::Int16));
    EXPECT_FALSE(rowOf<float>("1e39", 1, ScalarType::Float32));
    EXPECT_FALSE(rowOf<double>("-1e999", 1, ScalarType::Float64));
}

TEST(TextVoxels, AreRefusedWithAnythingElseBehindTheNumber) {
    for (std::string const& text :
         {std::string("7,8"), std::string("7x"), std::string("x7"), std::string("+-7"), std::string("++7"),
          std::string("+"), std::string("-"), std::string("e5"), std::string("7\0", 2)}) {
        EXPECT_FALSE(rowOf<float>(text, 1, ScalarType::Float32)) << text;
        EXPECT_FALSE(rowOf<std::int32_t>(text, 1, ScalarType::Int32)) << text;
    }
}

TEST(TextVoxels, MayStandAnywhereInTheReadersBuffer) {
    // Blanks of all lengths around that of the buffer move the numbers across its end.
    for (std::size_t blanks = 65520; blanks < 65540; ++blanks) {
        auto const row = rowOf<std::int32_t>(std::string(blanks, ' ') + "123456 -78901\n5", 3, ScalarType::Int32);
        ASSERT_EQ(row, (std::vector<std::int32_t>{123456, -78901, 5})) << blanks;
        auto const next = rowOf<std::int32_t>("4 " + std::string(blanks, ' ') + "123456", 2, ScalarType::Int32);
        ASSERT_EQ(next, (std::vector<std::int32_t>{4, 123456})) << blanks;
    }
    EXPECT_FALSE(rowOf<std::int32_t>(std::string(200000, '0') + "1", 1, ScalarType::Int32));
}

TEST(TextVoxels, OfABoxAreThoseOfTheWhole) {
    TemporaryFolder const folder;
    std::string text;
    for (int i = 0; i < 60; ++i) {
        text += std::to_string(i) + " ";
    }
    writeFile(folder / "a.txt", text);
    std::vector<std::uint16_t> voxels(8);
    ASSERT_TRUE(tamo::volume::readTextBox(folder / "a.txt", 0, {{5, 4, 3}, ScalarType::UInt16, true},
                                          {{1, 2, 0}, {2, 3, 1}}, reinterpret_cast<unsigned char*>(voxels.data()), {}));
    EXPECT_EQ(voxels, (std::vector<std::uint16_t>{11, 12, 16, 17, 31, 32, 36, 37}));
}

TEST(TextVoxels, OutsideOfTheBoxAreNumbersToo) {
    TemporaryFolder const folder;
    std::vector<std::uint8_t> voxels(1);
    for (std::string const text : {"1 2 3 4", "x 2 3 4", "1 2 3 x", "1 2 3"}) {
        writeFile(folder / "a.txt", text);
        EXPECT_EQ(tamo::volume::readTextBox(folder / "a.txt", 0, {{2, 2, 1}, ScalarType::UInt8, false},
                                            {{1, 0, 0}, {1, 0, 0}}, voxels.data(), {}),
                  text == "1 2 3 4")
            << text;
    }
}

} // namespace
