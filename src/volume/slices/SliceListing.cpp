// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SliceListing.h"

#include "../Error.h"
#include "../formats/VolumeFormats.h"
#include "../listed.h"
#include "SliceNames.h"

#include <algorithm>
#include <set>
#include <system_error>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

std::vector<fs::directory_entry> entriesOf(fs::path const& folder) {
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    fs::directory_iterator at(folder, error);
    while (!error && at != fs::directory_iterator()) {
        entries.push_back(*at);
        at.increment(error);
    }
    if (error) {
        throw Error(folder, "expected a folder that can be read: " + error.message());
    }
    std::sort(entries.begin(), entries.end(), [](fs::directory_entry const& a, fs::directory_entry const& b) {
        return isBefore(a.path().filename().string(), b.path().filename().string());
    });
    return entries;
}

bool isHidden(fs::path const& path) { return path.filename().string().front() == '.'; }

// Links that lead to nothing, or in a circle, are of no type rather than an error.
fs::file_type typeOf(fs::directory_entry const& entry) {
    std::error_code error;
    return entry.status(error).type();
}

// A slice that is a link to nothing, or to itself, is refused when it is opened; a pipe would never end.
bool isLost(fs::file_type type) { return type == fs::file_type::not_found || type == fs::file_type::none; }

void addTree(fs::path const& folder, std::set<fs::path>& entered, std::vector<fs::path>& files,
             Progress const& progress) {
    std::error_code error;
    fs::path const real = fs::canonical(folder, error);
    if (error) {
        throw Error(folder, "expected a folder that can be read: " + error.message());
    }
    if (!entered.insert(real).second) {
        return;
    }
    for (fs::directory_entry const& entry : entriesOf(folder)) {
        fs::file_type const type = typeOf(entry);
        if (type == fs::file_type::directory) {
            addTree(entry.path(), entered, files, progress);
        } else if (type == fs::file_type::regular || type == fs::file_type::not_found) {
            files.push_back(entry.path());
        }
    }
    // How many there are shows only at the end.
    report(progress, 0);
}

bool isNamedPreview(fs::path const& path) {
    std::string const stem = path.stem().string();
    return stem.size() >= 4 && stem.compare(stem.size() - 4, 4, "_spr") == 0;
}

constexpr std::size_t kLeastSlices = 10;

// Whether a folder holds one picture, which alone is no volume, beside DICOM slices or the folders where slices may be.
// A TIFF file may hold a volume.
bool isLonePicture(SliceListing const& listing) {
    bool const isOne = listing.pictures.size() == 1 && listing.pictures.begin()->second.size() == 1 &&
                       listing.pictures.begin()->first != PictureFormat::Tiff;
    return isOne && (listing.dicomFiles.size() > 1 || (listing.dicomFiles.empty() && !listing.folders.empty()));
}

} // namespace

SliceListing listFolder(fs::path const& folder) {
    SliceListing listing;
    for (fs::directory_entry const& entry : entriesOf(folder)) {
        fs::path const& path = entry.path();
        fs::file_type const type = typeOf(entry);
        auto const format = isHidden(path) ? std::nullopt : pictureFormatOf(path);
        bool const isFile = type == fs::file_type::regular;
        if (type == fs::file_type::directory) {
            listing.folders.push_back(path);
        } else if (format && (isFile || isLost(type))) {
            listing.pictures[*format].push_back(path);
        } else if (isFile && !isHidden(path) && isDicom(path)) {
            listing.dicomFiles.push_back(path);
        } else {
            listing.others.push_back(path);
        }
    }
    return listing;
}

std::vector<fs::path> listTree(fs::path const& folder, Progress const& progress) {
    std::vector<fs::path> files;
    std::set<fs::path> entered;
    addTree(folder, entered, files, progress);
    std::sort(files.begin(), files.end());
    return files;
}

void setPreviewApart(SliceListing& listing) {
    auto const setApart = [&listing](PictureFormat format, std::vector<fs::path>::iterator preview) {
        auto& pictures = listing.pictures[format];
        listing.others.push_back(*preview);
        pictures.erase(preview);
        if (pictures.empty()) {
            listing.pictures.erase(format);
        }
    };
    if (isLonePicture(listing)) {
        setApart(listing.pictures.begin()->first, listing.pictures.begin()->second.begin());
        return;
    }
    std::size_t const formats = listing.pictures.size() + (listing.dicomFiles.empty() ? 0 : 1);
    std::size_t most = listing.dicomFiles.size();
    for (auto const& [format, paths] : listing.pictures) {
        most = std::max(most, paths.size());
    }
    for (auto& [format, paths] : listing.pictures) {
        if (formats == 2 && paths.size() == 1 && most >= kLeastSlices) {
            setApart(format, paths.begin());
            return;
        }
    }
    for (auto& [format, paths] : listing.pictures) {
        auto const previews = std::count_if(paths.begin(), paths.end(), isNamedPreview);
        if (formats == 1 && previews == 1 && paths.size() > kLeastSlices) {
            setApart(format, std::find_if(paths.begin(), paths.end(), isNamedPreview));
            return;
        }
    }
}

std::string noteOfOthers(std::vector<fs::path> const& others) {
    constexpr std::size_t kMostNamed = 3;
    if (others.empty()) {
        return {};
    }
    std::string const names =
        listed(others.size(), kMostNamed, [&others](std::size_t i) { return others[i].filename().string(); });
    return names + (others.size() == 1 ? " is no slice and was left out" : " are no slices and were left out");
}

} // namespace tamo::volume
