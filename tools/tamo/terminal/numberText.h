// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace tamo::tool {

/// Returns a number as people write it: whole numbers in full, others with nine digits.
std::string numberText(double value);

} // namespace tamo::tool
