// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/neighborhood/Neighborhood.h>

#include <optional>
#include <string>

namespace tamo::tool {

/// An adjacency system and the name that pictures and figures show.
struct NamedSystem {
    std::string name;
    Neighborhood::NHConfig config;
};

/// Returns the names of all systems, and the aliases beside them, as a sentence lists them.
std::string systemNames();

/// Returns the system of a name in either case, or of an alias; nothing where there is none.
std::optional<NamedSystem> findSystem(std::string const& name);

} // namespace tamo::tool
