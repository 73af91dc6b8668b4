// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/TiffPage.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/TiffFiles.h"
#include "volume/support/readPicture.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

namespace fs = std::filesystem;
using tamo::volume::convertPixels;
using tamo::volume::ScalarType;
using tamo::volume::TiffPage;

class TiffPages : public testing::Test {
  protected:
    void write(TestPicture const& picture, TiffOptions const& options = {}, char const* mode = "w") const {
        TiffWriter(_path, mode).addPage(picture, options);
    }
    [[nodiscard]] std::string refusal() const { return pictureRefusal(_path); }

    TemporaryFolder _folder;
    fs::path _path = _folder / "a.tif";
};

TEST_F(TiffPages, OfFewBitsAreReadUnscaled) {
    for (int const bits : {1, 2, 4}) {
        TestPicture const picture = makePicture(13, 11, bits);
        for (int const order : {FILLORDER_MSB2LSB, FILLORDER_LSB2MSB}) {
            TiffOptions options;
            options.fillOrder = static_cast<std::uint16_t>(order);
            write(picture, options);
            EXPECT_EQ(pixelsOf(_path), picture.bytes) << bits << " " << order;
        }
    }
}

TEST_F(TiffPages, WhoseZeroIsWhiteAreInverted) {
    TiffOptions options;
    options.photometric = PHOTOMETRIC_MINISWHITE;
    for (int const bits : {1, 2, 4, 8, 16}) {
        TestPicture const picture = makePicture(13, 11, bits);
        write(picture, options);
        std::vector<unsigned char> const pixels = pixelsOf(_path);
        ASSERT_EQ(pixels.size(), picture.bytes.size());
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            ASSERT_EQ(pixels[i], (bits < 8 ? (1 << bits) - 1 : 255) - picture.bytes[i]) << bits;
        }
    }
    options.sampleFormat = SAMPLEFORMAT_INT;
    write(makePicture(13, 11), options);
    EXPECT_EQ(pixelsOf(_path), makePicture(13, 11).bytes);
}

TEST_F(TiffPages, HaveTheTypeOfTheirNumbers) {
    std::vector<std::tuple<int, int, ScalarType>> const types{
        {8, SAMPLEFORMAT_INT, ScalarType::Int8},        {8, SAMPLEFORMAT_VOID, ScalarType::UInt8},
        {16, SAMPLEFORMAT_INT, ScalarType::Int16},      {32, SAMPLEFORMAT_INT, ScalarType::Int32},
        {32, SAMPLEFORMAT_UINT, ScalarType::UInt32},    {64, SAMPLEFORMAT_UINT, ScalarType::UInt64},
        {64, SAMPLEFORMAT_INT, ScalarType::Int64},      {32, SAMPLEFORMAT_IEEEFP, ScalarType::Float32},
        {64, SAMPLEFORMAT_IEEEFP, ScalarType::Float64}, {16, SAMPLEFORMAT_IEEEFP, ScalarType::Float32}};
    for (auto const& [bits, format, type] : types) {
        TiffOptions options;
        options.sampleFormat = static_cast<std::uint16_t>(format);
        TestPicture picture{6, 5, bits, 1, std::vector<unsigned char>(static_cast<std::size_t>(30 * bits / 8))};
        write(picture, options, "wb");
        EXPECT_EQ(tamo::volume::openTiffPicture(_path)->type(), type) << bits << " " << format;
        EXPECT_EQ(refusal(), "");
    }
}

TEST_F(TiffPages, OfNumbersOfNoTypeAreRefused) {
    for (auto const& [bits, format] : std::vector<std::pair<int, int>>{{24, SAMPLEFORMAT_IEEEFP},
                                                                       {24, SAMPLEFORMAT_UINT},
                                                                       {32, SAMPLEFORMAT_COMPLEXINT},
                                                                       {64, SAMPLEFORMAT_COMPLEXIEEEFP}}) {
        TiffOptions options;
        options.sampleFormat = static_cast<std::uint16_t>(format);
        write({6, 5, bits, 1, std::vector<unsigned char>(static_cast<std::size_t>(30 * bits / 8))}, options);
        EXPECT_NE(refusal().find("found "), std::string::npos) << refusal();
    }
}

TEST_F(TiffPages, OfSeveralSlicesAreRefused) {
    TiffOptions options;
    options.depth = 3;
    write(makePicture(8, 8), options);
    EXPECT_NE(refusal().find("expected pages of one slice, found pages of 3"), std::string::npos) << refusal();
}

