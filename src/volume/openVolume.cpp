// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "openVolume.h"

#include "Error.h"
#include "chooseOne.h"
#include "formats/VolumeFormats.h"
#include "letterCase.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <new>
#include <string_view>
#include <system_error>
#include <vector>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

struct Format {
    // As `supportedFormats` lists it; empty for endings that only a refusal explains.
    char const* name;
    std::vector<std::string_view> endings;
    std::unique_ptr<VolumeFile> (*open)(VolumeSource const&, Progress const&);
};

std::vector<Format> const& formats() {
    static std::vector<Format> const kFormats{
        {"NIfTI and Analyze", {".nii", ".nii.gz", ".hdr", ".img", ".hdr.gz", ".img.gz"}, openNifti},
        {"MetaImage", {".mha", ".mhd"}, openMetaImage},
        {"NRRD", {".nrrd", ".nhdr"}, openNrrd},
        {"TIFF", {".tif", ".tiff"}, openTiff},
        {"MGH", {".mgh", ".mgz"}, openMgh},
        {"NumPy", {".npy"}, openNpy},
        {"VTK", {".vtk"}, openLegacyVtk},
        {"VTK XML", {".vti"}, openXmlVtk},
        {"DICOM", {".dcm", "DICOMDIR"}, openDicom},
        {"", {".png", ".jpg", ".jpeg", ".bmp"}, refusePicture},
    };
    return kFormats;
}

bool hasEnding(std::string const& text, std::string_view ending) {
    return text.size() >= ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

auto findOpener(fs::path const& path) {
    std::string const name = lowerCase(path.filename().string());
    auto const format = std::find_if(formats().begin(), formats().end(), [&name](Format const& candidate) {
        return std::any_of(candidate.endings.begin(), candidate.endings.end(), [&name](std::string_view ending) {
            return hasEnding(name, lowerCase(std::string(ending)));
        });
    });
    if (format != formats().end()) {
        return format->open;
    }
    // DICOM files may have any name.
    if (isDicom(path)) {
        return openDicom;
    }
    throw Error(path, "expected " + supportedFormats() + ", or --dims and --type for bare voxels");
}

std::unique_ptr<VolumeFile> openAny(VolumeSource const& source, Progress const& progress) {
    // A name that is too long, or a folder that may not be entered.
    std::error_code error;
    bool const exists = fs::exists(source.path, error);
    if (error) {
        throw Error(source.path, "expected a file or folder that can be read: " + error.message());
    }
    if (!exists) {
        throw Error(source.path, "expected a volume, found no such file or folder");
    }
    if (fs::is_directory(source.path) && !source.raw) {
        return openSliceFolder(source, progress);
    }
    if (!fs::is_regular_file(source.path)) {
        throw Error(source.path, "expected a file or folder, found neither (a pipe or a device); save its content to a "
                                 "file");
    }
    errno = 0;
    if (!std::ifstream(source.path)) {
        throw Error(source.path, "expected a file that can be read: " + std::generic_category().message(errno));
    }
    return source.raw ? openRaw(source, progress) : findOpener(source.path)(source, progress);
}

void checkSize(VolumeHeader const& header, fs::path const& path) {
    if (*std::min_element(header.size.begin(), header.size.end()) < 2) {
        throw Error(path, "expected a 3-D volume, found " + text(header.size, " x ") + " voxels");
    }
    if (!isCountable(header.size)) {
        throw Error(path, "expected a volume of less than 2^60 voxels, found " + text(header.size, " x "));
    }
}

// Readers that know of several frames, channels, series or segments have taken the one that the source names, or
// refused it; of the others there is but one.
void checkChoices(VolumeHeader const& header, VolumeSource const& source) {
    if (source.frame && *source.frame != header.frame) {
        throw Error(source.path, "expected a file of several frames with --frame, found one; leave it out");
    }
    if (source.channel && *source.channel != header.channel) {
        throw Error(source.path, "expected a file of several channels with --channel, found one; leave it out");
    }
    if (!source.series.empty() && header.series.empty()) {
        throw Error(source.path,
                    "expected a file of several series with --series, found " + header.format + "; leave it out");
    }
    if (!source.segment.empty() && frameOfSegment(source, header.labels) != header.frame) {
        throw Error(source.path, "expected a segment of the frame " + std::to_string(header.frame) +
                                     " for --segment, found one of another frame; leave out --frame");
    }
}

// Lets the caller's words take the place of what the file does not state.
void applySource(VolumeHeader& header, VolumeSource const& source) {
    GridGeometry& geometry = header.geometry;
    if (source.spacing) {
        geometry.spacing = *source.spacing;
        geometry.isSpacingKnown = true;
    }
    if (source.axes) {
        if (geometry.areAxesKnown) {
            throw Error(source.path, "expected a file that states no orientation, found one that does; leave out "
                                     "--orientation");
        }
        geometry.axes = *source.axes;
        geometry.areAxesKnown = true;
    }
    for (double const spacing : geometry.spacing) {
        if (!std::isfinite(spacing) || spacing <= 0.0) {
            throw Error(source.path,
                        "expected a positive voxel spacing, found " + std::to_string(spacing) + "; give --spacing");
        }
    }
    for (double const coordinate : geometry.origin) {
        if (!std::isfinite(coordinate)) {
            throw Error(source.path, "expected a finite origin, found " + std::to_string(coordinate) +
                                         " in the header; the file is damaged");
        }
    }
}

} // namespace

std::unique_ptr<VolumeFile> openVolume(VolumeSource const& source, Progress const& progress) {
    try {
        auto file = openAny(source, progress);
        VolumeHeader header = file->header();
        checkSize(header, source.path);
        checkChoices(header, source);
        applySource(header, source);
        file->setHeader(std::move(header));
        return file;
    } catch (std::bad_alloc const&) {
        throw Error(source.path, "expected a header that fits into memory");
    } catch (fs::filesystem_error const& error) {
        throw Error(error.path1().empty() ? source.path : error.path1(),
                    "expected a file or folder that can be read: " + error.code().message());
    }
}

std::string supportedFormats() {
    std::string names;
    for (Format const& format : formats()) {
        if (*format.name == '\0') {
            continue;
        }
        names += std::string(names.empty() ? "" : ", ") + format.name + " (";
        for (std::size_t i = 0; i < format.endings.size(); ++i) {
            names += (i > 0 ? " " : "") + std::string(format.endings[i]);
        }
        names += ")";
    }
    return names + ", or a folder of DICOM, TIFF, PNG, JPEG or BMP slices";
}

} // namespace tamo::volume
