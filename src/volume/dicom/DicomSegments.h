// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "DicomImage.h"

namespace tamo::volume {

/// Gives a segmentation the frames that its writer left out because they are empty, so that each segment has one at
/// each place of any, and at the places between them that whole steps lead to. Such frames have the index
/// `DicomFrame::kEmpty` and stand behind the others.
///
/// Does nothing for other images, for frames that state no place or no segment, and where the frames would be more than
/// any segmentation has.
void addEmptyFrames(DicomImage& image);

} // namespace tamo::volume
