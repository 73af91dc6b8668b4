// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "DicomImage.h"

namespace tamo::volume {

/// Fills in the frames of an image from the elements of its file: one for a classic slice, and for files of several
/// frames what the functional groups say of each. Throws `Error` for numbers that make no sense.
void readFrames(DicomDataset const& dataset, DicomImage& image);

} // namespace tamo::volume
