// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/Picture.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/TiffFiles.h"
#include "volume/support/readPicture.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using tamo::volume::PictureFormat;
using tamo::volume::pictureFormatOf;

// Writes a picture in the format of the path's ending.
void write(fs::path const& path, TestPicture const& picture) {
    switch (pictureFormatOf(path).value()) {
    case PictureFormat::Png:
        return writePng(path, picture);
    case PictureFormat::Jpeg:
        return writeJpeg(path, picture);
    case PictureFormat::Bmp:
        return writeBmp(path, picture);
    case PictureFormat::Tiff:
        TiffOptions options;
        options.photometric = picture.channels == 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK;
        return TiffWriter(path, "w").addPage(picture, options);
    }
}

class AnyPicture : public testing::TestWithParam<char const*> {
  protected:
    TemporaryFolder _folder;
    fs::path _path = _folder / (std::string("a.") + GetParam());
};

TEST_P(AnyPicture, GivesTheSamePixelsForAnyPartOfIt) {
    write(_path, makePicture(23, 21));
    std::vector<unsigned char> const whole = pixelsOf(_path);
    ASSERT_EQ(whole.size(), 23U * 21U);
    for (tamo::volume::Box const box : {tamo::volume::Box{{0, 0, 0}, {22, 0, 0}},
                                        {{0, 20, 0}, {22, 20, 0}},
                                        {{5, 6, 0}, {9, 19, 0}},
                                        {{22, 20, 0}, {22, 20, 0}}}) {
        auto const picture = openPicture(_path, pictureFormatOf(_path).value());
        std::vector<unsigned char> const part = pixelsOf(*picture, box);
        std::size_t at = 0;
        for (auto y = box.first[1]; y <= box.last[1]; ++y) {
            for (auto x = box.first[0]; x <= box.last[0]; ++x) {
                ASSERT_EQ(part.at(at++), whole[static_cast<std::size_t>(y * 23 + x)]) << x << " " << y;
            }
        }
    }
}

TEST_P(AnyPicture, InColourIsRefused) {
    write(_path, makePicture(8, 8, 8, 3));
    EXPECT_NE(pictureRefusal(_path).find("expected a volume of one scalar per voxel, found a colour image"),
              std::string::npos);
}

TEST_P(AnyPicture, IsRefusedWhereverItEnds) {
    write(_path, makePicture(23, 21));
    std::string const whole = readFile(_path);
    testing::internal::CaptureStderr();
    for (std::size_t bytes = 0; bytes < whole.size(); ++bytes) {
        writeFile(_path, whole.substr(0, bytes));
        ASSERT_NE(pictureRefusal(_path), "") << bytes << " of " << whole.size();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_P(AnyPicture, IsReadOrRefusedInSilenceWhateverByteIsChanged) {
    write(_path, makePicture(23, 21));
    std::string const whole = readFile(_path);
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (int const value : {0, 1, 0x7F, 0xFF}) {
            std::string changed = whole;
            changed[at] = static_cast<char>(value);
            writeFile(_path, changed);
            EXPECT_EQ(pictureRefusal(_path).find('\n'), std::string::npos);
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr(), "");
}

TEST_P(AnyPicture, ThatMayNotBeReadIsRefusedInALineThatSaysWhy) {
    EXPECT_NE(pictureRefusal(_path).find("No such file"), std::string::npos);
    write(_path, makePicture(8, 8));
    fs::permissions(_path, fs::perms::none);
    if (geteuid() != 0) {
        EXPECT_NE(pictureRefusal(_path).find("Permission denied"), std::string::npos);
    }
}

INSTANTIATE_TEST_SUITE_P(All, AnyPicture, testing::Values("png", "jpg", "bmp", "tif"),
                         [](auto const& instance) { return std::string(instance.param); });

TEST(PictureFormat, IsThatOfTheEndingInAnyCase) {
    EXPECT_EQ(pictureFormatOf("a/b.PNG"), PictureFormat::Png);
    EXPECT_EQ(pictureFormatOf("b.jpeg"), PictureFormat::Jpeg);
    EXPECT_EQ(pictureFormatOf("b.Jpg"), PictureFormat::Jpeg);
    EXPECT_EQ(pictureFormatOf("b.bmp"), PictureFormat::Bmp);
    EXPECT_EQ(pictureFormatOf("b.tif"), PictureFormat::Tiff);
    EXPECT_EQ(pictureFormatOf("b.ome.TIFF"), PictureFormat::Tiff);
    for (char const* const name : {"png", "a.png.txt", "a", ".png", ""}) {
        EXPECT_FALSE(pictureFormatOf(name)) << name;
    }
    EXPECT_STREQ(nameOf(PictureFormat::Jpeg), "JPEG");
}

} // namespace
