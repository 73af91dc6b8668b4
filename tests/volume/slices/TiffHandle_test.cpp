// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/TiffHandle.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"
#include "volume/support/TiffFiles.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using tamo::volume::Error;
using tamo::volume::TiffHandle;

class Tiff : public testing::Test {
  protected:
    void writePages(int pages) const {
        TiffWriter writer(_path, "wl");
        for (int page = 0; page < pages; ++page) {
            TiffOptions options;
            options.description = "page " + std::to_string(page);
            writer.addPage(makePicture(8, 8), options);
        }
    }

    TemporaryFolder _folder;
    fs::path _path = _folder / "a.tif";
};

TEST_F(Tiff, StandsAtOnePageAfterTheOther) {
    writePages(2);
    TiffHandle file(_path);
    EXPECT_EQ(file.fileBytes(), fs::file_size(_path));
    EXPECT_EQ(file.description(), "page 0");
    std::uint64_t const first = TIFFCurrentDirOffset(file.get());
    EXPECT_TRUE(file.advance());
    EXPECT_EQ(file.description(), "page 1");
    EXPECT_FALSE(file.advance());
    file.select(first);
    EXPECT_EQ(file.description(), "page 0");
}

TEST_F(Tiff, TagsThatThePageLacksHaveNoValue) {
    TiffWriter(_path, "w").addPage(makePicture(8, 8));
    TiffHandle const file(_path);
    EXPECT_EQ(file.description(), "");
    EXPECT_FALSE(file.tag<float>(TIFFTAG_XRESOLUTION));
    EXPECT_EQ(file.tag<std::uint32_t>(TIFFTAG_IMAGEWIDTH), 8U);
    EXPECT_EQ(file.tagOrDefault<std::uint16_t>(TIFFTAG_SAMPLESPERPIXEL), 1);
}

TEST_F(Tiff, PagesThatLeadInACircleAreRefused) {
    writePages(2);
    std::string bytes = readFile(_path);
    TiffHandle file(_path);
    std::string const first = numberBytes(static_cast<std::uint32_t>(TIFFCurrentDirOffset(file.get())));
    ASSERT_TRUE(file.advance());
    auto const second = static_cast<std::size_t>(TIFFCurrentDirOffset(file.get()));
    std::size_t const entries = static_cast<unsigned char>(bytes[second]);
    writeFile(_path, bytes.replace(second + 2 + 12 * entries, 4, first));
    TiffHandle circle(_path);
    EXPECT_TRUE(circle.advance());
    EXPECT_THROW(static_cast<void>(circle.advance()), Error);
}

TEST_F(Tiff, PlacesThatAreNoPageAreRefusedInSilence) {
    writePages(1);
    testing::internal::CaptureStderr();
    TiffHandle file(_path);
    for (std::uint64_t const place : {std::uint64_t{0}, std::uint64_t{3}, std::uint64_t{1} << 40, UINT64_MAX}) {
        EXPECT_THROW(file.select(place), Error) << place;
    }
    writeFile(_path, "no TIFF file");
    EXPECT_THROW(TiffHandle{_path}, Error);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
