// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace tamo::volume {

/// Returns the files that a DICOMDIR lists, relative to where it stands, or nothing for a file that is none. Throws
/// `Error` for one that is damaged, and where it lists a file that does not exist or lies elsewhere.
std::optional<std::vector<std::filesystem::path>> readDicomDirectory(std::filesystem::path const& path);

} // namespace tamo::volume
