// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "AtlasCommand.h"

#include "PictureFile.h"

#include "../terminal/Progress.h"

#include "picture/AtlasSheet.h"
#include "picture/OffscreenContext.h"
#include "picture/SurfacePicture.h"

#include <algorithm>
#include <iostream>
#include <numeric>

namespace tamo::tool {

namespace {

constexpr std::size_t kConfigurations = 256;
constexpr std::size_t kMostColumns = 16;

std::vector<picture::AtlasSheet::Tile> arrangeTiles(AtlasOptions const& options,
                                                    std::vector<GLObjectList> const& lists) {
    std::vector<int> configurations = options.configurations;
    if (configurations.empty()) {
        configurations.resize(kConfigurations);
        std::iota(configurations.begin(), configurations.end(), 0);
    }
    std::vector<picture::AtlasSheet::Tile> tiles;
    for (int const configuration : configurations) {
        for (std::size_t i = 0; i < lists.size(); ++i) {
            tiles.push_back({options.systems[i].name, static_cast<unsigned int>(configuration),
                             lists[i][static_cast<std::size_t>(configuration)]});
        }
    }
    return tiles;
}

} // namespace

void drawAtlas(AtlasOptions const& options) {
    int const samples = picture::chooseSamples(options.size);
    PictureFile file(options.output);
    std::vector<GLObjectList> lists(options.systems.size());
    for (std::size_t i = 0; i < lists.size(); ++i) {
        makeObjects(options.systems[i], lists[i]);
    }
    std::vector<picture::AtlasSheet::Tile> const tiles = arrangeTiles(options, lists);
    std::size_t const columns = lists.size() > 1 ? lists.size() : std::min(kMostColumns, tiles.size());

    picture::OffscreenContext const context(options.size.width * samples, options.size.height * samples);
    picture::AtlasSheet const sheet(tiles, columns, options.view, options.size, samples);
    picture::Picture const drawn = [&] {
        Progress progress("drawing");
        return picture::drawSurface({sheet.displayList()}, sheet.camera(), options.size, samples, progress.callback());
    }();
    file.write(drawn);
    std::cout << "picture     " << options.output.string() << ", " << options.size.width << " x " << options.size.height
              << "\n";
}

} // namespace tamo::tool
