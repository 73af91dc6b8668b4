// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/TiffFiles.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

namespace fs = std::filesystem;
using tamo::volume::Size3;
using tamo::volume::Volume;
using tamo::volume::VolumeSource;

class TiffFile : public testing::Test {
  protected:
    // Pages whose pixels are their numbers.
    void writePages(int pages, std::string const& description, std::uint16_t photometric = PHOTOMETRIC_MINISBLACK,
                    float resolution = 0) const {
        TiffWriter writer(_path, "w");
        for (int page = 0; page < pages; ++page) {
            TiffOptions options;
            options.description = page == 0 ? description : "";
            options.photometric = photometric;
            options.resolutionX = resolution;
            options.resolutionY = resolution;
            options.resolutionUnit = RESUNIT_INCH;
            writer.addPage({5, 4, 8, 1, std::vector<unsigned char>(20, static_cast<unsigned char>(page))}, options);
        }
    }
    [[nodiscard]] VolumeSource source(std::optional<int> channel = {}, std::optional<int> frame = {}) const {
        VolumeSource source = sourceOf(_path);
        source.channel = channel;
        source.frame = frame;
        return source;
    }
    // The numbers of the pages that are the slices.
    [[nodiscard]] static std::vector<int> slicesOf(VolumeSource const& source) {
        Volume const volume = readWhole(source);
        std::vector<int> pages;
        for (int z = 0; z < volume.size()[2]; ++z) {
            pages.push_back(static_cast<int>(valueAt(volume, 4, 3, z)));
        }
        return pages;
    }
    [[nodiscard]] bool isRefusedWith(VolumeSource const& what, std::string const& text) const {
        return refusalOf(what).find(text) != std::string::npos;
    }

    TemporaryFolder _folder;
    fs::path _path = _folder / "a.tif";
};

using Pages = std::vector<int>;

TEST_F(TiffFile, TakesChannelsAndFramesOfImageJApart) {
    writePages(12, "ImageJ=1.53t\nimages=12\nchannels=2\nslices=3\nframes=2\nhyperstack=true\n");
    EXPECT_EQ(slicesOf(source(0, 0)), (Pages{0, 2, 4}));
    EXPECT_EQ(slicesOf(source(1, 0)), (Pages{1, 3, 5}));
    EXPECT_EQ(slicesOf(source(0, 1)), (Pages{6, 8, 10}));
    EXPECT_EQ(slicesOf(source(1, 1)), (Pages{7, 9, 11}));
    EXPECT_TRUE(isRefusedWith(source({}, 0), "found 2 channels; choose one with --channel 0 or 1"));
    EXPECT_TRUE(isRefusedWith(source(0), "found 2 frames; choose one with --frame 0 or 1"));
    EXPECT_TRUE(isRefusedWith(source(2, 0), "expected a channel 2"));
    auto const header = readWhole(source(1, 0)).header;
    EXPECT_EQ(header.channels, 2);
    EXPECT_EQ(header.channel, 1);
    EXPECT_EQ(header.frames, 2);
    EXPECT_EQ(header.frame, 0);
}

TEST_F(TiffFile, OfImageJWithOtherThanTheStatedPagesIsRefused) {
    writePages(5, "ImageJ=1.53t\nimages=6\nslices=6\n");
    EXPECT_TRUE(isRefusedWith(source(), "expected 6 pages"));
    writePages(1, "ImageJ=1.53t\nimages=6\nslices=6\n");
    EXPECT_TRUE(isRefusedWith(source(), "expected 6 images"));
}

TEST_F(TiffFile, TakesChannelsApartWhereImagesHaveNoPages) {
    TestPicture all{5, 4, 8, 1, {}};
    for (int image = 0; image < 12; ++image) {
        all.bytes.insert(all.bytes.end(), 20, static_cast<unsigned char>(image));
    }
    TiffOptions options;
    options.description = "ImageJ=1.53t\nimages=12\nchannels=2\nslices=3\nframes=2\n";
    options.photometric = PHOTOMETRIC_MINISBLACK;
    writeFile(_path, pageWithOpenEnd(all, options, false));
    EXPECT_EQ(slicesOf(source(1, 1)), (Pages{7, 9, 11}));
    options.photometric = PHOTOMETRIC_MINISWHITE;
    writeFile(_path, pageWithOpenEnd(all, options, false));
    EXPECT_EQ(slicesOf(source(1, 1)), (Pages{248, 246, 244}));
}

