// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Camera.h"
#include "Picture.h"

#include <functional>
#include <vector>

namespace tamo::picture {

/// Returns how many samples each pixel is drawn with along each side, at least 1, for a picture of at most
/// `kMaxPictureSide` pixels along each side.
int chooseSamples(PictureSize size);

/// Draws the display lists of a surface, one after another, in the current context, lit by `setLights`, and reads
/// the picture back. The context's own picture measures at least `samples` times `size`. `progress` is called with the
/// share of the lists that is drawn, from 0 to 1. Throws `PictureError` where OpenGL reports an error.
Picture drawSurface(std::vector<unsigned int> const& displayLists, Camera const& camera, PictureSize size, int samples,
                    std::function<void(double)> const& progress);

} // namespace tamo::picture
