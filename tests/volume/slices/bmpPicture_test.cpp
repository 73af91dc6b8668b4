// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/PictureFiles.h"
#include "volume/support/readPicture.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// Where fields of the header stand.
constexpr std::size_t kWidthAt = 18;
constexpr std::size_t kCompressionAt = 30;
constexpr std::size_t kColoursAt = 46;

class BmpPicture : public testing::Test {
  protected:
    // Changes 4 bytes of the file.
    void change(std::size_t at, std::uint32_t value) const {
        writeFile(_path, readFile(_path).replace(at, 4, numberBytes(value)));
    }

    TemporaryFolder _folder;
    fs::path _path = _folder / "a.bmp";
};

TEST_F(BmpPicture, HasTheGreysOfItsPalette) {
    for (int const bits : {1, 4, 8}) {
        for (BmpOptions const options :
             {BmpOptions{}, BmpOptions{true}, BmpOptions{false, true}, BmpOptions{false, false, 0, true}}) {
            TestPicture const picture = makePicture(13, 11, bits);
            writeBmp(_path, picture, options);
            std::vector<unsigned char> const pixels = pixelsOf(_path);
            ASSERT_EQ(pixels.size(), picture.bytes.size());
            int const most = (1 << bits) - 1;
            for (std::size_t i = 0; i < pixels.size(); ++i) {
                int const entry = options.isInverted ? most - picture.bytes[i] : picture.bytes[i];
                ASSERT_EQ(pixels[i], entry * 255 / most) << bits << " " << i;
            }
        }
    }
}

TEST_F(BmpPicture, WithAColourInItsPaletteIsInColour) {
    writeBmp(_path, makePicture(8, 8), {false, false, /*tint=*/-1});
    EXPECT_NE(pictureRefusal(_path).find("colour image"), std::string::npos);
}

TEST_F(BmpPicture, OfSeveralNumbersPerPixelIsInColour) {
    for (int const channels : {2, 3, 4}) {
        writeBmp(_path, makePicture(8, 8, 8, channels));
        EXPECT_NE(pictureRefusal(_path).find("colour image"), std::string::npos) << channels;
    }
}

TEST_F(BmpPicture, ThatIsCompressedIsRefusedInALineThatSaysSo) {
    writeBmp(_path, makePicture(8, 8));
    change(kCompressionAt, 1);
    EXPECT_NE(pictureRefusal(_path).find("compression 1"), std::string::npos);
}

TEST_F(BmpPicture, ThatNamesAColourThatItsPaletteLacksIsRefused) {
    writeBmp(_path, makePicture(20, 20));
    change(kColoursAt, 100);
    EXPECT_NE(pictureRefusal(_path).find("found 100 entries"), std::string::npos);
    change(kColoursAt, 257);
    EXPECT_NE(pictureRefusal(_path), "");
}

TEST_F(BmpPicture, OfSidesThatItsBytesDoNotFillIsRefused) {
    writeBmp(_path, makePicture(8, 8));
    for (std::uint32_t const side : {0U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        change(kWidthAt, side);
        EXPECT_NE(pictureRefusal(_path), "") << side;
    }
    change(kWidthAt, 8);
    for (std::uint32_t const side : {0U, 9U, 0x7FFFFFFFU, 0x80000000U}) {
        change(kWidthAt + 4, side);
        EXPECT_NE(pictureRefusal(_path), "") << side;
    }
}

} // namespace