// Holes of the file take no room on the disk.
TEST_F(TiffFile, ReadsImagesThatStandFarBeyondWhatADirectoryCanName) {
    constexpr int kSide = 1024;
    constexpr std::streamoff kImages = 2100;
    TiffOptions options;
    options.description = "ImageJ=1.53t\nimages=2100\nslices=2100\n";
    TestPicture const first{kSide, kSide, 16, 1, std::vector<unsigned char>(2 * kSide * kSide)};
    std::string const page = pageWithOpenEnd(first, options, true);
    writeFile(_path, page);
    std::streamoff const end = static_cast<std::streamoff>(page.size()) + (kImages - 1) * 2 * kSide * kSide;
    ASSERT_GT(end, std::streamoff{1} << 32);
    std::fstream(_path, std::ios::in | std::ios::out | std::ios::binary).seekp(end - 4) << std::string("\0\1\2\3", 4);
    auto const file = tamo::volume::openVolume(source(), {});
    EXPECT_EQ(file->header().size, (Size3{kSide, kSide, 2100}));
    Volume const last = file->read({{kSide - 3, kSide - 1, 2098}, {kSide - 1, kSide - 1, 2099}}, {});
    EXPECT_EQ(valueAt(last, 0, 0, 1), 0);
    EXPECT_EQ(valueAt(last, 1, 0, 1), 0x0001);
    EXPECT_EQ(valueAt(last, 2, 0, 1), 0x0203);
    EXPECT_EQ(valueAt(last, 2, 0, 0), 0);
    fs::resize_file(_path, static_cast<std::uintmax_t>(end - 1));
    EXPECT_TRUE(isRefusedWith(source(), "expected 2100 images"));
}

// An OME document of 3 slices and 2 channels in the pages' order, with more images behind it.
std::string document(std::string const& data, std::string const& width = "5", std::string const& more = "") {
    return "<OME><Image ID='I' Name='left'><Pixels DimensionOrder='XYCZT' SizeX='" + width +
           "' SizeY='4' SizeZ='3' SizeC='2' SizeT='1'>" + data + "</Pixels></Image>" + more + "</OME>";
}

TEST_F(TiffFile, TakesChannelsOfOmeApart) {
    writePages(6, document("<TiffData/>"));
    EXPECT_EQ(slicesOf(source(0)), (Pages{0, 2, 4}));
    EXPECT_EQ(slicesOf(source(1)), (Pages{1, 3, 5}));
    EXPECT_TRUE(isRefusedWith(source(), "choose one with --channel 0 or 1"));
    writePages(6, document("<TiffData FirstC='1' IFD='3'/><TiffData FirstC='1' FirstZ='1' IFD='2'/>"
                           "<TiffData FirstC='1' FirstZ='2' IFD='5'/>"));
    EXPECT_EQ(slicesOf(source(1)), (Pages{3, 2, 5}));
    EXPECT_TRUE(isRefusedWith(source(0), "found none for slice 0"));
}

TEST_F(TiffFile, OfOmeWithoutAllPagesIsRefused) {
    writePages(5, document("<TiffData/>"));
    EXPECT_TRUE(isRefusedWith(source(1), "found none for slice 2"));
    writePages(6, document("<TiffData><UUID FileName='b.tif'/></TiffData>"));
    EXPECT_TRUE(isRefusedWith(source(1), "spread over several files"));
    writePages(6, document("<TiffData/>", "6"));
    EXPECT_TRUE(isRefusedWith(source(1), "expected slices of 6 x 4"));
}

TEST_F(TiffFile, ListsTheImagesOfOmeAsSeries) {
    writePages(8, document("<TiffData IFD='0' PlaneCount='6'/>", "5",
                           "<Image ID='J' Name='right'><Pixels DimensionOrder='XYZCT' SizeX='5' SizeY='4' SizeZ='2' "
                           "SizeC='1' SizeT='1'><TiffData IFD='6' PlaneCount='2'/></Pixels></Image>"));
    EXPECT_TRUE(isRefusedWith(source(), "0 \"left\" (3 slices), 1 \"right\" (2 slices)"));
    VolumeSource right = source();
    right.series = "1";
    EXPECT_EQ(slicesOf(right), (Pages{6, 7}));
    EXPECT_EQ(readWhole(right).header.series.size(), 2U);
}

