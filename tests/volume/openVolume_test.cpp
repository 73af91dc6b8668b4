// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/openVolume.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

namespace fs = std::filesystem;
using tamo::volume::VolumeSource;

class OpenVolume : public testing::Test {
  protected:
    // A source of 2 x 2 x 2 bare bytes.
    [[nodiscard]] VolumeSource raw() const {
        writeFile(_folder / "a.raw", "abcdefgh");
        VolumeSource source = sourceOf(_folder / "a.raw");
        source.raw = {{2, 2, 2}, tamo::volume::ScalarType::UInt8, false, 0};
        return source;
    }

    TemporaryFolder _folder;
};

bool holds(std::string const& text, std::string const& part) { return text.find(part) != std::string::npos; }

TEST_F(OpenVolume, NamesWhatDoesNotExistOrCannotBeAVolume) {
    EXPECT_TRUE(holds(refusalOf(_folder / "none.nii"), "none.nii: expected a volume, found no such file"));
    EXPECT_TRUE(holds(refusalOf(_folder / std::string(300, 'x')), "expected a file or folder that can be read"));
    writeFile(_folder / "a.txt", "text");
    std::string const refusal = refusalOf(_folder / "a.txt");
    for (char const* const ending : {".nii.gz", ".mha", ".nrrd", ".tif", ".vti", ".npy", ".mgz", ".dcm", "--dims"}) {
        EXPECT_TRUE(holds(refusal, ending)) << ending;
    }
    EXPECT_TRUE(holds(refusalOf("/dev/null"), "found neither (a pipe or a device)"));
}

TEST_F(OpenVolume, RefusesTextUnderAnyEndingInOneLine) {
    for (char const* const name :
         {"a.nii", "a.nii.gz", "a.hdr", "a.img", "a.mha", "a.mhd", "a.nrrd",   "a.nhdr", "a.tif", "a.TIFF",
          "a.mgh", "a.mgz",    "a.npy", "a.vtk", "a.vti", "a.dcm", "DICOMDIR", "a.png",  "a.jpg", "a.bmp"}) {
        writeFile(_folder / name, "no volume at all\n");
        std::string const refusal = refusalOf(_folder / name);
        EXPECT_TRUE(holds(refusal, std::string(name) + ": expected") || holds(refusal, "a.hdr: expected")) << refusal;
        EXPECT_FALSE(holds(refusal, "\n")) << refusal;
        fs::remove(_folder / name);
    }
}

TEST_F(OpenVolume, LetsSpacingAndAxesTakeThePlaceOfWhatIsAssumed) {
    VolumeSource source = raw();
    source.spacing = {3, 2, 1};
    source.axes = {{{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}};
    auto const geometry = openVolume(source, {})->header().geometry;
    EXPECT_EQ(geometry.spacing, (tamo::Vector3{3, 2, 1}));
    EXPECT_TRUE(geometry.isSpacingKnown && geometry.areAxesKnown);
    EXPECT_EQ(geometry.axes[2], (tamo::Vector3{1, 0, 0}));
    source.spacing = {1, std::nan(""), 1};
    EXPECT_TRUE(holds(refusalOf(source), "give --spacing"));
}

TEST_F(OpenVolume, RefusesFlatAndUncountableVolumes) {
    VolumeSource source = raw();
    source.raw->size = {8, 1, 1};
    EXPECT_TRUE(holds(refusalOf(source), "expected a 3-D volume, found 8 x 1 x 1 voxels"));
    source.raw->size = {INT32_MAX, INT32_MAX, INT32_MAX};
    EXPECT_TRUE(holds(refusalOf(source), "expected a volume of less than 2^60 voxels"));
}

TEST_F(OpenVolume, RefusesBareVoxelsOfAnotherNumber) {
    VolumeSource source = raw();
    for (std::int64_t const height : {1, 3}) {
        source.raw->size = {2, height, 2};
        EXPECT_TRUE(holds(refusalOf(source), "expected " + std::to_string(4 * height) + " bytes"));
    }
}

TEST_F(OpenVolume, RefusesChoicesThatTheFileDoesNotHave) {
    VolumeSource source = raw();
    source.segment = "liver";
    EXPECT_TRUE(
        holds(refusalOf(source), "expected a file of named segments with --segment, found none in it; leave it out"));
    source = raw();
    source.series = "3";
    EXPECT_TRUE(holds(refusalOf(source), "--series"));
    source = raw();
    source.frame = 1;
    EXPECT_TRUE(holds(refusalOf(source), "--frame"));
    source.frame = 0;
    EXPECT_EQ(refusalOf(source), "");
    source.channel = 1;
    EXPECT_TRUE(holds(refusalOf(source), "--channel"));
}

} // namespace
