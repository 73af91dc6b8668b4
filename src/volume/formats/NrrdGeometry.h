// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../VolumeHeader.h"
#include "NrrdHeader.h"

namespace tamo::volume {

/// Gives a volume the spacing, the origin and the axes that a header states. Directions in a space that is not that of
/// a patient are taken as if they were in LPS; the axes are not known then. Throws `Error` for directions that are not
/// linearly independent.
void applyNrrdGeometry(VolumeHeader& volume, NrrdHeader const& header);

/// Gives a volume whose frames are known the names of its labels, which the pairs of keys and values of a segmentation
/// state.
void applySegments(VolumeHeader& volume, NrrdHeader const& header);

} // namespace tamo::volume
