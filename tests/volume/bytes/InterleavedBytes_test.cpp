// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/InterleavedBytes.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::InterleavedBytes;
using tamo::volume::Packing;

InterleavedBytes turnsOf(std::filesystem::path const& path, std::uint64_t count, std::uint64_t which) {
    return {tamo::volume::openBytes(path, 0, Packing::None), 2, count, which};
}

TEST(InterleavedBytes, AreEveryNthNumber) {
    TemporaryFolder const folder;
    std::string bytes;
    constexpr int kNumbers = 9000;
    for (std::uint16_t i = 0; i < kNumbers; ++i) {
        bytes += numberBytes(i);
    }
    writeFile(folder / "a", bytes);
    for (std::uint64_t const count : {1U, 3U, 90U}) {
        for (std::uint64_t which = 0; which < count; which += 2) {
            auto source = turnsOf(folder / "a", count, which);
            std::uint64_t const numbers = kNumbers / count;
            std::vector<std::uint16_t> values(numbers - 7);
            ASSERT_TRUE(source.skip(10));
            ASSERT_TRUE(source.read(reinterpret_cast<unsigned char*>(values.data()), 2 * (numbers - 7)));
            ASSERT_TRUE(source.skip(4));
            EXPECT_FALSE(source.read(reinterpret_cast<unsigned char*>(values.data()), 2));
            for (std::uint64_t i = 0; i + 7 < numbers; ++i) {
                ASSERT_EQ(values[i], (i + 5) * count + which);
            }
        }
    }
}

TEST(InterleavedBytes, MayTakeTurnsLongerThanAnyBuffer) {
    TemporaryFolder const folder;
    std::string bytes;
    constexpr std::uint64_t kCount = 200000;
    for (std::uint32_t i = 0; i < 3 * kCount; ++i) {
        bytes += numberBytes(static_cast<std::uint16_t>(i / 7));
    }
    writeFile(folder / "a", bytes);
    auto source = turnsOf(folder / "a", kCount, 123456);
    std::vector<std::uint16_t> values(2);
    ASSERT_TRUE(source.skip(2) && source.read(reinterpret_cast<unsigned char*>(values.data()), 4));
    EXPECT_EQ(values[0], static_cast<std::uint16_t>((kCount + 123456) / 7));
    EXPECT_EQ(values[1], static_cast<std::uint16_t>((2 * kCount + 123456) / 7));
    EXPECT_TRUE(source.finish());
}

TEST(InterleavedBytes, AreMissingWhereATurnIs) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "0123456789");
    std::vector<unsigned char> values(4);
    EXPECT_FALSE(turnsOf(folder / "a", 3, 0).read(values.data(), 4));
    EXPECT_FALSE(turnsOf(folder / "a", 3, 0).skip(UINT64_MAX));
    EXPECT_FALSE(turnsOf(folder / "a", 1000000, 7).read(values.data(), 2));
}

} // namespace
