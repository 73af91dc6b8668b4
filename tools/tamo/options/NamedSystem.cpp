// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NamedSystem.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace tamo::tool {

namespace {

// Returns the name as this program writes it.
std::string spelling(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return name == "6" || name == "26" ? "N" + name : name;
}

} // namespace

std::optional<NamedSystem> findSystem(std::string const& name) {
    static std::array<NamedSystem, 6> const kSystems{{{"N6", Neighborhood::N6},
                                                      {"N8", Neighborhood::N8},
                                                      {"N12", Neighborhood::N12},
                                                      {"N14I", Neighborhood::N14I},
                                                      {"N14II", Neighborhood::N14II},
                                                      {"N26", Neighborhood::N26}}};
    auto const* const system =
        std::find_if(kSystems.begin(), kSystems.end(),
                     [spelt = spelling(name)](NamedSystem const& candidate) { return candidate.name == spelt; });
    return system == kSystems.end() ? std::nullopt : std::optional(*system);
}

} // namespace tamo::tool
