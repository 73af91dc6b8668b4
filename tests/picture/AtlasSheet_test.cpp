// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/AtlasSheet.h"
#include "picture/OffscreenContext.h"
#include "picture/SurfacePicture.h"

#include <tamo/surface/TAMO.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using tamo::picture::AtlasSheet;
using tamo::picture::Picture;
using tamo::picture::PictureSize;

constexpr int kTile = 120;

// The share of the pixels of a tile, counted from the upper left, that show the outward side of a polygon.
double warmShare(Picture const& picture, int column, int row) {
    int warm = 0;
    for (int i = 0; i < kTile * kTile; ++i) {
        int const x = column * kTile + i % kTile;
        int const y = picture.size.height - 1 - row * kTile - i / kTile;
        auto const first = static_cast<std::size_t>(3 * (y * picture.size.width + x));
        warm += picture.pixels[first] > picture.pixels[first + 2] + 60 ? 1 : 0;
    }
    return static_cast<double>(warm) / (kTile * kTile);
}

Picture draw(std::vector<AtlasSheet::Tile> const& tiles, std::size_t columns, PictureSize size) {
    tamo::picture::OffscreenContext const context(size.width, size.height);
    AtlasSheet const sheet(tiles, columns, {156, 10}, size, /*samples=*/1);
    return tamo::picture::drawSurface({sheet.displayList()}, sheet.camera(), size, /*samples=*/1, [](double) {});
}

TEST(AtlasSheet, PutsTilesRowByRowFromTheUpperLeft) {
    GLObjectList list;
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    // Corner 2 is behind its polygon as seen from here; in configuration 0 there is none.
    std::vector<AtlasSheet::Tile> tiles(3, {"N14II", 0, list[0]});
    tiles.push_back({"N14II", 4, list[4]});
    Picture const picture = draw(tiles, 2, {2 * kTile, 2 * kTile});
    EXPECT_EQ(warmShare(picture, 0, 0), 0);
    EXPECT_EQ(warmShare(picture, 1, 0), 0);
    EXPECT_EQ(warmShare(picture, 0, 1), 0);
    EXPECT_GT(warmShare(picture, 1, 1), 0.005);
}

TEST(AtlasSheet, FitsAllTilesWhateverTheShapeOfThePicture) {
    GLObjectList list;
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    std::vector<AtlasSheet::Tile> const tiles(2, {"N14II", 4, list[4]});
    // Beside two tiles in a row there is nothing above and below them.
    Picture const picture = draw(tiles, 2, {2 * kTile, 3 * kTile});
    EXPECT_EQ(warmShare(picture, 0, 0), 0);
    EXPECT_GT(warmShare(picture, 0, 1), 0.005);
    EXPECT_NEAR(warmShare(picture, 1, 1), warmShare(picture, 0, 1), 0.001);
    EXPECT_EQ(warmShare(picture, 1, 2), 0);
}

} // namespace
