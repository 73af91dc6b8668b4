// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/VoxelRows.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using tamo::volume::Box;
using tamo::volume::ScalarType;

// The bytes of 5 x 4 x 3 numbers of 16 bits, each its own index.
std::string indices() {
    std::string bytes;
    for (std::uint16_t i = 0; i < 60; ++i) {
        bytes += numberBytes(i, /*isBigEndian=*/true);
    }
    return bytes;
}

TEST(VoxelRows, ReadEveryBoxInTheOrderOfTheWhole) {
    TemporaryFolder const folder;
    writeFile(folder / "a", indices());
    for (int i = 0; i < 60; ++i) {
        for (int j = i; j < 60; ++j) {
            Box const box{{i % 5, i / 5 % 4, i / 20}, {j % 5, j / 5 % 4, j / 20}};
            if (!isInside(box, {5, 4, 3})) {
                continue;
            }
            std::vector<std::uint16_t> voxels(static_cast<std::size_t>(tamo::volume::voxelCount(box.sides())));
            auto const source = tamo::volume::openBytes(folder / "a", 0, tamo::volume::Packing::None);
            ASSERT_TRUE(readBox(*source, {{5, 4, 3}, ScalarType::UInt16, true}, box,
                                reinterpret_cast<unsigned char*>(voxels.data()), {}));
            EXPECT_EQ(voxels.front(), i);
            EXPECT_EQ(voxels.back(), j);
        }
    }
}

TEST(VoxelRows, AreReversedWhateverTheirWidth) {
    for (int const bytes : {1, 2, 3, 4, 8, 16}) {
        // More numbers than a register holds, and not a multiple of that.
        std::vector<unsigned char> data(static_cast<std::size_t>(bytes) * 37);
        std::vector<unsigned char> expected(data.size());
        for (std::size_t i = 0; i < data.size(); ++i) {
            std::size_t const width = static_cast<std::size_t>(bytes);
            data[i] = static_cast<unsigned char>(i);
            expected[i / width * width + width - 1 - i % width] = data[i];
        }
        tamo::volume::reverseScalars(data.data(), 37, bytes);
        EXPECT_EQ(data, expected) << bytes;
    }
}

TEST(VoxelRows, OfSlicesTooLargeToBeReadTogetherAreTheSame) {
    TemporaryFolder const folder;
    std::string bytes;
    for (std::uint32_t i = 0; i < 300 * 300 * 3; ++i) {
        bytes += numberBytes(i, /*isBigEndian=*/true);
    }
    writeFile(folder / "a", bytes);
    std::vector<std::uint32_t> voxels(300 * 300 * 2);
    auto const source = tamo::volume::openBytes(folder / "a", 0, tamo::volume::Packing::None);
    ASSERT_TRUE(readBox(*source, {{300, 300, 3}, ScalarType::UInt32, true}, {{0, 0, 1}, {299, 299, 2}},
                        reinterpret_cast<unsigned char*>(voxels.data()), {}));
    for (std::uint32_t i = 0; i < voxels.size(); ++i) {
        ASSERT_EQ(voxels[i], i + 300 * 300);
    }
}

TEST(VoxelRows, DoNotReadPastTheEndOfTheFile) {
    TemporaryFolder const folder;
    writeFile(folder / "a", indices().substr(0, 119));
    std::vector<unsigned char> voxels(120);
    auto const source = tamo::volume::openBytes(folder / "a", 0, tamo::volume::Packing::None);
    EXPECT_FALSE(readBox(*source, {{5, 4, 3}, ScalarType::UInt16, true}, {{0, 0, 0}, {4, 3, 2}}, voxels.data(), {}));
}

TEST(VoxelRows, StopWhereTheProgressSaysSo) {
    TemporaryFolder const folder;
    writeFile(folder / "a", indices());
    std::vector<unsigned char> voxels(120);
    auto const source = tamo::volume::openBytes(folder / "a", 0, tamo::volume::Packing::None);
    EXPECT_THROW(static_cast<void>(readBox(*source, {{5, 4, 3}, ScalarType::UInt16, true}, {{0, 0, 0}, {4, 3, 2}},
                                           voxels.data(), [](double fraction) { return fraction < 0.5; })),
                 tamo::volume::Cancelled);
}

} // namespace
