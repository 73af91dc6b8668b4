// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "numberText.h"

#include <cmath>
#include <iomanip>
#include <sstream>

namespace tamo::tool {

std::string numberText(double value) {
    constexpr double kExact = 1e15;
    std::ostringstream text;
    bool const isWhole = value == std::floor(value) && std::abs(value) < kExact;
    // Adding zero turns the negative zero into the positive one.
    text << std::setprecision(isWhole ? 15 : 9) << value + 0.0;
    return text.str();
}

} // namespace tamo::tool
