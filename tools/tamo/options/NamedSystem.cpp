// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NamedSystem.h"

#include "OptionValues.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

namespace tamo::tool {

namespace {

struct Entry {
    char const* name;
    // Another way to write it, or nothing.
    char const* alias;
    Neighborhood::NHConfig config;
};

constexpr std::array<Entry, 6> kSystems{{{"N6", "6", Neighborhood::N6},
                                         {"N8", "", Neighborhood::N8},
                                         {"N12", "", Neighborhood::N12},
                                         {"N14I", "", Neighborhood::N14I},
                                         {"N14II", "", Neighborhood::N14II},
                                         {"N26", "26", Neighborhood::N26}}};

std::string upperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

} // namespace

std::string systemNames() {
    std::vector<std::string> names;
    names.reserve(kSystems.size());
    for (Entry const& system : kSystems) {
        std::string const alias = system.alias;
        names.push_back(system.name + (alias.empty() ? "" : " (or " + alias + ")"));
    }
    return alternatives(names);
}

std::optional<NamedSystem> findSystem(std::string const& name) {
    if (name.empty()) {
        return {};
    }
    auto const* const system =
        std::find_if(kSystems.begin(), kSystems.end(), [&name, upper = upperCase(name)](Entry const& candidate) {
            return candidate.name == upper || candidate.alias == name;
        });
    return system == kSystems.end() ? std::nullopt : std::optional(NamedSystem{system->name, system->config});
}

} // namespace tamo::tool
