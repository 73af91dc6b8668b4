// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../terminal/Progress.h"
#include "RawLayout.h"
#include "Volume.h"

#include <filesystem>
#include <vector>

namespace tamo::tool {

// One reader for each format. All of them throw `UserError`, naming the file, for one that is damaged, incomplete or
// not a volume of one scalar per voxel. None returns voxels that it did not find in the file.

Volume readNifti(std::filesystem::path const& path, Progress& progress);
Volume readMetaImage(std::filesystem::path const& path, Progress& progress);
Volume readVti(std::filesystem::path const& path, Progress& progress);
Volume readNrrd(std::filesystem::path const& path, Progress& progress);
/// Reads the pages of one file as slices.
Volume readTiff(std::filesystem::path const& path, Progress& progress);
/// Reads files of one slice each, in the given order.
Volume readTiffSlices(std::vector<std::filesystem::path> const& slices, Progress& progress);
Volume readPngSlices(std::vector<std::filesystem::path> const& slices, Progress& progress);
/// Reads a folder of PNG, TIFF or DICOM slices; pictures in the order of the numbers in their names.
Volume readSliceFolder(std::filesystem::path const& folder, Progress& progress);
/// Reads files of one slice each, in the order of their positions in space.
Volume readDicomSlices(std::vector<std::filesystem::path> const& slices, Progress& progress);
Volume readRaw(std::filesystem::path const& path, RawLayout const& layout, Progress& progress);

} // namespace tamo::tool
