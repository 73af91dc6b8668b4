// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "volume/support/TestFormats.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <future>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace {

using tamo::volume::Box;
using tamo::volume::Volume;

class BoxOfFile : public testing::TestWithParam<TestFormat> {};

TEST_P(BoxOfFile, HoldsTheVoxelsOfTheWhole) {
    TemporaryFolder const folder;
    GetParam().write(makePhantom(13, 11, 7), folder.path());
    auto const file = tamo::volume::openVolume(sourceOf(folder / GetParam().fileName), {});
    Volume const whole = file->read(tamo::volume::wholeOf({13, 11, 7}), {});
    std::vector<Box> const boxes{{{0, 0, 0}, {0, 0, 0}},
                                 {{12, 10, 6}, {12, 10, 6}},
                                 {{2, 0, 1}, {9, 10, 5}},
                                 {{0, 3, 0}, {12, 7, 6}},
                                 {{1, 2, 3}, {11, 8, 4}}};
    for (Box const& box : boxes) {
        SCOPED_TRACE(tamo::volume::text(box.first, ",") + " to " + tamo::volume::text(box.last, ","));
        Volume const part = file->read(box, {});
        EXPECT_EQ(part.size(), box.sides());
        for (std::int64_t z = box.first[2]; z <= box.last[2]; ++z) {
            for (std::int64_t y = box.first[1]; y <= box.last[1]; ++y) {
                for (std::int64_t x = box.first[0]; x <= box.last[0]; ++x) {
                    ASSERT_EQ(valueAt(part, x - box.first[0], y - box.first[1], z - box.first[2]),
                              valueAt(whole, x, y, z));
                }
            }
        }
    }
}

TEST_P(BoxOfFile, BeginsWhereItsFirstVoxelLies) {
    TemporaryFolder const folder;
    GetParam().write(makePhantom(13, 11, 7), folder.path());
    auto const file = tamo::volume::openVolume(sourceOf(folder / GetParam().fileName), {});
    Volume const part = file->read({{1, 2, 3}, {11, 8, 4}}, {});
    EXPECT_EQ(part.origin(), file->header().geometry.position({1, 2, 3}));
}

TEST_P(BoxOfFile, IsTheSameOnSeveralThreadsAtOnce) {
    TemporaryFolder const folder;
    GetParam().write(makePhantom(13, 11, 7), folder.path());
    auto const file = tamo::volume::openVolume(sourceOf(folder / GetParam().fileName), {});
    Box const box{{1, 2, 3}, {11, 8, 4}};
    Volume const alone = file->read(box, {});
    std::vector<std::future<Volume>> readings;
    std::generate_n(std::back_inserter(readings), 4,
                    [&] { return std::async(std::launch::async, [&] { return file->read(box, {}); }); });
    for (std::future<Volume>& reading : readings) {
        Volume const volume = reading.get();
        EXPECT_EQ(std::memcmp(volume.voxels, alone.voxels, alone.bytes()), 0);
    }
}

TEST_P(BoxOfFile, LetsOutWhatItsProgressThrows) {
    TemporaryFolder const folder;
    GetParam().write(makePhantom(13, 11, 7), folder.path());
    auto const file = tamo::volume::openVolume(sourceOf(folder / GetParam().fileName), {});
    auto const fail = [](double) -> bool { throw std::range_error("made"); };
    EXPECT_THROW(static_cast<void>(file->read(tamo::volume::wholeOf({13, 11, 7}), fail)), std::range_error);
    auto const cancel = [](double) { return false; };
    EXPECT_THROW(static_cast<void>(file->read({{1, 2, 3}, {11, 8, 4}}, cancel)), tamo::volume::Cancelled);
}

INSTANTIATE_TEST_SUITE_P(All, BoxOfFile, testing::ValuesIn(testFormats()),
                         [](auto const& instance) { return instance.param.name; });

} // namespace
