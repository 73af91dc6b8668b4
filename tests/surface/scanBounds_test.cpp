// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/RecordingAggregator.h"
#include "support/memory/MappedMemory.h"
#include "support/oracle/ReferenceScan.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <ostream>

namespace {

using namespace tamo::test;

// Where the samples of a row lie in the one page that can be read.
enum class RowPlace {
    kPageStart,
    kPageEnd
};

struct GuardedCase {
    // The axis along which a row runs; a read beyond either end of the row, or in a row that is not there, crashes.
    std::size_t rowAxis;
    RowPlace place;
    bool isBackwards;
    unsigned int step;
};

std::ostream& operator<<(std::ostream& out, GuardedCase const& c) {
    return out << "rows along "
               << "xyz"[c.rowAxis] << (c.place == RowPlace::kPageStart ? " at page start" : " at page end")
               << (c.isBackwards ? ", backwards" : "") << ", step " << c.step;
}

std::vector<GuardedCase> guardedCases() {
    std::vector<GuardedCase> cases;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (RowPlace const place : {RowPlace::kPageStart, RowPlace::kPageEnd}) {
            for (bool const isBackwards : {false, true}) {
                for (unsigned int step = 1; step <= 5; ++step) {
                    cases.push_back({axis, place, isBackwards, step});
                }
            }
        }
    }
    return cases;
}

// Lays a box out so that each row of samples fills the start or the end of a page of its own between closed pages.
//
// The box's extent leaves room beyond the last sample; that room lies in closed pages as well.
class GuardedVolume {
  public:
    static constexpr int kAcross = 4;

    GuardedVolume(GuardedCase const& layout, int along)
        : _page(static_cast<int>(MappedMemory::pageSize())), _layout(layout),
          _memory(static_cast<std::size_t>(_page) * pageCount(), MappedMemory::Access::kNone) {
        int const step = static_cast<int>(layout.step);
        samples = {kAcross, kAcross, kAcross};
        samples[layout.rowAxis] = along;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            box.extent[axis] = samples[axis] * step + step - 1;
        }
        box.step = layout.step;
        std::size_t const middle = (layout.rowAxis + 1) % 3;
        std::size_t const slow = (layout.rowAxis + 2) % 3;
        increments[layout.rowAxis] = layout.isBackwards ? -1 : 1;
        increments[middle] = 2 * _page;
        increments[slow] = 2 * _page * kPagePairs;
        for (int j = 0; j < kAcross; ++j) {
            for (int k = 0; k < kAcross; ++k) {
                _memory.open(static_cast<std::size_t>(kFirstPage + 2 * step * (j + k * kPagePairs)));
            }
        }
    }

    [[nodiscard]] unsigned char* first() {
        int const rowLength = (samples[_layout.rowAxis] - 1) * static_cast<int>(_layout.step) + 1;
        int const rowStart = _layout.place == RowPlace::kPageStart ? 0 : _page - rowLength;
        return _memory.bytes() + kFirstPage * _page + rowStart + (_layout.isBackwards ? rowLength - 1 : 0);
    }

    [[nodiscard]] unsigned char& at(int x, int y, int z) {
        return *(first() + x * increments[0] + y * increments[1] + z * increments[2]);
    }

    Triple samples{};
    Triple increments{};
    ScanBox box;

  private:
    // Distance between planes, in pairs of an open and a closed page: room for every row and for one past the last.
    static constexpr int kPagePairs = 16;
    // Room for a plane before the first.
    static constexpr int kFirstPage = 4 * 2 * kPagePairs;

    static std::size_t pageCount() { return static_cast<std::size_t>(kFirstPage + 20 * 2 * kPagePairs); }

    int _page;
    GuardedCase _layout;
    MappedMemory _memory;
};

class ScanBounds : public testing::TestWithParam<GuardedCase> {};

INSTANTIATE_TEST_SUITE_P(Layouts, ScanBounds, testing::ValuesIn(guardedCases()));

