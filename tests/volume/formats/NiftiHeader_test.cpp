// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/NiftiHeader.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"
#include "volume/support/NiftiBytes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

using tamo::volume::NiftiHeader;

class NiftiHeaders : public testing::Test {
  protected:
    // Reads the header of 2 x 3 x 4 voxels, changed.
    NiftiHeader read(int version, std::function<void(NiftiBytes&)> const& change) {
        NiftiBytes bytes(version, version == 2, {2, 3, 4});
        change(bytes);
        writeFile(_folder / "a", bytes.bytes());
        return tamo::volume::readNiftiHeader(_folder / "a", tamo::volume::Packing::None);
    }

    std::string refusal(int version, std::function<void(NiftiBytes&)> const& change) {
        try {
            read(version, change);
        } catch (tamo::volume::Error const& error) {
            return error.reason();
        }
        return {};
    }

  private:
    TemporaryFolder _folder;
};

TEST_F(NiftiHeaders, GiveLengthsInTheirUnit) {
    struct Unit {
        int code;
        char const* name;
        double millimetres;
    };
    for (Unit const& unit : {Unit{0, "", 1}, {1, "m", 1000}, {2, "mm", 1}, {3, "um", 1e-3}, {8 + 3, "um", 1e-3}}) {
        for (int const version : {1, 2}) {
            NiftiHeader const header = read(version, [&](NiftiBytes& bytes) { bytes.setUnits(unit.code); });
            EXPECT_EQ(header.volume.geometry.fileUnit, unit.name);
            EXPECT_DOUBLE_EQ(header.volume.geometry.spacing[1], 2 * unit.millimetres);
            EXPECT_EQ(header.volume.notes.size(), 1);
        }
    }
    EXPECT_EQ(read(1, [](NiftiBytes& bytes) { bytes.setUnits(4); }).volume.notes.size(), 2);
}

TEST_F(NiftiHeaders, ScaleValuesUnlessTheSlopeIsZeroOrNone) {
    struct Scale {
        double slope, intercept, wantedSlope, wantedIntercept;
        std::size_t notes;
    };
    double const nan = std::nan("");
    for (Scale const& scale : {Scale{2, 5, 2, 5, 0},
                               {1, -1024, 1, -1024, 0},
                               {0, 7, 1, 0, 0},
                               {-1, 0, -1, 0, 0},
                               {nan, 0, 1, 0, 1},
                               {2, INFINITY, 1, 0, 1}}) {
        auto const set = [&](NiftiBytes& bytes) { bytes.setScale(scale.slope, scale.intercept); };
        NiftiHeader const header = read(1, set);
        EXPECT_EQ(header.volume.slope, scale.wantedSlope);
        EXPECT_EQ(header.volume.intercept, scale.wantedIntercept);
        EXPECT_EQ(header.volume.notes.size(), 1 + scale.notes);
        EXPECT_EQ(read(2, set).volume.slope, scale.wantedSlope);
        EXPECT_EQ(read(0, set).volume.slope, 1) << "Analyze has another field there";
    }
}

TEST_F(NiftiHeaders, SayWhetherValuesAreLabels) {
    for (int const version : {1, 2}) {
        for (int const code : {1002, 1003}) {
            EXPECT_TRUE(read(version, [=](NiftiBytes& bytes) { bytes.setIntent(code); }).volume.isLabelMap);
        }
        EXPECT_FALSE(read(version, [](NiftiBytes& bytes) { bytes.setIntent(1001); }).volume.isLabelMap);
    }
}

TEST_F(NiftiHeaders, TurnTheQformsThirdAxisRoundByItsFactor) {
    for (double const factor : {1.0, -1.0, 0.0}) {
        NiftiHeader const header = read(1, [=](NiftiBytes& bytes) {
            // Half a turn about z: x to the left, y to the back.
            bytes.setQform(1, {0, 0, 1}, {10, 20, 30});
            bytes.setPixdim(0, factor);
        });
        EXPECT_EQ(header.volume.geometry.axes[0], (tamo::Vector3{1, 0, 0}));
        EXPECT_EQ(header.volume.geometry.axes[1], (tamo::Vector3{0, 1, 0}));
        EXPECT_EQ(header.volume.geometry.axes[2], (tamo::Vector3{0, 0, factor < 0 ? -1.0 : 1.0}));
        EXPECT_EQ(header.volume.geometry.spacing, (tamo::Vector3{1, 2, 3}));
        EXPECT_EQ(header.volume.geometry.origin, (tamo::Vector3{-10, -20, 30}));
    }
}

TEST_F(NiftiHeaders, MakeNoTurnOfAQuaternionThatIsNone) {
    NiftiHeader const header = read(2, [](NiftiBytes& bytes) {
        bytes.setQform(1, {std::nan(""), 0, 0}, {10, 20, 30});
    });
    EXPECT_FALSE(header.volume.geometry.areAxesKnown);
    EXPECT_EQ(header.volume.notes.size(), 2);
}

TEST_F(NiftiHeaders, CountTheProductOfFurtherDimensionsAsFrames) {
    NiftiHeader const header = read(2, [](NiftiBytes& bytes) {
        bytes.setDimension(0, 5);
        bytes.setDimension(4, 3);
        bytes.setDimension(5, 4);
        bytes.setDimension(6, 9);
    });
    EXPECT_EQ(header.volume.frames, 12);
}

TEST_F(NiftiHeaders, AreRefusedWithSidesThatAreNone) {
    struct Side {
        int index;
        std::int64_t length;
    };
    for (int const version : {0, 1, 2}) {
        for (Side const& side : {Side{0, 0}, {0, 8}, {0, -1}, {1, 0}, {3, -4}, {0, 4}}) {
            auto const set = [&](NiftiBytes& bytes) { bytes.setDimension(side.index, side.length); };
            EXPECT_NE(refusal(version, set), "") << side.index << " " << side.length;
        }
    }
    EXPECT_NE(refusal(2, [](NiftiBytes& bytes) { bytes.setDimension(1, INT64_MAX); }), "");
    EXPECT_NE(refusal(2,
                      [](NiftiBytes& bytes) {
                          bytes.setDimension(0, 5);
                          bytes.setDimension(4, INT64_MAX);
                          bytes.setDimension(5, 2);
                      }),
              "");
}

TEST_F(NiftiHeaders, AreRefusedWithVoxelsInsideOfThem) {
    for (double const offset : {0.0, 347.0, -352.0, 352.5, 1e30, std::nan(""), HUGE_VAL}) {
        EXPECT_NE(refusal(1, [=](NiftiBytes& bytes) { bytes.setVoxelOffset(offset); }), "") << offset;
    }
    EXPECT_EQ(read(1, [](NiftiBytes& bytes) { bytes.setVoxelOffset(1024); }).voxelStart, 1024);
    EXPECT_NE(refusal(2, [](NiftiBytes& bytes) { bytes.setVoxelOffset(539); }), "");
}

TEST_F(NiftiHeaders, AreNotAnalyzeWithADamagedMagic) {
    EXPECT_NE(refusal(1, [](NiftiBytes& bytes) { bytes.setMagic("nx"); }), "");
    EXPECT_NE(refusal(1, [](NiftiBytes& bytes) { bytes.setMagic("x+"); }), "");
    EXPECT_NE(refusal(2, [](NiftiBytes& bytes) { bytes.setMagic("nx"); }), "");
    EXPECT_EQ(read(0, [](NiftiBytes&) {}).volume.format, "Analyze 7.5");
}

} // namespace
