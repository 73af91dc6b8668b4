// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Progress.h"
#include "Picture.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tamo::volume {

/// The files of a folder by what they may be; each list is ordered as a person counts.
struct SliceListing {
    std::map<PictureFormat, std::vector<std::filesystem::path>> pictures;
    std::vector<std::filesystem::path> dicomFiles;
    /// What is no slice by its name and its first bytes, hidden files among them.
    std::vector<std::filesystem::path> others;
    std::vector<std::filesystem::path> folders;
};

/// Lists a folder without those below it. Throws `Error` where it may not be entered.
SliceListing listFolder(std::filesystem::path const& folder);

/// Lists all files in a folder and the folders below it, links to nothing among them, each folder once whatever links
/// lead to it, in the order of their paths. Throws `Error` where one may not be entered, and `Cancelled`.
std::vector<std::filesystem::path> listTree(std::filesystem::path const& folder, Progress const& progress);

/// Takes from the pictures one that is a preview of the others, as scanners leave it among at least 10 slices: one that
/// is alone of its format, DICOM counting as a format, or whose name alone ends in "_spr". Of the only picture, unless
/// it is a TIFF file, two DICOM files or a folder beside it are enough. Moves it to the others.
void setPreviewApart(SliceListing& listing);

/// Returns a note that names up to 3 files that are no slices; empty for none.
std::string noteOfOthers(std::vector<std::filesystem::path> const& others);

} // namespace tamo::volume
