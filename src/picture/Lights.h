// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo::picture {

/// Sets the lights of a surface picture in the current context: one from the viewer's upper left, a weaker one from the
/// lower right, and ambient light. They stand still with the viewer, whatever the model-view matrix is.
void setLights();

} // namespace tamo::picture
