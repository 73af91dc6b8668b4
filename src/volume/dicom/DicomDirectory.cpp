// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomDirectory.h"

#include "../Error.h"
#include "../letterCase.h"
#include "DicomDataset.h"
#include "DicomTags.h"
#include "DicomText.h"

#include <array>
#include <sstream>
#include <string>
#include <system_error>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

// Discs show names in capitals, and copies of them often in small letters.
fs::path findFile(fs::path const& directory, std::string const& id) {
    std::array<fs::path, 3> candidates{directory.parent_path(), directory.parent_path(), directory.parent_path()};
    std::istringstream stream(id);
    std::string part;
    while (std::getline(stream, part, '\\')) {
        part = part.substr(0, part.find_last_not_of(' ') + 1);
        if (part.empty() || part == "." || part == ".." || part.find('/') != std::string::npos ||
            part.find('\0') != std::string::npos) {
            throw Error(directory,
                        "expected names of files beside it, found " + shownText(id, {}) + "; the file is damaged");
        }
        candidates[0] /= part;
        candidates[1] /= lowerCase(part);
        candidates[2] /= upperCase(part);
    }
    for (fs::path const& candidate : candidates) {
        std::error_code error;
        if (fs::is_regular_file(candidate, error)) {
            return candidate;
        }
    }
    throw Error(directory, "expected the files that it lists, found no " +
                               shownText(candidates[0].lexically_relative(directory.parent_path()).string(), {}) +
                               "; copy the whole disc");
}

} // namespace

std::optional<std::vector<fs::path>> readDicomDirectory(fs::path const& path) {
    constexpr char const* kDirectoryClass = "1.2.840.10008.1.3.10";
    DicomHeader const header = readDicomHeader(path);
    if (header.meta.text(dicom::kMediaStorageSopClass) != kDirectoryClass &&
        !header.dataset.has(dicom::kDirectoryRecords)) {
        return std::nullopt;
    }
    std::vector<fs::path> files;
    for (DicomDataset const& record : header.dataset.items(dicom::kDirectoryRecords)) {
        std::string const id = record.text(dicom::kReferencedFile);
        // Records of patients and studies name no file; those that are deleted say 0.
        if (!id.empty() && record.whole(dicom::kRecordInUse).value_or(1) != 0) {
            files.push_back(findFile(path, id));
        }
    }
    return files;
}

} // namespace tamo::volume
