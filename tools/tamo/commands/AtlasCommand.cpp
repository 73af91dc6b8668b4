// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "AtlasCommand.h"

#include "OutputFile.h"
#include "PngEncoder.h"

#include "../terminal/Progress.h"

#include "picture/AtlasSheet.h"
#include "picture/OffscreenContext.h"
#include "picture/SurfacePicture.h"

#include <tamo/surface/TAMO.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <numeric>
#include <vector>

namespace tamo::tool {

namespace {

constexpr std::size_t kConfigurations = 256;
constexpr std::size_t kMostColumns = 16;

constexpr char const* kExamples = "\nExamples:\n"
                                  "  tamo atlas --adjacency N26 -o n26.png\n"
                                  "  tamo atlas --adjacency N6,N14I --configurations 3,129 -o pair.png\n";

// Puts the configurations, all of them where none is named, below each other, a tile for each system.
std::vector<picture::AtlasSheet::Tile> arrangeTiles(std::vector<int> configurations,
                                                    std::vector<NamedSystem> const& systems,
                                                    std::vector<GLObjectList> const& lists) {
    if (configurations.empty()) {
        configurations.resize(kConfigurations);
        std::iota(configurations.begin(), configurations.end(), 0);
    }
    std::vector<picture::AtlasSheet::Tile> tiles;
    for (int const configuration : configurations) {
        for (std::size_t i = 0; i < lists.size(); ++i) {
            tiles.push_back({systems[i].name, static_cast<unsigned int>(configuration),
                             lists[i][static_cast<std::size_t>(configuration)]});
        }
    }
    return tiles;
}

picture::Picture drawSheet(std::vector<picture::AtlasSheet::Tile> const& tiles, std::size_t columns, picture::View view,
                           picture::PictureSize size) {
    int const samples = picture::chooseSamples(size);
    picture::OffscreenContext const context(size.width * samples, size.height * samples);
    picture::AtlasSheet const sheet(tiles, columns, view, size, samples);
    Progress progress("drawing");
    return picture::drawSurface({sheet.displayList()}, sheet.camera(), size, samples, progress.callback());
}

} // namespace

AtlasCommand::AtlasCommand(CLI::App& program)
    : Command(program, "atlas", "Draw the cell configurations with their polygons into a PNG"), _output(options()),
      _adjacency(options(), "have a column each"), _configurations(options()),
      _picture(options(),
               {"2400x2400", "156,10", "Degrees, as of tamo render; 180 looks along the y axis, x leading right"}) {
    options().setFooter(kExamples);
}

void AtlasCommand::run() const {
    std::filesystem::path const output = _output.read();
    std::vector<NamedSystem> const systems = _adjacency.read();
    std::vector<int> const configurations = _configurations.read();
    if (configurations.empty() && systems.size() > 1) {
        _adjacency.refuse("a single system, or --configurations for several");
    }
    picture::PictureSize const size = _picture.readSize();
    picture::View const view = _picture.readView();

    OutputFile file(output);
    std::vector<GLObjectList> lists(systems.size());
    for (std::size_t i = 0; i < lists.size(); ++i) {
        GLObjectListForNeighborhood(systems[i].config, lists[i]);
    }
    std::vector<picture::AtlasSheet::Tile> const tiles = arrangeTiles(configurations, systems, lists);
    std::size_t const columns = lists.size() > 1 ? lists.size() : std::min(kMostColumns, tiles.size());
    file.write(encodePng(drawSheet(tiles, columns, view, size)));
    std::cout << "picture     " << output.string() << ", " << size.width << " x " << size.height << "\n";
}

std::string AtlasCommand::memoryMessage() const {
    return "not enough memory for this sheet; a smaller --size or fewer --configurations make a smaller one";
}

} // namespace tamo::tool
