// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/PictureFiles.h"
#include "volume/support/readPicture.h"

#include <gtest/gtest.h>

#include <chrono>

namespace {

namespace fs = std::filesystem;

class JpegPicture : public testing::Test {
  protected:
    TemporaryFolder _folder;
    fs::path _path = _folder / "a.jpg";
};

// Steps of 1 from pixel to pixel lose next to nothing.
TestPicture smoothPicture() {
    TestPicture picture = makePicture(40, 33);
    for (std::size_t i = 0; i < picture.bytes.size(); ++i) {
        picture.bytes[i] = static_cast<unsigned char>(i % 40 + 3 * (i / 40));
    }
    return picture;
}

TEST_F(JpegPicture, HasThePixels) {
    TestPicture const picture = smoothPicture();
    for (bool const isProgressive : {false, true}) {
        writeJpeg(_path, picture, {/*quality=*/100, isProgressive});
        std::vector<unsigned char> const pixels = pixelsOf(_path);
        ASSERT_EQ(pixels.size(), picture.bytes.size());
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            ASSERT_NEAR(pixels[i], picture.bytes[i], 1) << i;
        }
    }
}

TEST_F(JpegPicture, ThatClaimsMorePixelsThanItsBytesCanHoldIsRefusedAtOnce) {
    writeJpeg(_path, smoothPicture());
    std::string bytes = readFile(_path);
    std::size_t const frame = bytes.find("\xFF\xC0");
    ASSERT_NE(frame, std::string::npos);
    bytes.replace(frame + 5, 4, "\xFD\xE8\xFD\xE8");
    writeFile(_path, bytes);
    EXPECT_NE(pictureRefusal(_path).find("65000 x 65000 pixels"), std::string::npos);
}

// Each scan goes over the whole picture in a few bytes.
TEST_F(JpegPicture, ThatGoesOverItsPixelsWithoutEndIsRefused) {
    writeJpeg(_path, smoothPicture(), {/*quality=*/100, /*isProgressive=*/true});
    std::string bytes = readFile(_path);
    std::size_t const last = bytes.rfind("\xFF\xDA");
    std::string const scan = bytes.substr(last, bytes.size() - 2 - last);
    std::string const end = bytes.substr(bytes.size() - 2);
    bytes.resize(last);
    for (int i = 0; i < 5000; ++i) {
        bytes += scan;
    }
    writeFile(_path, bytes + end);
    auto const start = std::chrono::steady_clock::now();
    EXPECT_NE(pictureRefusal(_path), "");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

} // namespace
