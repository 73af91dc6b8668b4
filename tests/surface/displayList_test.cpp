// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/opengl/ReadPixels.h"
#include "support/oracle/BlockShadow.h"

#include "picture/OffscreenContext.h"

#include <tamo/surface/GLPolygonConsumer.h>
#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

using namespace tamo::test;

// A direction of view, from the shape towards the eye, with the picture's two axes.
struct View {
    explicit View(GLVec3f direction) : back(direction) {
        back.normalize();
        GLVec3f const helper = std::abs(back.z) < 0.9F ? GLVec3f(0, 0, 1) : GLVec3f(0, 1, 0);
        right = helper.cross(back);
        right.normalize();
        up = back.cross(right);
    }
    GLVec3f right;
    GLVec3f up;
    GLVec3f back;
};

// A block of foreground voxels, compiled into a display list by a scan.
class DisplayList : public testing::Test {
  protected:
    static constexpr int kPictureSide = 640;
    static constexpr float kWorldSide = 160.0F;
    static constexpr std::array<float, 3> kBlock = {48, 64, 80};

    DisplayList() : context(kPictureSide, kPictureSide), name(glGenLists(1)) {
        glMatrixMode(GL_PROJECTION);
        glOrtho(-kWorldSide / 2, kWorldSide / 2, -kWorldSide / 2, kWorldSide / 2, -kWorldSide, kWorldSide);
        glMatrixMode(GL_MODELVIEW);
        glEnable(GL_DEPTH_TEST);
    }
    ~DisplayList() override {
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        glDeleteLists(name, 1);
    }

    // Compiles the block, sampled with `step`; its sides are `kBlock` voxels whatever the step.
    void compileBlock(unsigned int step) {
        unsigned char const voxel = 1;
        GLObjectList list;
        GLObjectListForNeighborhood(Neighborhood::N14II, list);
        GLPolygonConsumer consumer(static_cast<int>(name));
        auto const side = [](std::size_t axis) { return static_cast<int>(kBlock[axis]); };
        // Increments of 0 make a block of any size out of one voxel.
        ASSERT_TRUE(wrapGlobal(&voxel, {0, 0, 0}, step, {10, 20, 30}, {side(0), side(1), side(2)}, list, consumer));
        auto const half = [step](float length) { return (length - static_cast<float>(step)) / 2; };
        center = GLVec3f(10 + half(kBlock[0]), 20 + half(kBlock[1]), 30 + half(kBlock[2]));
    }

    void draw(View const& view) {
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        std::array<float, 16> const rotation = {view.right.x,
                                                view.up.x,
                                                view.back.x,
                                                0,
                                                view.right.y,
                                                view.up.y,
                                                view.back.y,
                                                0,
                                                view.right.z,
                                                view.up.z,
                                                view.back.z,
                                                0,
                                                0,
                                                0,
                                                0,
                                                1};
        glLoadMatrixf(rotation.data());
        glTranslatef(-center.x, -center.y, -center.z);
        glCallList(name);
        glFinish();
    }

    // Returns how many pixels are not background.
    [[nodiscard]] double coveredPixels() const {
        auto const pixels = readPixels(kPictureSide, kPictureSide);
        return static_cast<double>(
            std::count_if(pixels.begin(), pixels.end(), [](auto const& pixel) { return pixel != kBlack; }));
    }

    [[nodiscard]] Pixel middlePixel() const {
        return readPixels(kPictureSide, kPictureSide)[kPictureSide * kPictureSide / 2 + kPictureSide / 2];
    }

    // Returns how many pixels the block covers where it was sampled with `step`.
    static double projectedPixels(View const& view, unsigned int step) {
        double const pixelsPerVoxel = kPictureSide / static_cast<double>(kWorldSide);
        auto const corners = makeBlockCorners(kBlock, static_cast<float>(step));
        return computeShadowArea(corners, view.right, view.up) * pixelsPerVoxel * pixelsPerVoxel;
    }

    static std::vector<View> faceViews() {
        return {View({1, 0, 0}),  View({-1, 0, 0}), View({0, 1, 0}),
                View({0, -1, 0}), View({0, 0, 1}),  View({0, 0, -1})};
    }
    static std::vector<View> manyViews() {
        std::vector<View> views = faceViews();
        for (GLVec3f const& direction : {GLVec3f(1, 1, 1), GLVec3f(-1, 1, 1), GLVec3f(1, -1, 1), GLVec3f(1, 1, -1),
                                         GLVec3f(1, 0.3F, 0.2F), GLVec3f(-0.4F, -1, 0.1F), GLVec3f(0.1F, -0.5F, -1)}) {
            views.emplace_back(direction);
        }
        return views;
    }

    tamo::picture::OffscreenContext context;
    GLuint name;
    GLVec3f center;
};

TEST_F(DisplayList, TheBlockCoversItsProjectedArea) {
    for (unsigned int const step : {1U, 2U}) {
        compileBlock(step);
        for (View const& view : manyViews()) {
            draw(view);
            EXPECT_NEAR(coveredPixels() / projectedPixels(view, step), 1.0, 0.01)
                << "step " << step << " from " << view.back.x << ", " << view.back.y << ", " << view.back.z;
        }
    }
}

