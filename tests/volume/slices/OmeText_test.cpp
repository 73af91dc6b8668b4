// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/OmeText.h"

#include "volume/Error.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::Error;
using tamo::volume::OmeImage;
using tamo::volume::pagesOf;
using tamo::volume::parseOmeText;

using Pages = std::vector<std::int64_t>;

// A document of an image of 5 x 4 pixels, 3 slices, 2 channels and 2 frames.
std::string document(std::string const& attributes, std::string const& data, std::string const& root = "") {
    return "<OME" + root + "><Image ID='I' Name='N'><Pixels SizeX='5' SizeY='4' SizeZ='3' SizeC='2' SizeT='2' " +
           attributes + ">" + data + "</Pixels></Image></OME>";
}

OmeImage parse(std::string const& data, std::string const& order = "XYZCT", std::string const& root = "") {
    return parseOmeText(document("DimensionOrder='" + order + "'", data, root), "folder/this.tif").value().at(0);
}

std::string refusal(OmeImage const& image, std::int64_t pages) {
    try {
        static_cast<void>(pagesOf(image, 0, 0, pages, "a.tif"));
    } catch (Error const& error) {
        return error.reason();
    }
    return {};
}

TEST(OmeText, StatesSizesAndSpacing) {
    auto const images = parseOmeText(document("DimensionOrder='XYCZT' PhysicalSizeX='2' PhysicalSizeY='3' "
                                              "PhysicalSizeYUnit='nm' PhysicalSizeZ='4' PhysicalSizeZUnit='mm'",
                                              ""),
                                     "a.tif");
    ASSERT_TRUE(images);
    OmeImage const& image = images->at(0);
    EXPECT_EQ(image.id + image.name, "IN");
    EXPECT_EQ(image.width, 5);
    EXPECT_EQ(image.height, 4);
    EXPECT_EQ(image.slices, 3);
    EXPECT_EQ(image.channels, 2);
    EXPECT_EQ(image.frames, 2);
    EXPECT_EQ(image.order, "CZT");
    EXPECT_DOUBLE_EQ(image.spacing[0].value(), 2e-3);
    EXPECT_DOUBLE_EQ(image.spacing[1].value(), 3e-6);
    EXPECT_DOUBLE_EQ(image.spacing[2].value(), 4);
    EXPECT_EQ(image.unit, "\xC2\xB5m");
}

TEST(OmeText, DoesNotKnowSpacingInUnitsThatAreNotOfLength) {
    auto const images =
        parseOmeText(document("DimensionOrder='XYCZT' PhysicalSizeX='2' PhysicalSizeXUnit='pixel'", ""), "a.tif");
    EXPECT_FALSE(images->at(0).spacing[0]);
    EXPECT_FALSE(images->at(0).spacing[1]);
}

TEST(OmeText, IsNoOtherText) {
    for (char const* const text : {"", "ImageJ=1.53", "<a>", "<<<", "<Image><OME/></Image>"}) {
        EXPECT_FALSE(parseOmeText(text, "a.tif")) << text;
    }
}

TEST(OmeText, ThatIsDamagedIsRefusedWhereverItEnds) {
    std::string const whole = document("DimensionOrder='XYCZT'", "<TiffData IFD='0'/>");
    for (std::size_t length = 6; length < whole.size(); ++length) {
        EXPECT_THROW(parseOmeText(whole.substr(0, length), "a.tif"), Error) << whole.substr(0, length);
    }
    for (char const* const order : {"", "XYZ", "ZYXCT", "XYZCC", "XYZCTT"}) {
        EXPECT_THROW(parse("", order), Error) << order;
    }
    for (char const* const number : {"-1", "x", "", "1.5", "99999999999"}) {
        EXPECT_THROW(parse("<TiffData IFD='" + std::string(number) + "'/>"), Error) << number;
    }
}

TEST(OmePages, FollowTheOrderOfTheAxes) {
    EXPECT_EQ(pagesOf(parse("", "XYZCT"), 1, 0, 12, "a"), (Pages{3, 4, 5}));
    EXPECT_EQ(pagesOf(parse("", "XYZTC"), 1, 0, 12, "a"), (Pages{6, 7, 8}));
    EXPECT_EQ(pagesOf(parse("", "XYCZT"), 1, 1, 12, "a"), (Pages{7, 9, 11}));
    EXPECT_EQ(pagesOf(parse("", "XYCTZ"), 1, 1, 12, "a"), (Pages{3, 7, 11}));
    EXPECT_EQ(pagesOf(parse("<TiffData/>", "XYTZC"), 0, 1, 12, "a"), (Pages{1, 3, 5}));
}

TEST(OmePages, AreThoseThatTheDataName) {
    OmeImage const image = parse("<TiffData FirstZ='2' IFD='0'/><TiffData FirstZ='0' IFD='5' PlaneCount='2'/>"
                                 "<TiffData FirstC='1' IFD='8' PlaneCount='3'/>");
    EXPECT_EQ(pagesOf(image, 0, 0, 12, "a"), (Pages{5, 6, 0}));
    EXPECT_EQ(pagesOf(image, 1, 0, 12, "a"), (Pages{8, 9, 10}));
    EXPECT_THROW(pagesOf(image, 0, 1, 12, "a"), Error);
    EXPECT_THROW(pagesOf(image, 1, 0, 10, "a"), Error);
}

TEST(OmePages, ThatTheFileDoesNotHaveAreRefused) {
    EXPECT_EQ(refusal(parse(""), 3), "");
    EXPECT_NE(refusal(parse(""), 2), "");
    EXPECT_NE(refusal(parse("<TiffData FirstZ='3'/>"), 12), "");
    EXPECT_NE(refusal(parse("<TiffData IFD='2147483647' PlaneCount='2147483647'/>"), 12), "");
}

TEST(OmePages, InOtherFilesAreRefusedByTheirNames) {
    std::string const other = "<TiffData><UUID FileName='other.tif'>urn:2</UUID></TiffData>";
    EXPECT_NE(refusal(parse(other), 12).find("\"other.tif\""), std::string::npos);
    EXPECT_NE(refusal(parse(other, "XYZCT", " UUID='urn:1'"), 12).find("several files"), std::string::npos);
    EXPECT_THROW(parseOmeText("<OME><BinaryOnly MetadataFile='a.ome'/></OME>", "a.tif"), Error);
}

TEST(OmePages, OfTheFileItselfAreKnownByNameOrUuid) {
    std::string const own = "<TiffData><UUID FileName='this.tif'>urn:2</UUID></TiffData>";
    EXPECT_EQ(refusal(parse(own), 12), "");
    std::string const renamed = "<TiffData><UUID FileName='before.tif'>urn:2</UUID></TiffData>";
    EXPECT_EQ(refusal(parse(renamed, "XYZCT", " UUID='urn:2'"), 12), "");
}

} // namespace
