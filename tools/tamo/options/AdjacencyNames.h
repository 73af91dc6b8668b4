// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/neighborhood/Neighborhood.h>
#include <tamo/objects/GLObjectList.h>

#include <string>
#include <vector>

namespace tamo::tool {

/// Is an adjacency system and the name that the command line calls it by.
struct NamedSystem {
    std::string name;
    Neighborhood::NHConfig config;
};

/// Reads names with commas between them, at least one. Throws `UserError` for a name that is none.
std::vector<NamedSystem> parseSystems(std::string const& text);

/// Fills `objects` with the polygons of the system. Throws `UserError` where the library refuses it.
void makeObjects(NamedSystem const& system, GLObjectList& objects);

} // namespace tamo::tool
