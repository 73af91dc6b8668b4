// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/DisplayList.h"
#include "picture/OffscreenContext.h"
#include "picture/PictureError.h"
#include "picture/SurfacePicture.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <functional>

namespace {

using tamo::picture::Camera;
using tamo::picture::chooseSamples;
using tamo::picture::DisplayList;
using tamo::picture::drawSurface;
using tamo::picture::kMaxPictureSide;
using tamo::picture::Picture;

constexpr std::array<double, 16> kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
constexpr int kSide = 20;

void compileRectangle(DisplayList const& list, float left, float right, float height) {
    glNewList(list.name(), GL_COMPILE);
    glNormal3f(0, 0, 1);
    glRectf(left, -1, right, height);
    glEndList();
}

std::array<int, 3> pixelAt(Picture const& picture, int x, int y) {
    auto const first = static_cast<std::size_t>(3 * (y * picture.size.width + x));
    return {picture.pixels[first], picture.pixels[first + 1], picture.pixels[first + 2]};
}

class SurfacePicture : public testing::Test {
  protected:
    static constexpr int kSamples = 3;

    [[nodiscard]] static Picture draw(std::vector<unsigned int> const& lists) {
        return drawSurface(lists, Camera{kIdentity, kIdentity}, {kSide, kSide}, kSamples, [](double) {});
    }

    tamo::picture::OffscreenContext _context{kSide * kSamples, kSide* kSamples};
};

TEST_F(SurfacePicture, HoldsTheBottomRowFirstOnAGreyGround) {
    DisplayList const list;
    compileRectangle(list, -1, 0, 0);
    Picture const picture = draw({list.name()});
    auto const ground = pixelAt(picture, 15, 15);
    EXPECT_EQ(ground[0], ground[1]);
    EXPECT_EQ(ground[1], ground[2]);
    EXPECT_GT(pixelAt(picture, 5, 5)[0], pixelAt(picture, 5, 5)[2]);
    EXPECT_EQ(pixelAt(picture, 5, 15), ground);
    EXPECT_EQ(pixelAt(picture, 15, 5), ground);
}

TEST_F(SurfacePicture, MixesThePixelsOfAnEdge) {
    DisplayList const list;
    // A third of a pixel beyond the middle, which is a sample's width.
    compileRectangle(list, -1, 2.0F / kSide / 3, 1);
    Picture const picture = draw({list.name()});
    auto const ground = pixelAt(picture, 15, 10);
    auto const surface = pixelAt(picture, 5, 10);
    EXPECT_NEAR(pixelAt(picture, 10, 10)[2], (2 * ground[2] + surface[2]) / 3.0, 1);
}

TEST_F(SurfacePicture, DrawsAllListsAndTellsHowFarItIs) {
    DisplayList const left;
    DisplayList const right;
    compileRectangle(left, -1, 0, 1);
    compileRectangle(right, 0, 1, 1);
    std::vector<double> shares;
    Picture const picture = drawSurface({left.name(), right.name()}, Camera{kIdentity, kIdentity}, {kSide, kSide},
                                        kSamples, [&shares](double share) { shares.push_back(share); });
    EXPECT_EQ(pixelAt(picture, 5, 10), pixelAt(picture, 15, 10));
    EXPECT_EQ(shares, (std::vector<double>{0, 0.5, 1}));
}

TEST_F(SurfacePicture, RefusesWhatOpenGlReportsAsAnError) {
    glEnable(GL_TRIANGLES);
    EXPECT_THROW(static_cast<void>(draw({})), tamo::picture::PictureError);
    EXPECT_NO_THROW(static_cast<void>(draw({})));
}

TEST(Samples, AreFewerWhereThePictureIsLarge) {
    EXPECT_EQ(chooseSamples({1, 1}), 3);
    EXPECT_EQ(chooseSamples({kMaxPictureSide / 3, 10}), 3);
    EXPECT_EQ(chooseSamples({kMaxPictureSide / 3 + 1, 10}), 2);
    EXPECT_EQ(chooseSamples({10, kMaxPictureSide / 2 + 1}), 1);
    EXPECT_EQ(chooseSamples({kMaxPictureSide, kMaxPictureSide}), 1);
}

} // namespace
