// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/PictureFiles.h"
#include "volume/support/readPicture.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

class PngPicture : public testing::Test {
  protected:
    TemporaryFolder _folder;
    fs::path _path = _folder / "a.png";
};

TEST_F(PngPicture, HasThePixelsOfEveryDepthUnscaled) {
    for (int const bits : {1, 2, 4, 8, 16}) {
        for (bool const isInterlaced : {false, true}) {
            SCOPED_TRACE(std::to_string(bits) + (isInterlaced ? " interlaced" : ""));
            TestPicture const picture = makePicture(13, 11, bits);
            writePng(_path, picture, {isInterlaced});
            EXPECT_EQ(pixelsOf(_path), picture.bytes);
        }
    }
}

TEST_F(PngPicture, OfAPaletteOrWithATransparencyIsInColour) {
    writePng(_path, makePicture(8, 8), {/*isInterlaced=*/false, /*isPalette=*/true});
    EXPECT_NE(pictureRefusal(_path).find("colour image"), std::string::npos);
    writePng(_path, makePicture(8, 8, 8, 2));
    EXPECT_NE(pictureRefusal(_path).find("colour image"), std::string::npos);
}

TEST_F(PngPicture, ThatIsChangedAnywhereIsRefused) {
    writePng(_path, makePicture(13, 11));
    std::string const whole = readFile(_path);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string changed = whole;
        changed[at] = static_cast<char>(changed[at] ^ 0x10);
        writeFile(_path, changed);
        EXPECT_NE(pictureRefusal(_path), "") << at;
    }
}

TEST_F(PngPicture, ThatGoesOnBehindItsEndIsRefused) {
    writePng(_path, makePicture(13, 11));
    writeFile(_path, readFile(_path) + "x");
    EXPECT_NE(pictureRefusal(_path), "");
}

// The sides of a picture with a check sum that fits them, so that nothing but the file's size tells.
TEST_F(PngPicture, ThatClaimsMorePixelsThanItsBytesCanHoldIsRefusedAtOnce) {
    writePng(_path, makePicture(1, 1));
    std::string const huge = readFile(_path);
    constexpr std::size_t kHeaderAt = 12;
    std::string chunk = huge.substr(kHeaderAt, 17);
    chunk.replace(4, 8, std::string("\x00\x0F\x42\x40\x00\x0F\x42\x40", 8));
    std::uint32_t sum = 0xFFFFFFFF;
    for (char const c : chunk) {
        sum ^= static_cast<unsigned char>(c);
        for (int i = 0; i < 8; ++i) {
            sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
        }
    }
    writeFile(_path, huge.substr(0, kHeaderAt) + chunk + numberBytes(~sum, true) + huge.substr(kHeaderAt + 21));
    EXPECT_NE(pictureRefusal(_path).find("1000000 x 1000000 pixels"), std::string::npos) << pictureRefusal(_path);
}

} // namespace
