// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Size3.h"

namespace tamo::tool {

/// A box of voxels, both ends included.
struct Box {
    Size3 first{};
    Size3 last{};

    /// Returns the lengths of the sides.
    [[nodiscard]] Size3 sides() const {
        return {last[0] - first[0] + 1, last[1] - first[1] + 1, last[2] - first[2] + 1};
    }
};

} // namespace tamo::tool
