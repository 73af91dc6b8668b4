// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/TiffStack.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"
#include "volume/support/TiffFiles.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using tamo::volume::Error;
using tamo::volume::findRun;
using tamo::volume::ImageJText;
using tamo::volume::listPages;
using tamo::volume::TiffHandle;
using tamo::volume::TiffRun;
using tamo::volume::TiffStack;

class TiffStacks : public testing::Test {
  protected:
    TemporaryFolder _folder;
    fs::path _path = _folder / "a.tif";
};

TEST_F(TiffStacks, LeaveOutReducedPagesAndMasks) {
    TiffOptions reduced;
    reduced.subfileType = FILETYPE_REDUCEDIMAGE;
    TiffOptions mask;
    mask.subfileType = FILETYPE_MASK;
    {
        TiffWriter writer(_path, "w");
        writer.addPage(makePicture(8, 8));
        writer.addPage(makePicture(4, 4, 8, 3), reduced);
        writer.addPage(makePicture(8, 8));
        writer.addPage(makePicture(8, 8, 1), mask);
    }
    TiffHandle file(_path);
    TiffStack const stack = listPages(file, {});
    EXPECT_EQ(stack.directories.size(), 4U);
    EXPECT_EQ(stack.slicePages(), (std::vector<std::uint64_t>{stack.directories[0], stack.directories[2]}));
    EXPECT_EQ(stack.page.width, 8);
}

TEST_F(TiffStacks, OfReducedPagesOnlyAreRefused) {
    TiffOptions reduced;
    reduced.subfileType = FILETYPE_REDUCEDIMAGE;
    TiffWriter(_path, "w").addPage(makePicture(8, 8), reduced);
    TiffHandle file(_path);
    EXPECT_THROW(listPages(file, {}), Error);
}

TEST_F(TiffStacks, OfPagesThatDifferAreRefused) {
    for (TestPicture const& other :
         {makePicture(8, 7), makePicture(7, 8), makePicture(8, 8, 16), makePicture(8, 8, 4)}) {
        {
            TiffWriter writer(_path, "w");
            writer.addPage(makePicture(8, 8));
            writer.addPage(other);
        }
        TiffHandle file(_path);
        EXPECT_THROW(listPages(file, {}), Error);
    }
}

TEST_F(TiffStacks, MayBeCancelled) {
    TiffWriter(_path, "w").addPage(makePicture(8, 8));
    TiffHandle file(_path);
    EXPECT_THROW(listPages(file, [](double) { return false; }), tamo::volume::Cancelled);
}

TEST_F(TiffStacks, RunOnBehindTheirOnlyPage) {
    for (bool const isBigEndian : {false, true}) {
        std::string const page = pageWithOpenEnd(makePicture(8, 6, 16), {}, isBigEndian);
        writeFile(_path, page + std::string(2 * 96, 'x'));
        TiffHandle const file(_path);
        TiffRun const run = findRun(file, currentPage(file), 3).value();
        EXPECT_EQ(run.start, page.size() - 96);
        EXPECT_EQ(run.imageBytes, 96U);
        EXPECT_EQ(run.isBigEndian, isBigEndian);
        EXPECT_FALSE(findRun(file, currentPage(file), 4));
        EXPECT_FALSE(findRun(file, currentPage(file), INT32_MAX));
    }
}

TEST_F(TiffStacks, DoNotRunOnBehindCompressedOrTiledPages) {
    TiffOptions compressed;
    compressed.compression = COMPRESSION_PACKBITS;
    TiffOptions tiled;
    tiled.isTiled = true;
    for (TiffOptions const& options : {compressed, tiled}) {
        TiffWriter(_path, "w").addPage(makePicture(8, 8), options);
        writeFile(_path, readFile(_path) + std::string(1000, 'x'));
        TiffHandle const file(_path);
        EXPECT_FALSE(findRun(file, currentPage(file), 2));
    }
}

TEST_F(TiffStacks, HaveTheSpacingOfTheirDescriptionsUnit) {
    TiffOptions options;
    options.resolutionX = 4;
    options.resolutionY = 2;
    options.resolutionUnit = RESUNIT_INCH;
    TiffWriter(_path, "w").addPage(makePicture(8, 8), options);
    TiffHandle const file(_path);
    ImageJText text;
    text.unit = "micron";
    auto const flat = spacingOf(file, text);
    EXPECT_DOUBLE_EQ(flat[0].value(), 0.25e-3);
    EXPECT_DOUBLE_EQ(flat[1].value(), 0.5e-3);
    EXPECT_FALSE(flat[2]);
    text.spacing = 3;
    EXPECT_DOUBLE_EQ(spacingOf(file, text)[2].value(), 3e-3);
    for (char const* const unit : {"", "pixel", "s"}) {
        text.unit = unit;
        EXPECT_FALSE(spacingOf(file, text)[0]) << unit;
        EXPECT_FALSE(spacingOf(file, text)[2]) << unit;
    }
}

} // namespace