// Whatever is not a sample cannot be read here: a scan that does so ends the program.
TEST_P(ScanBounds, NothingButSamplesIsRead) {
    GLObjectList list;
    makeMarkedList(list);
    for (int const along : {1, 2, 3, 7, 8, 9, 31, 32, 33, 63, 64, 65, 127, 128, 129}) {
        SCOPED_TRACE(along);
        GuardedVolume volume(GetParam(), along);
        ScanBox const& box = volume.box;
        int const step = static_cast<int>(box.step);
        for (int z = 0; z < volume.samples[2]; ++z) {
            for (int y = 0; y < volume.samples[1]; ++y) {
                for (int x = 0; x < volume.samples[0]; ++x) {
                    volume.at(x * step, y * step, z * step) = (x * 7 + y * 5 + z * 3) % 4 != 0 ? 1 : 0;
                }
            }
        }
        RecordingAggregator receiver;
        EXPECT_TRUE(wrapGlobal(volume.first(), toVec3(volume.increments), box.step, {0, 0, 0}, toVec3(box.extent), list,
                               receiver));
        auto const valueAt = [&volume](int x, int y, int z) { return volume.at(x, y, z); };
        EXPECT_EQ(receiver.emissions, ReferenceScan(box).emissions(valueAt));
        GLDataInfo info;
        EXPECT_TRUE(getGLDataInfo(volume.first(), toVec3(volume.increments), box.step, {0, 0, 0}, toVec3(box.extent),
                                  list, info));
        EXPECT_EQ(info.primitives(), ReferenceScan(box).allCells(valueAt).size());
    }
}

// Places a few foreground voxels into volumes whose addresses pass what 31 and 32 bits can hold.
class HugeVolume : public testing::Test {
  protected:
    HugeVolume() : memory(kBytes, MappedMemory::Access::kAll) { makeMarkedList(list); }

    // Sets single samples and checks that each of them gives its eight cells; `data` is voxel (0, 0, 0).
    void checkSamples(unsigned char* data, GLtVec3<std::ptrdiff_t> const& increments, ScanBox const& box,
                      std::vector<Triple> const& voxels) {
        for (Triple const& v : voxels) {
            data[v[0] * increments.x + v[1] * increments.y + v[2] * increments.z] = 1;
        }
        GLtVec3<int> const narrow = {static_cast<int>(increments.x), static_cast<int>(increments.y),
                                     static_cast<int>(increments.z)};
        RecordingAggregator receiver;
        EXPECT_TRUE(wrapGlobal(data, narrow, box.step, toVec3(box.origin), toVec3(box.extent), list, receiver));
        auto const valueAt = [&voxels](int x, int y, int z) {
            return std::count(voxels.begin(), voxels.end(), Triple{x, y, z});
        };
        EXPECT_EQ(receiver.emissions, ReferenceScan(box).emissions(valueAt));
        EXPECT_EQ(receiver.emissions.size(), 8 * voxels.size());
    }

    static constexpr std::size_t kBytes = std::size_t{7} << 30U;
    MappedMemory memory;
    GLObjectList list;
};

TEST_F(HugeVolume, PlanesFurtherApartThanTwoToTheThirtyFirst) {
    checkSamples(memory.bytes(), {1, 8, 2000000000}, {1, {0, 0, 0}, {5, 5, 4}},
                 {{0, 0, 0}, {2, 2, 1}, {4, 1, 2}, {4, 4, 3}, {0, 3, 3}});
}

TEST_F(HugeVolume, MoreVoxelsThanTwoToTheThirtySecondWithALargeStep) {
    checkSamples(memory.bytes(), {1, 2048, 2048 * 2048}, {256, {0, 0, 0}, {2048, 2048, 1600}},
                 {{0, 0, 0}, {1024, 512, 512}, {1792, 1792, 1280}, {0, 1792, 1280}, {1792, 0, 768}});
}

TEST_F(HugeVolume, AStepTimesAnIncrementPastTwoToTheThirtyFirst) {
    checkSamples(memory.bytes(), {30000, 3, 1}, {100000, {0, 0, 0}, {250000, 100000, 100000}}, {{100000, 0, 0}});
}

TEST_F(HugeVolume, ABoxWhoseOriginLiesPastTwoToTheThirtySecond) {
    checkSamples(memory.bytes(), {1, 50000, 1500000000}, {2, {1000, 20000, 3}, {7, 6, 2}},
                 {{1000, 20000, 3}, {1004, 20004, 3}});
}

TEST_F(HugeVolume, AddressesThatFallByMoreThanTwoToTheThirtyFirst) {
    checkSamples(memory.bytes() + kBytes - 1, {-1, -8, -2100000000}, {1, {0, 0, 0}, {5, 5, 4}},
                 {{0, 0, 0}, {2, 2, 1}, {4, 4, 3}});
}

} // namespace
