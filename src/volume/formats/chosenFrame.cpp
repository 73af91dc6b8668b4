// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "chosenFrame.h"

#include "../Error.h"

#include <string>

namespace tamo::volume {

std::int64_t chosenFrame(VolumeSource const& source, std::int64_t frames) {
    std::int64_t const frame = source.frame.value_or(0);
    if (frames > 1 && !source.frame) {
        throw Error(source.path, "expected one volume, found " + std::to_string(frames) +
                                     " frames; choose one with --frame 0 to " + std::to_string(frames - 1));
    }
    if (frame < 0 || frame >= frames) {
        throw Error(source.path, "expected the frame " + std::to_string(frame) + ", found " +
                                     (frames == 1 ? "one frame; leave out --frame"
                                                  : std::to_string(frames) + " frames; choose one with --frame 0 to " +
                                                        std::to_string(frames - 1)));
    }
    return frame;
}

} // namespace tamo::volume
