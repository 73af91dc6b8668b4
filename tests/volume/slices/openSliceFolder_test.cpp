// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/TiffFiles.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using tamo::volume::Size3;
using tamo::volume::Volume;

class SliceFolder : public testing::Test {
  protected:
    // Slices "s0.png" and so on, all pixels of each its number.
    void writeSlices(int count, std::string const& below = "") const {
        for (int i = 0; i < count; ++i) {
            writePng(_folder / (below + "s" + std::to_string(i) + ".png"), flat(i));
        }
    }
    static TestPicture flat(int value) {
        return {5, 4, 8, 1, std::vector<unsigned char>(20, static_cast<unsigned char>(value))};
    }
    [[nodiscard]] std::string refusal() const { return refusalOf(_folder.path()); }
    [[nodiscard]] bool isRefusedWith(std::string const& a, std::string const& b = "") const {
        return refusal().find(a) != std::string::npos && refusal().find(b) != std::string::npos;
    }

    TemporaryFolder _folder;
};

TEST_F(SliceFolder, StacksItsSlicesInTheOrderOfTheirNumbers) {
    writeSlices(12);
    Volume const volume = readWhole(_folder.path());
    EXPECT_EQ(volume.header.format, "PNG stack");
    EXPECT_EQ(volume.size(), (Size3{5, 4, 12}));
    EXPECT_TRUE(volume.header.notes.empty());
    for (int z = 0; z < 12; ++z) {
        EXPECT_EQ(valueAt(volume, 4, 3, z), z);
    }
}

TEST_F(SliceFolder, ReadsOnlyTheSlicesOfABox) {
    writeSlices(5);
    auto const file = tamo::volume::openVolume(sourceOf(_folder.path()), {});
    fs::remove(_folder / "s0.png");
    writePng(_folder / "s4.png", makePicture(6, 4));
    EXPECT_EQ(valueAt(file->read({{0, 0, 1}, {4, 3, 3}}, {}), 0, 0, 2), 3);
    EXPECT_THROW(static_cast<void>(file->read({{0, 0, 0}, {4, 3, 3}}, {})), tamo::volume::Error);
    EXPECT_THROW(static_cast<void>(file->read({{0, 0, 1}, {4, 3, 4}}, {})), tamo::volume::Error);
}

TEST_F(SliceFolder, LeavesOutStrayFilesWithANote) {
    writeSlices(3);
    writeFile(_folder / "Thumbs.db", "x");
    writeFile(_folder / "scan.log", "x");
    Volume const volume = readWhole(_folder.path());
    EXPECT_EQ(volume.size()[2], 3);
    EXPECT_EQ(volume.header.notes, std::vector<std::string>{"scan.log, Thumbs.db are no slices and were left out"});
}

TEST_F(SliceFolder, LeavesOutASinglePreviewWithANote) {
    writeSlices(10);
    writeBmp(_folder / "s_spr.bmp", makePicture(50, 40));
    Volume const volume = readWhole(_folder.path());
    EXPECT_EQ(volume.size(), (Size3{5, 4, 10}));
    EXPECT_EQ(volume.header.notes.size(), 1U);
}

TEST_F(SliceFolder, OfTwoFormatsIsRefused) {
    writeSlices(3);
    writeBmp(_folder / "t.bmp", makePicture(5, 4));
    EXPECT_TRUE(isRefusedWith("3 PNG", "1 BMP")) << refusal();
}

TEST_F(SliceFolder, WithAMissingOrDoubledSliceIsRefused) {
    writeSlices(6);
    fs::remove(_folder / "s3.png");
    EXPECT_TRUE(isRefusedWith("s2.png", "s4.png")) << refusal();
    writePng(_folder / "s3.png", flat(3));
    writePng(_folder / "s03.png", flat(3));
    EXPECT_TRUE(isRefusedWith("s3.png", "s03.png")) << refusal();
}

TEST_F(SliceFolder, OfSlicesThatDifferIsRefusedByTheSlice) {
    writeSlices(3);
    for (TestPicture const& other :
         {makePicture(6, 4), makePicture(5, 5), makePicture(5, 4, 16), makePicture(5, 4, 4)}) {
        writePng(_folder / "s1.png", other);
        EXPECT_TRUE(isRefusedWith("s1.png: expected", "s0.png")) << refusal();
    }
}

