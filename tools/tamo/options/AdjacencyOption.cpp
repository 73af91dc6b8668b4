// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "AdjacencyOption.h"

#include "../terminal/UsageError.h"

#include <algorithm>

namespace tamo::tool {

AdjacencyOption::AdjacencyOption(OptionList const& options, std::string const& several) {
    options.add("--adjacency", _text,
                "Adjacency system, in any case: " + systemNames() + "; several, with commas between them, " + several,
                "NAME,...", OptionList::Value::HasDefault);
}

std::vector<NamedSystem> AdjacencyOption::read() const {
    std::vector<NamedSystem> systems;
    std::size_t start = 0;
    while (start <= _text.size()) {
        std::size_t const end = std::min(_text.find(',', start), _text.size());
        auto const system = findSystem(_text.substr(start, end - start));
        if (!system) {
            refuse(systemNames() + ", or several of them with commas between");
        }
        systems.push_back(*system);
        start = end + 1;
    }
    return systems;
}

void AdjacencyOption::refuse(std::string const& expected) const {
    throw UsageError("--adjacency " + _text + ": expected " + expected);
}

} // namespace tamo::tool