TEST_F(TiffFile, ReadsImagesOfSeveralSizesOfOme) {
    {
        TiffWriter writer(_path, "w");
        TiffOptions options;
        options.description = document("<TiffData IFD='0' PlaneCount='6'/>", "5",
                                       "<Image ID='J'><Pixels DimensionOrder='XYZCT' SizeX='3' SizeY='2' SizeZ='2' "
                                       "SizeC='1' SizeT='1'><TiffData IFD='6' PlaneCount='2'/></Pixels></Image>");
        for (int page = 0; page < 8; ++page, options.description.clear()) {
            bool const isSmall = page > 5;
            writer.addPage({isSmall ? 3 : 5, isSmall ? 2 : 4, 8, 1,
                            std::vector<unsigned char>(isSmall ? 6 : 20, static_cast<unsigned char>(page))},
                           options);
        }
    }
    VolumeSource small = source();
    small.series = "1";
    Volume const volume = readWhole(small);
    EXPECT_EQ(volume.size(), (Size3{3, 2, 2}));
    EXPECT_EQ(valueAt(volume, 2, 1, 1), 7);
    VolumeSource large = source(1);
    large.series = "0";
    EXPECT_EQ(slicesOf(large), (Pages{1, 3, 5}));
}

TEST_F(TiffFile, TakesFramesOfAShapeApart) {
    writePages(6, "{\"shape\": [2, 3, 4, 5]}");
    EXPECT_TRUE(isRefusedWith(source(), "found 2 frames"));
    EXPECT_EQ(slicesOf(source({}, 1)), (Pages{3, 4, 5}));
    writePages(6, "{\"shape\": [3, 2, 4, 5], \"axes\": \"ZCYX\"}");
    EXPECT_EQ(slicesOf(source(1)), (Pages{1, 3, 5}));
    writePages(6, "{\"shape\": [6, 4, 5]}");
    EXPECT_EQ(slicesOf(source()), (Pages{0, 1, 2, 3, 4, 5}));
    writePages(6, "{\"shape\": [4, 5]}");
    EXPECT_EQ(slicesOf(source()), (Pages{0, 1, 2, 3, 4, 5}));
    writePages(6, "{\"shape\": [3, 4, 5]}");
    EXPECT_TRUE(isRefusedWith(source(), "expected 3 pages, as the shape in its description says, found 6"));
}

TEST_F(TiffFile, DoesNotTrustResolutionsWithoutADescription) {
    writePages(3, "a page for the printer", PHOTOMETRIC_MINISBLACK, 300);
    auto const header = readWhole(source()).header;
    EXPECT_FALSE(header.geometry.isSpacingKnown);
    EXPECT_EQ(header.geometry.spacing, (tamo::Vector3{1, 1, 1}));
    EXPECT_TRUE(header.notes.empty());
}

TEST_F(TiffFile, AssumesASpacingThatIsStatedInPartWithANote) {
    writePages(3, "ImageJ=1.53t\nimages=3\nunit=mm\n", PHOTOMETRIC_MINISBLACK, 4);
    auto const header = readWhole(source()).header;
    EXPECT_FALSE(header.geometry.isSpacingKnown);
    EXPECT_EQ(header.geometry.spacing, (tamo::Vector3{1, 1, 1}));
    EXPECT_EQ(header.notes.size(), 1U);
}

TEST_F(TiffFile, InvertsWhereZeroIsWhiteWithANote) {
    writePages(3, "", PHOTOMETRIC_MINISWHITE);
    EXPECT_EQ(slicesOf(source()), (Pages{255, 254, 253}));
    EXPECT_EQ(readWhole(source()).header.notes.size(), 1U);
}

TEST_F(TiffFile, OfOnePageIsNoVolume) {
    writePages(1, "");
    EXPECT_TRUE(isRefusedWith(source(), "3-D"));
}

} // namespace
