// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/OffscreenContext.h"
#include "picture/SurfaceLists.h"

#include "support/opengl/ReadPixels.h"

#include <tamo/geometry/GLPolygon.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using tamo::picture::SurfaceLists;

constexpr int kSide = 40;

// A square of 10 x 10 in the plane of the picture.
GLObject makeSquare() {
    auto polygon = std::make_unique<GLPolygon>(4U);
    polygon->vertex(0) = GLVec3f(0, 0, 0);
    polygon->vertex(1) = GLVec3f(10, 0, 0);
    polygon->vertex(2) = GLVec3f(10, 10, 0);
    polygon->vertex(3) = GLVec3f(0, 10, 0);
    GLObject object;
    object.push_back(polygon.release());
    return object;
}

class SurfaceListsTest : public testing::Test {
  protected:
    SurfaceListsTest() {
        glOrtho(0, kSide, 0, kSide, -1, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    }

    static void compile(SurfaceLists& lists, int squares, GLCoord3f const& offset) {
        GLObject square = makeSquare();
        lists.start();
        for (int i = 0; i < squares; ++i) {
            lists.fetch(square, offset);
        }
        lists.finish();
    }

    tamo::picture::OffscreenContext _context{kSide, kSide};
};

TEST_F(SurfaceListsTest, DrawTheSurfaceMovedByTheOrigin) {
    SurfaceLists lists(GLCoord3f(5, 10, 0), 1, [](double) {});
    compile(lists, 1, GLCoord3f(15, 10, 0));
    glCallList(lists.names().at(0));
    auto const pixels = tamo::test::readPixels(kSide, kSide);
    int differences = 0;
    for (int i = 0; i < kSide * kSide; ++i) {
        int const x = i % kSide;
        int const y = i / kSide;
        bool const isInside = x >= 20 && x < 30 && y >= 20 && y < 30;
        differences += (pixels[static_cast<std::size_t>(i)] != tamo::test::kBlack) == isInside ? 0 : 1;
    }
    EXPECT_EQ(differences, 0);
}

TEST_F(SurfaceListsTest, BeginAnotherListAfterSoManyPolygonsAndTellTheShare) {
    constexpr int kListPrimitives = 1 << 16;
    std::vector<double> shares;
    SurfaceLists lists(GLCoord3f(0, 0, 0), 4 * kListPrimitives, [&shares](double share) { shares.push_back(share); });
    compile(lists, 2 * kListPrimitives + 1, GLCoord3f(0, 0, 0));
    EXPECT_EQ(lists.names().size(), 3U);
    EXPECT_EQ(shares, (std::vector<double>{0.25, 0.5}));
    for (unsigned int const name : lists.names()) {
        EXPECT_EQ(glIsList(name), GL_TRUE);
    }
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(SurfaceListsTest, EndWithTheirOwner) {
    std::vector<unsigned int> names;
    {
        SurfaceLists lists(GLCoord3f(0, 0, 0), 1, [](double) {});
        compile(lists, 1, GLCoord3f(0, 0, 0));
        names = lists.names();
    }
    EXPECT_EQ(glIsList(names.at(0)), GL_FALSE);
}

} // namespace
