// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Size3.h"

#include "geometry/Vector3.h"

#include <vtkImageData.h>
#include <vtkSmartPointer.h>

#include <array>
#include <cstdint>
#include <string>

namespace tamo::tool {

/// Holds a scalar volume as its file stores it, and how to understand it.
///
/// Voxel (x, y, z) is the x-th of its row, the y-th row of its slice and the z-th slice, in the order of the file.
struct Volume {
    /// One component per voxel.
    vtkSmartPointer<vtkImageData> image;
    std::string format;
    Size3 size{};
    /// Distance between neighbouring voxels, positive.
    Vector3 spacing{1, 1, 1};
    /// Directions of the x, y and z axis, of length 1. Where the format knows the patient, they lead towards the
    /// right, the front and the top; elsewhere they are the axes of the file.
    std::array<Vector3, 3> axes{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    /// A stored value v means slope * v + intercept.
    double slope = 1;
    double intercept = 0;
};

/// Makes an image of one component per voxel, its voxels not yet set. Throws `UserError` where there is no memory for
/// it.
vtkSmartPointer<vtkImageData> allocateImage(Size3 const& size, int vtkType, std::string const& path);

/// Returns the number of bytes that the voxels take.
std::uint64_t voxelBytes(Volume const& volume);

/// Returns the address of the first voxel of row y of slice z.
unsigned char* rowAddress(vtkImageData& image, int y, int z);

} // namespace tamo::tool
