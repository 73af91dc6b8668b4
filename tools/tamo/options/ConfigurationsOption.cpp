// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ConfigurationsOption.h"

#include "OptionValues.h"

#include <algorithm>

namespace tamo::tool {

ConfigurationsOption::ConfigurationsOption(OptionList const& options) {
    options.add("--configurations", _text, "Numbers from 0 to 255 of those to draw (default: all)", "N,...");
}

std::vector<int> ConfigurationsOption::read() const {
    if (_text.empty()) {
        return {};
    }
    auto const count = static_cast<std::size_t>(std::count(_text.begin(), _text.end(), ',')) + 1;
    return parseWholes("--configurations", _text, ',', count, 0, 255,
                       "whole numbers from 0 to 255 with commas between them");
}

} // namespace tamo::tool
