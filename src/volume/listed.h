// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

namespace tamo::volume {

/// Returns the first `most` of `count` names, as "a, b and 3 more"; `nameOf(i)` gives the i-th. Empty for none.
template <typename NameOf> std::string listed(std::size_t count, std::size_t most, NameOf const& nameOf) {
    std::string list;
    for (std::size_t i = 0; i < std::min(count, most); ++i) {
        list += (i > 0 ? ", " : "") + std::string(nameOf(i));
    }
    return list + (count > most ? " and " + std::to_string(count - most) + " more" : "");
}

} // namespace tamo::volume
