// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/VolumeFile.h"

#include "volume/Error.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <stdexcept>

namespace {

using tamo::volume::Box;
using tamo::volume::VolumeHeader;

VolumeHeader headerOf(tamo::volume::Size3 const& size) {
    VolumeHeader header;
    header.size = size;
    header.type = tamo::volume::ScalarType::UInt16;
    return header;
}

// A file whose voxels are bytes of its own choice, or cannot be held.
class MadeFile : public tamo::volume::VolumeFile {
  public:
    MadeFile(tamo::volume::Size3 const& size, bool isTooLarge)
        : VolumeFile("a.made", headerOf(size)), _isTooLarge(isTooLarge) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, tamo::volume::Progress const&) const override {
        if (_isTooLarge) {
            throw std::bad_alloc();
        }
        std::fill_n(target, 2 * tamo::volume::voxelCount(box.sides()), static_cast<unsigned char>(0x11));
    }

    bool _isTooLarge;
};

TEST(VolumeFile, GivesTheVoxelsOfABoxOneBehindAnother) {
    MadeFile const file({5, 6, 7}, /*isTooLarge=*/false);
    auto const volume = file.read({{1, 1, 1}, {3, 4, 5}}, {});
    EXPECT_EQ(volume.size(), (tamo::volume::Size3{3, 4, 5}));
    EXPECT_EQ(volume.increments, (std::array<std::ptrdiff_t, 3>{2, 6, 24}));
    EXPECT_EQ(volume.row(3, 4)[5], 0x11);
    EXPECT_EQ(volume.header.size, (tamo::volume::Size3{5, 6, 7}));
}

TEST(VolumeFile, RefusesBoxesOutsideOfTheVolume) {
    MadeFile const file({5, 6, 7}, /*isTooLarge=*/false);
    EXPECT_THROW(static_cast<void>(file.read({{0, 0, 0}, {5, 5, 6}}, {})), std::logic_error);
}

TEST(VolumeFile, NamesAVolumeThatNoMemoryHolds) {
    for (bool const isTooLarge : {true, false}) {
        MadeFile const file({1 << 20, 1 << 20, isTooLarge ? 2 : 1 << 18}, isTooLarge);
        tamo::volume::Size3 const size = isTooLarge ? tamo::volume::Size3{2, 2, 2} : file.header().size;
        try {
            static_cast<void>(file.read(tamo::volume::wholeOf(size), {}));
            FAIL();
        } catch (tamo::volume::Error const& error) {
            EXPECT_NE(std::string(error.what()).find("a.made: expected a volume that fits into memory"),
                      std::string::npos);
        }
    }
}

} // namespace