TEST_F(TiffPages, ThatAreToBeShownMirroredStayAsTheyAreWithANote) {
    TiffOptions options;
    options.orientation = ORIENTATION_BOTLEFT;
    write(makePicture(8, 8), options);
    EXPECT_EQ(pixelsOf(_path), makePicture(8, 8).bytes);
    EXPECT_NE(tamo::volume::openTiffPicture(_path)->note().find("turned or mirrored"), std::string::npos);
    write(makePicture(8, 8), {});
    EXPECT_EQ(tamo::volume::openTiffPicture(_path)->note(), "");
}

TEST_F(TiffPages, OfAPaletteAreInColour) {
    TiffOptions options;
    options.photometric = PHOTOMETRIC_PALETTE;
    write(makePicture(8, 8), options);
    EXPECT_NE(refusal().find("colour image"), std::string::npos);
}

TEST_F(TiffPages, AreReadUnderEveryCompression) {
    TestPicture const picture = makePicture(40, 33);
    for (int const compression : {COMPRESSION_NONE, COMPRESSION_LZW, COMPRESSION_ADOBE_DEFLATE, COMPRESSION_PACKBITS,
                                  COMPRESSION_LZMA, COMPRESSION_ZSTD}) {
        for (bool const isTiled : {false, true}) {
            TiffOptions options;
            options.compression = static_cast<std::uint16_t>(compression);
            options.isTiled = isTiled;
            write(picture, options);
            EXPECT_EQ(pixelsOf(_path), picture.bytes) << compression << " " << isTiled;
        }
    }
    TestPicture const lines = makePicture(40, 33, 1);
    for (int const compression : {COMPRESSION_CCITTFAX3, COMPRESSION_CCITTFAX4}) {
        TiffOptions options;
        options.compression = static_cast<std::uint16_t>(compression);
        write(lines, options);
        EXPECT_EQ(pixelsOf(_path), lines.bytes) << compression;
    }
}

TEST_F(TiffPages, OfJpegDataThatEndTooEarlyAreRefused) {
    TiffOptions options;
    options.compression = COMPRESSION_JPEG;
    write(makePicture(40, 32), options);
    EXPECT_EQ(refusal(), "");
    tamo::volume::TiffHandle const file(_path);
    std::string const end = "\xFF\xD9";
    std::size_t const at = TIFFGetStrileOffset(file.get(), 1) + TIFFGetStrileByteCount(file.get(), 1) / 2;
    writeFile(_path, readFile(_path).replace(at, 2, end));
    EXPECT_NE(refusal(), "");
}

TEST_F(TiffPages, WithTagsBehindTheEndOfTheFileAreRefused) {
    TiffOptions options;
    options.description = "ImageJ=1.53t";
    std::string page = pageWithOpenEnd(makePicture(8, 8), options, false);
    // The place of the description, the fifth tag.
    constexpr std::size_t kPlaceAt = 10 + 4 * 12 + 8;
    writeFile(_path, page.replace(kPlaceAt, 4, numberBytes<std::uint32_t>(100000)));
    EXPECT_NE(refusal(), "");
}

TEST_F(TiffPages, HalfFloatsKeepEveryValue) {
    TiffPage page;
    page.type = ScalarType::Float32;
    page.bits = 16;
    for (unsigned int half = 0; half < 0x10000; ++half) {
        auto const stored = static_cast<std::uint16_t>(half);
        float value = 0;
        convertPixels(page, reinterpret_cast<unsigned char const*>(&stored), 1,
                      reinterpret_cast<unsigned char*>(&value));
        // Sign, exponent and fraction as the format defines them, subnormal numbers with the exponent of 1.
        double const exponent = half / 1024 % 32;
        double const fraction = half % 1024 / 1024.0;
        double const size = exponent == 0 ? fraction * std::pow(2, -14) : (1 + fraction) * std::pow(2, exponent - 15);
        double const expected = exponent < 31 ? size : fraction == 0 ? INFINITY : NAN;
        ASSERT_TRUE(std::isnan(expected) ? std::isnan(value) : std::abs(value) == expected) << half;
        ASSERT_TRUE(std::isnan(expected) || std::signbit(value) == (half >= 0x8000)) << half;
    }
}

TEST_F(TiffPages, ThatClaimMoreThanTheFileCanHoldAreRefusedAtOnce) {
    TestPicture const picture = makePicture(8, 8);
    for (bool const isBigEndian : {false, true}) {
        std::string const page = pageWithOpenEnd(picture, {}, isBigEndian);
        // The values of the first two tags: width and height.
        for (std::size_t const at : {std::size_t{18}, std::size_t{30}}) {
            for (std::uint32_t const side : {0U, 9U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
                writeFile(_path, std::string(page).replace(at, 4, numberBytes(side, isBigEndian)));
                EXPECT_NE(refusal(), "") << at << " " << side;
            }
        }
    }
}

} // namespace
