// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "AdjacencyNames.h"

#include "../terminal/UserError.h"

#include <tamo/TamoException.h>
#include <tamo/surface/TAMO.h>

#include <algorithm>
#include <array>

namespace tamo::tool {

namespace {

NamedSystem findSystem(std::string const& name, std::string const& text) {
    std::array<NamedSystem, 6> const systems{{{"N6", Neighborhood::N6},
                                              {"N8", Neighborhood::N8},
                                              {"N12", Neighborhood::N12},
                                              {"N14I", Neighborhood::N14I},
                                              {"N14II", Neighborhood::N14II},
                                              {"N26", Neighborhood::N26}}};
    auto const* const system = std::find_if(systems.begin(), systems.end(),
                                            [&name](NamedSystem const& candidate) { return candidate.name == name; });
    if (system == systems.end()) {
        throw UserError("--neighborhood " + text + ": expected N6, N8, N12, N14I, N14II or N26, or several of them");
    }
    return *system;
}

} // namespace

std::vector<NamedSystem> parseSystems(std::string const& text) {
    std::vector<NamedSystem> systems;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t const end = std::min(text.find(',', start), text.size());
        systems.push_back(findSystem(text.substr(start, end - start), text));
        start = end + 1;
    }
    return systems;
}

void makeObjects(NamedSystem const& system, GLObjectList& objects) {
    try {
        GLObjectListForNeighborhood(system.config, objects);
    } catch (TamoException const& error) {
        throw UserError("--neighborhood " + system.name + ": " + error.what());
    }
}

} // namespace tamo::tool
