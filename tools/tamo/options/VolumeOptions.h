// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../volume/VolumeSource.h"

#include <CLI/CLI.hpp>

#include <string>

namespace tamo::tool {

/// Says in help texts what a volume may be.
inline constexpr char const* kVolumeFormats =
    "Volumes: NIfTI (.nii, .nii.gz), MetaImage (.mha, .mhd), NRRD (.nrrd, .nhdr),\n"
    "multi-page TIFF (.tif, .tiff), VTK image data (.vti), a folder of PNG, TIFF or\n"
    "DICOM slices, and bare voxels with --dims and --type.\n";

/// The name of a volume, and the options that say what its file does not.
class VolumeOptions {
  public:
    explicit VolumeOptions(CLI::App& command);

    /// Throws `UsageError` for a value that its option does not take.
    [[nodiscard]] VolumeSource read() const;

  private:
    [[nodiscard]] RawLayout readLayout() const;

    std::string _volume;
    std::string _dims;
    std::string _type;
    std::string _header;
    bool _isBigEndian = false;
    std::string _spacing;
};

} // namespace tamo::tool
