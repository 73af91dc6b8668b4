// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/memory/MappedMemory.h"

#include "src/scan/SampleRun.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

using namespace tamo::scan;
using tamo::test::MappedMemory;

// Eight rows of eight samples between voxels that do not count, and what stands in the lowest bits.
class NoiseRows {
  public:
    NoiseRows(std::ptrdiff_t stride, std::ptrdiff_t apart)
        : _stride(stride), _apart(apart),
          _bytes(static_cast<std::size_t>(16 * (std::abs(stride) + std::abs(apart)) + 8)) {
        std::mt19937 random(static_cast<unsigned int>(stride * 100 + apart));
        for (unsigned char& byte : _bytes) {
            byte = static_cast<unsigned char>(random());
        }
    }

    [[nodiscard]] unsigned char const* first() const { return _bytes.data() + _bytes.size() / 2; }
    [[nodiscard]] unsigned int sample(unsigned int row, unsigned int i) const {
        return first()[static_cast<std::ptrdiff_t>(i) * _stride + static_cast<std::ptrdiff_t>(row) * _apart] & 1U;
    }

    // Returns the tile of the first `rows` rows as planes, or, turned, as lanes.
    [[nodiscard]] BitTile tile(unsigned int rows, bool isTurned) const {
        BitTile expected = 0;
        for (unsigned int row = 0; row < rows; ++row) {
            for (unsigned int i = 0; i < 8; ++i) {
                expected |= BitTile{sample(row, i)} << (isTurned ? 8 * row + i : 8 * i + row);
            }
        }
        return expected;
    }

  private:
    std::ptrdiff_t _stride;
    std::ptrdiff_t _apart;
    std::vector<unsigned char> _bytes;
};

template <typename Run> void expectItsSamples(std::ptrdiff_t stride) {
    Run const run(stride);
    for (std::ptrdiff_t const apart : {1, -1, 3, 50, -77, 80}) {
        NoiseRows const rows(stride, apart);
        unsigned char const* const start = rows.first() + run.start();
        for (unsigned int count = 1; count <= 8; ++count) {
            SCOPED_TRACE(testing::Message() << count << " rows, stride " << stride << ", " << apart << " apart");
            BitTile const stacked = stackRuns(run, start, apart, count);
            EXPECT_EQ(run.sortedLanes(stacked), rows.tile(count, /*isTurned=*/false));
            for (unsigned int i = 0; i < 8; ++i) {
                EXPECT_EQ(laneOf(stacked, run.place(i)), laneOf(rows.tile(count, /*isTurned=*/false), i));
            }
            EXPECT_EQ(run.sortedPlanes(packRuns(run, start, apart, count)), rows.tile(count, /*isTurned=*/true));
        }
    }
}

TEST(SampleRun, HoldsTheLowestBitsOfItsSamplesInTheirOrder) {
    for (int const sign : {1, -1}) {
        expectItsSamples<NearRun<1>>(sign);
        expectItsSamples<NearRun<2>>(2 * sign);
        expectItsSamples<NearRun<3>>(3 * sign);
        expectItsSamples<NearRun<4>>(4 * sign);
        for (int stride = 0; stride < 20; ++stride) {
            expectItsSamples<FarRun>(stride * sign);
        }
    }
}

// Loads one run at the start and one at the end of a page whose neighbours must not be read.
template <typename Run> void loadAtBothEnds(std::ptrdiff_t stride) {
    std::size_t const page = MappedMemory::pageSize();
    MappedMemory memory(3 * page, MappedMemory::Access::kNone);
    memory.open(1);
    unsigned char const* const lowest = memory.bytes() + page;
    unsigned char const* const highest = lowest + page - 1;
    Run const run(stride);
    bool const isForwards = stride > 0;
    EXPECT_EQ(run.load((isForwards ? lowest : lowest - 7 * stride) + run.start()), 0U);
    EXPECT_EQ(run.load((isForwards ? highest - 7 * stride : highest) + run.start()), 0U);
}

TEST(SampleRun, ReadsNothingBeforeTheFirstSampleAndBehindTheLast) {
    for (int const sign : {1, -1}) {
        loadAtBothEnds<NearRun<1>>(sign);
        loadAtBothEnds<NearRun<2>>(2 * sign);
        loadAtBothEnds<NearRun<3>>(3 * sign);
        loadAtBothEnds<NearRun<4>>(4 * sign);
        loadAtBothEnds<FarRun>(5 * sign);
    }
}

TEST(SampleRun, AWordHasItsFirstByteLowest) {
    unsigned char const bytes[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_EQ(loadEight(bytes), 0x0807060504030201U);
    EXPECT_EQ(loadEight(bytes + 1), 0x0908070605040302U);
}

TEST(SampleRun, PackedBytesKeepTheirOrder) {
    for (unsigned int bits = 0; bits < 256; ++bits) {
        std::uint64_t bytes = 0;
        for (unsigned int i = 0; i < 8; ++i) {
            bytes |= std::uint64_t{bits >> i & 1U} << (8 * i);
        }
        EXPECT_EQ(packEight(bytes), bits);
    }
}

} // namespace