TEST_F(SliceFolder, WithASliceThatMayNotBeReadIsRefusedByTheSlice) {
    writeSlices(3);
    fs::remove(_folder / "s1.png");
    fs::create_symlink(_folder / "nowhere", _folder / "s1.png");
    EXPECT_TRUE(isRefusedWith("s1.png: expected", "No such file")) << refusal();
}

TEST_F(SliceFolder, ThatMayNotBeEnteredIsRefusedInALineThatSaysWhy) {
    fs::permissions(_folder.path(), fs::perms::none);
    if (geteuid() != 0) {
        EXPECT_TRUE(isRefusedWith("Permission denied")) << refusal();
    }
    fs::permissions(_folder.path(), fs::perms::owner_all);
}

TEST_F(SliceFolder, WithoutSlicesIsRefused) {
    EXPECT_TRUE(isRefusedWith("expected a folder of slices", "found none"));
    writeFile(_folder / "notes.txt", "x");
    EXPECT_TRUE(isRefusedWith("expected a folder of slices", "found none"));
}

TEST_F(SliceFolder, HandsOnToItsOnlyFolderWithSlices) {
    fs::create_directory(_folder / "below");
    fs::create_directory(_folder / "empty");
    writeSlices(4, "below/");
    Volume const volume = readWhole(_folder.path());
    EXPECT_EQ(volume.size()[2], 4);
    EXPECT_EQ(volume.header.notes, std::vector<std::string>{"The slices are those of the folder below"});
    writePng(_folder / "empty" / "s1.png", flat(1));
    EXPECT_TRUE(isRefusedWith("below", "empty")) << refusal();
}

TEST_F(SliceFolder, DoesNotLookBelowWhereItHasSlices) {
    fs::create_directory(_folder / "below");
    writeSlices(4, "below/");
    writeSlices(3);
    EXPECT_EQ(readWhole(_folder.path()).size()[2], 3);
}

TEST_F(SliceFolder, OfOneTiffFileHasItsPages) {
    {
        TiffWriter writer(_folder / "a.tif", "w");
        writer.addPage(flat(0));
        writer.addPage(flat(1));
    }
    Volume const volume = readWhole(_folder.path());
    EXPECT_EQ(volume.size(), (Size3{5, 4, 2}));
    EXPECT_EQ(volume.header.notes, std::vector<std::string>{"The slices are the pages of a.tif"});
    fs::copy(_folder / "a.tif", _folder / "b.tif");
    EXPECT_TRUE(isRefusedWith("a.tif: expected one page")) << refusal();
}

TEST_F(SliceFolder, OfTiffFilesThatHoldImagesWithoutPagesIsRefused) {
    TiffOptions options;
    options.description = "ImageJ=1.53t\nimages=2\nslices=2\n";
    TestPicture const two{5, 4, 8, 1, std::vector<unsigned char>(40)};
    for (char const* const name : {"s1.tif", "s2.tif"}) {
        writeFile(_folder / name, pageWithOpenEnd(two, options, false));
    }
    EXPECT_TRUE(isRefusedWith("s1.tif: expected one page")) << refusal();
    // Pages that were taken out of a stack.
    for (char const* const name : {"s1.tif", "s2.tif"}) {
        writeFile(_folder / name, pageWithOpenEnd(flat(1), options, false));
    }
    EXPECT_EQ(refusal(), "");
}

TEST_F(SliceFolder, OfTiffFilesWhoseZeroIsWhiteIsInvertedWithANote) {
    TiffOptions options;
    options.photometric = PHOTOMETRIC_MINISWHITE;
    TiffWriter(_folder / "s1.tif", "w").addPage(flat(1), options);
    TiffWriter(_folder / "s2.tif", "w").addPage(flat(2), options);
    Volume const volume = readWhole(_folder.path());
    EXPECT_EQ(valueAt(volume, 0, 0, 1), 253);
    EXPECT_EQ(volume.header.notes.size(), 1U);
    TiffWriter(_folder / "s2.tif", "w").addPage(flat(2));
    EXPECT_TRUE(isRefusedWith("s2.tif: expected")) << refusal();
}

TEST_F(SliceFolder, IsAskedForWhereAPictureIsGiven) {
    writeSlices(1);
    EXPECT_NE(refusalOf(_folder / "s0.png").find("give the folder of the slices"), std::string::npos);
}

} // namespace
