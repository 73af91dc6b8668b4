// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../geometry/Vector3.h"

#include <array>
#include <optional>
#include <string>

namespace tamo::volume {

/// Returns the axes that three letters stand for: the sides of a patient towards which x, y and z lead, one of R or L,
/// one of A or P, one of I or S, in any order and case. Nothing for other texts.
std::optional<std::array<Vector3, 3>> parseOrientation(std::string const& letters);

/// Returns the three letters that come closest to axes (in LPS). No letter or its opposite comes twice.
std::string orientationLetters(std::array<Vector3, 3> const& axes);

} // namespace tamo::volume
