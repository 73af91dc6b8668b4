// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Progress.h"
#include "../VolumeFile.h"
#include "../VolumeSource.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace tamo::volume {

// How each format is opened. All throw `Error`, naming the file, for one that is damaged, incomplete, or not a volume
// of one number per voxel, as soon as its header shows it, and else from `VolumeFile::read`; and `Cancelled`. The path
// of the source exists and can be read. What every format shares, `openVolume` does: at least two voxels a side, the
// source's spacing and axes. A file of several frames whose source names none is refused, and so is a frame, a channel
// or a series that the file does not have; the refusal lists the choices.

/// Opens `.nii`, `.nii.gz`, and the pair `.hdr` and `.img`, compressed or not.
std::unique_ptr<VolumeFile> openNifti(VolumeSource const& source, Progress const& progress);
std::unique_ptr<VolumeFile> openMgh(VolumeSource const& source, Progress const& progress);
std::unique_ptr<VolumeFile> openNpy(VolumeSource const& source, Progress const& progress);
/// Opens VTK's older format, structured points only.
std::unique_ptr<VolumeFile> openLegacyVtk(VolumeSource const& source, Progress const& progress);
/// Opens `.vti`; a build without VTK refuses it in a line that says so.
std::unique_ptr<VolumeFile> openXmlVtk(VolumeSource const& source, Progress const& progress);
std::unique_ptr<VolumeFile> openMetaImage(VolumeSource const& source, Progress const& progress);
std::unique_ptr<VolumeFile> openNrrd(VolumeSource const& source, Progress const& progress);
std::unique_ptr<VolumeFile> openRaw(VolumeSource const& source, Progress const& progress);
/// Opens a TIFF file whose pages are slices.
std::unique_ptr<VolumeFile> openTiff(VolumeSource const& source, Progress const& progress);
/// Opens a folder of DICOM, TIFF, PNG, JPEG or BMP slices.
std::unique_ptr<VolumeFile> openSliceFolder(VolumeSource const& source, Progress const& progress);
/// Refuses a file that is a single picture, in a line that asks for its folder.
std::unique_ptr<VolumeFile> refusePicture(VolumeSource const& source, Progress const& progress);
/// Opens one DICOM file of several frames, or what a DICOMDIR lists.
std::unique_ptr<VolumeFile> openDicom(VolumeSource const& source, Progress const& progress);
/// Opens the DICOM files among `files`, all the files in a folder and the folders below it; the others are noted.
std::unique_ptr<VolumeFile> openDicomFolder(VolumeSource const& source, std::vector<std::filesystem::path> const& files,
                                            Progress const& progress);
/// Returns whether a file begins as DICOM files do. False for a file that cannot be read.
bool isDicom(std::filesystem::path const& path);

} // namespace tamo::volume
