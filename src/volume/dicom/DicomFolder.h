// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Progress.h"
#include "DicomImage.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tamo::volume {

/// The images among a number of files, and a sentence on those that are none.
struct DicomFolder {
    std::vector<DicomImage> images;
    std::vector<std::string> notes;
};

/// Reads all files. Strays are left out with a note, but throws `Error` for a file that may not be read, is damaged, or
/// seems to be a slice although it is no DICOM file: by its ending, by a name like the others', or by its first bytes.
DicomFolder readDicomFolder(std::filesystem::path const& folder, std::vector<std::filesystem::path> const& files,
                            Progress const& progress);

} // namespace tamo::volume
