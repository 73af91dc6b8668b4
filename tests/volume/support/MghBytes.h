// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Phantom.h"

#include <string>

/// What of an MGH header may differ.
struct MghOptions {
    int version = 1;
    int frames = 1;
    /// 4 is that of 16-bit numbers.
    int type = 4;
    int goodRas = 1;
};

/// Returns the 284 bytes of the header of a phantom.
std::string mghHeader(Phantom const& phantom, MghOptions const& options);