// With faces culled that turn away, a polygon wound the wrong way would show what lies behind it.
TEST_F(DisplayList, EveryPolygonTurnsItsFrontOutward) {
    compileBlock(2);
    for (View const& view : manyViews()) {
        glDisable(GL_CULL_FACE);
        draw(view);
        auto const all = readDepths(kPictureSide, kPictureSide);
        glEnable(GL_CULL_FACE);
        glCullFace(GL_BACK);
        draw(view);
        auto const culled = readDepths(kPictureSide, kPictureSide);
        std::size_t differing = 0;
        for (std::size_t i = 0; i < all.size(); ++i) {
            differing += culled[i] != all[i] ? 1 : 0;
        }
        // Polygons that are seen edge on may win or lose a pixel of the rim.
        EXPECT_LE(differing, 8U) << view.back.x << ", " << view.back.y << ", " << view.back.z;
    }
}

TEST_F(DisplayList, AScannedBlockTakesTheCurrentColour) {
    compileBlock(2);
    glColor3f(0.2F, 0.6F, 1.0F);
    draw(View({1, 2, 3}));
    for (auto const& pixel : readPixels(kPictureSide, kPictureSide)) {
        if (pixel != kBlack) {
            ASSERT_EQ(pixel, (Pixel{51, 153, 255}));
        }
    }
    EXPECT_GT(coveredPixels(), 0);
}

TEST_F(DisplayList, AnObjectOnItsOwnTakesItsPolygonsColours) {
    GLObject object;
    for (int i = 0; i < 2; ++i) {
        auto polygon = std::make_unique<GLPolygon>(4U);
        float const left = i == 0 ? -50.0F : 0.0F;
        polygon->vertex(0) = GLVec3f(left, -50, 0);
        polygon->vertex(1) = GLVec3f(left + 50, -50, 0);
        polygon->vertex(2) = GLVec3f(left + 50, 50, 0);
        polygon->vertex(3) = GLVec3f(left, 50, 0);
        polygon->color() = i == 0 ? GLVec3f(1, 0, 0) : GLVec3f(0, 1, 0);
        object.push_back(polygon.release());
    }
    GLPolygonConsumer consumer(static_cast<int>(name));
    consumer.start();
    consumer.fetch(object);
    consumer.finish();
    glColor3f(0, 0, 1);
    draw(View({0, 0, 1}));
    // The picture's right is the world's -x or +x; either way each half has one colour, on 200 x 400 pixels.
    auto const pixels = readPixels(kPictureSide, kPictureSide);
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), Pixel{255, 0, 0}), 200 * 400);
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), Pixel{0, 255, 0}), 200 * 400);
    EXPECT_EQ(coveredPixels(), 2 * 200 * 400);
}

// Lights the block with one white light from far away; the surface is white and matt.
class LitDisplayList : public DisplayList {
  protected:
    LitDisplayList() {
        std::array<float, 4> const white = {1, 1, 1, 1};
        std::array<float, 4> const black = {0, 0, 0, 1};
        glEnable(GL_LIGHTING);
        glEnable(GL_LIGHT0);
        glLightModelfv(GL_LIGHT_MODEL_AMBIENT, black.data());
        glLightfv(GL_LIGHT0, GL_AMBIENT, black.data());
        glLightfv(GL_LIGHT0, GL_DIFFUSE, white.data());
        glLightfv(GL_LIGHT0, GL_SPECULAR, black.data());
        glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, white.data());
        glShadeModel(GL_SMOOTH);
    }

    // Puts the light at an angle to the direction of view, the eye being at +z.
    static void tiltLight(double degrees) {
        double const angle = degrees * std::acos(-1.0) / 180;
        std::array<float, 4> const towards = {static_cast<float>(std::sin(angle)), 0,
                                              static_cast<float>(std::cos(angle)), 0};
        glLoadIdentity();
        glLightfv(GL_LIGHT0, GL_POSITION, towards.data());
    }
};

TEST_F(LitDisplayList, EachFaceFollowsTheCosineOfTheLightsAngle) {
    compileBlock(2);
    for (View const& view : faceViews()) {
        for (double const degrees : {0.0, 30.0, 60.0, 80.0, 100.0, 180.0}) {
            tiltLight(degrees);
            draw(view);
            double const cosine = std::max(0.0, std::cos(degrees * std::acos(-1.0) / 180));
            EXPECT_NEAR(middlePixel()[0], 255 * cosine, 2) << degrees << " degrees";
        }
    }
}

// One tone a face: the block's three visible faces, and nothing darker or brighter between them but the rims.
TEST_F(LitDisplayList, FacesAreEvenlyLit) {
    compileBlock(2);
    View const view({1, 2, 3});
    tiltLight(0);
    draw(view);
    auto const pixels = readPixels(kPictureSide, kPictureSide);
    double even = 0;
    for (float const cosine : {view.back.x, view.back.y, view.back.z}) {
        even += static_cast<double>(std::count_if(pixels.begin(), pixels.end(), [cosine](auto const& pixel) {
            return pixel != kBlack && std::abs(static_cast<float>(pixel[0]) - 255 * cosine) < 2;
        }));
    }
    EXPECT_GT(even / projectedPixels(view, 2), 0.95);
}

} // namespace
