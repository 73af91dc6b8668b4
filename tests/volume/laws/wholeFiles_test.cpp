// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "volume/support/TestFormats.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::GridGeometry;
using tamo::volume::Volume;

class WholeFile : public testing::TestWithParam<TestFormat> {};

// Writes the phantom in the format and reads it again.
Volume readPhantom(TestFormat const& format, Phantom const& phantom) {
    TemporaryFolder const folder;
    format.write(phantom, folder.path());
    return readWhole(folder / format.fileName);
}

TEST_P(WholeFile, GivesEveryVoxel) {
    Phantom const phantom = makePhantom(19, 17, 11);
    Volume const volume = readPhantom(GetParam(), phantom);
    ASSERT_EQ(volume.size(), (tamo::volume::Size3{19, 17, 11}));
    for (int z = 0; z < 11; ++z) {
        for (int y = 0; y < 17; ++y) {
            for (int x = 0; x < 19; ++x) {
                int const expected = phantom.at(x, y, z) / GetParam().divisor;
                ASSERT_NEAR(valueAt(volume, x, y, z), expected, GetParam().tolerance) << x << " " << y << " " << z;
            }
        }
    }
    EXPECT_EQ(volume.header.slope, 1);
    EXPECT_EQ(volume.header.intercept, 0);
}

TEST_P(WholeFile, GivesTheSpacing) {
    GridGeometry const geometry = readPhantom(GetParam(), makePhantom(19, 17, 11)).header.geometry;
    EXPECT_EQ(geometry.isSpacingKnown, GetParam().hasSpacing);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(geometry.spacing[axis], GetParam().hasSpacing ? static_cast<double>(axis) + 1 : 1, 1e-5);
    }
}

TEST_P(WholeFile, GivesTheOrigin) {
    Phantom const phantom = makePhantom(19, 17, 11);
    GridGeometry const geometry = readPhantom(GetParam(), phantom).header.geometry;
    EXPECT_EQ(geometry.isOriginKnown, GetParam().hasOrigin);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(geometry.origin[i], GetParam().hasOrigin ? phantom.origin[i] : 0, 1e-4);
    }
}

TEST_P(WholeFile, GivesTheDirections) {
    Phantom const phantom = makePhantom(19, 17, 11);
    GridGeometry const geometry = readPhantom(GetParam(), phantom).header.geometry;
    EXPECT_EQ(geometry.areAxesKnown, GetParam().hasAxes);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        for (std::size_t i = 0; i < 3; ++i) {
            double const assumed = axis == i ? 1 : 0;
            EXPECT_NEAR(geometry.axes[axis][i], GetParam().hasAxes ? phantom.axes[axis][i] : assumed, 1e-5);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, WholeFile, testing::ValuesIn(testFormats()),
                         [](auto const& instance) { return instance.param.name; });

} // namespace
