// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <cstdint>

// Loaded before EGL, this stands for a machine without a display of the kind asked for.
extern "C" __attribute__((visibility("default"))) void* eglGetPlatformDisplay(unsigned int, void*,
                                                                              std::intptr_t const*) {
    return nullptr;
}
