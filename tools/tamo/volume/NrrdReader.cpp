// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../terminal/UserError.h"
#include "HeaderText.h"
#include "ScalarType.h"
#include "VolumeFormats.h"
#include "VoxelFile.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <fstream>

// VTK's own reader of this format takes text for binary voxels and goes on past the end of a truncated file.

namespace tamo::tool {

namespace {

namespace fs = std::filesystem;

// Spells fields that have two names in one way.
std::string fieldName(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    static std::map<std::string, std::string> const kSynonyms{
        {"datafile", "data file"}, {"lineskip", "line skip"}, {"byteskip", "byte skip"}};
    auto const synonym = kSynonyms.find(name);
    return synonym == kSynonyms.end() ? name : synonym->second;
}

HeaderText readHeader(fs::path const& path) {
    HeaderText header(path);
    std::ifstream file(path, std::ios::binary);
    std::string line;
    if (!std::getline(file, line) || line.compare(0, 4, "NRRD") != 0) {
        throw UserError(path.string() + ": expected a NRRD file, which begins with \"NRRD\"");
    }
    while (std::getline(file, line) && !trimmed(line).empty()) {
        auto const colon = line.find(": ");
        if (line[0] != '#' && colon != std::string::npos) {
            header.set(fieldName(line.substr(0, colon)), trimmed(line.substr(colon + 2)));
        }
    }
    if (file) {
        header.end = static_cast<std::uint64_t>(file.tellg());
    } else if (!header.has("data file")) {
        throw UserError(path.string() + ": expected an empty line behind the NRRD header; the file is truncated");
    }
    return header;
}

// Reads a type by its C name, in any of the orders of words that the format allows, or by its number of bits.
int scalarType(HeaderText const& header) {
    static std::map<std::string, int> const kTypes{{"signed char", VTK_SIGNED_CHAR},
                                                   {"unsigned char", VTK_UNSIGNED_CHAR},
                                                   {"uchar", VTK_UNSIGNED_CHAR},
                                                   {"short", VTK_SHORT},
                                                   {"unsigned short", VTK_UNSIGNED_SHORT},
                                                   {"ushort", VTK_UNSIGNED_SHORT},
                                                   {"int", VTK_INT},
                                                   {"unsigned int", VTK_UNSIGNED_INT},
                                                   {"uint", VTK_UNSIGNED_INT},
                                                   {"long long", VTK_LONG_LONG},
                                                   {"longlong", VTK_LONG_LONG},
                                                   {"unsigned long long", VTK_UNSIGNED_LONG_LONG},
                                                   {"ulonglong", VTK_UNSIGNED_LONG_LONG},
                                                   {"float", VTK_FLOAT},
                                                   {"double", VTK_DOUBLE}};
    std::string name = header.require("type");
    auto const hasEnding = [&name](std::string const& ending) {
        return name.size() > ending.size() && name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
    };
    auto const bits = std::find_if(kScalarTypes.begin(), kScalarTypes.end(), [&name](ScalarType const& type) {
        return name == type.name || name == std::string(type.name) + "_t";
    });
    if (bits != kScalarTypes.end()) {
        return bits->vtkType;
    }
    if (hasEnding(" int") && name != "unsigned int") {
        name.resize(name.size() - 4);
    }
    if (name.compare(0, 7, "signed ") == 0 && name != "signed char") {
        name.erase(0, 7);
    }
    auto const type = kTypes.find(name);
    if (type == kTypes.end()) {
        header.refuse("type", "a scalar type");
    }
    return type->second;
}

Size3 sizes(HeaderText const& header) {
    if (header.require("dimension") != "3") {
        header.refuse("dimension", "3, a 3-D volume of one scalar per voxel,");
    }
    std::string const kinds = header.text("kinds", "");
    for (char const* const word : {"color", "vector", "normal", "complex", "list", "point"}) {
        if (kinds.find(word) != std::string::npos) {
            header.refuse("kinds", "three axes of space, a volume of one scalar per voxel,");
        }
    }
    return header.size("sizes");
}

// Returns the signs that turn the coordinates of a named space towards the right, the front and the top.
Vector3 patientSigns(std::string space) {
    std::transform(space.begin(), space.end(), space.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    bool const isLps = space == "lps" || space == "left-posterior-superior";
    bool const isLas = space == "las" || space == "left-anterior-superior";
    return {isLps || isLas ? -1.0 : 1.0, isLps ? -1.0 : 1.0, 1.0};
}

void applyGeometry(Volume& volume, HeaderText const& header) {
    if (header.has("space directions")) {
        auto const values = header.numbers("space directions", 9);
        Vector3 const signs = patientSigns(header.text("space", ""));
        for (std::size_t axis = 0; axis < 3; ++axis) {
            double const length = std::hypot(values[3 * axis], values[3 * axis + 1], values[3 * axis + 2]);
            if (!(length > 0)) {
                header.refuse("space directions", "three directions");
            }
            volume.spacing[axis] = length;
            for (std::size_t i = 0; i < 3; ++i) {
                volume.axes[axis][i] = signs[i] * values[3 * axis + i] / length;
            }
        }
    } else if (header.has("spacings")) {
        auto const values = header.numbers("spacings", 3);
        // A size that is not known is spelt nan; a negative one tells a direction that nothing else here knows of.
        std::transform(values.begin(), values.end(), volume.spacing.begin(), [](double spacing) {
            return std::isfinite(spacing) && spacing != 0.0 ? std::abs(spacing) : 1.0;
        });
    }
}

// Returns where the voxels begin once `lines` lines past `start` are skipped: at the file's end where it has fewer.
std::uint64_t skipLines(fs::path const& data, std::uint64_t start, std::int64_t lines) {
    std::ifstream file(data, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(start));
    std::string line;
    while (lines-- > 0 && std::getline(file, line)) {
    }
    return file ? static_cast<std::uint64_t>(file.tellg()) : fs::file_size(data);
}

VoxelEncoding encoding(HeaderText const& header) {
    static std::map<std::string, VoxelEncoding> const kEncodings{
        {"raw", VoxelEncoding::Raw},    {"gzip", VoxelEncoding::Compressed}, {"gz", VoxelEncoding::Compressed},
        {"ascii", VoxelEncoding::Text}, {"text", VoxelEncoding::Text},       {"txt", VoxelEncoding::Text}};
    auto const found = kEncodings.find(header.require("encoding"));
    if (found == kEncodings.end()) {
        header.refuse("encoding", "raw, gzip or ascii");
    }
    return found->second;
}

// Returns the byte order of the voxels; single bytes have none.
bool isBigEndian(HeaderText const& header, Volume const& volume) {
    if (volume.image->GetScalarSize() == 1) {
        return false;
    }
    std::string const order = header.require("endian");
    if (order != "big" && order != "little") {
        header.refuse("endian", "big or little");
    }
    return order == "big";
}

VoxelLocation locateVoxels(HeaderText const& header, fs::path const& path, Volume const& volume) {
    VoxelLocation location;
    bool const isDetached = header.has("data file");
    location.path = isDetached ? path.parent_path() / header.require("data file") : path;
    if (!fs::is_regular_file(location.path)) {
        header.refuse("data file", "one file that exists");
    }
    location.encoding = encoding(header);
    location.isBigEndian = location.encoding != VoxelEncoding::Text && isBigEndian(header, volume);

    std::int64_t const lines = header.whole("line skip", 0);
    location.start = skipLines(location.path, isDetached ? 0 : header.end, lines);
    std::int64_t const skip = header.whole("byte skip", -1);
    if (location.encoding == VoxelEncoding::Compressed) {
        location.expandedSkip = skip > 0 ? static_cast<std::uint64_t>(skip) : 0;
    } else if (skip >= 0) {
        location.start += static_cast<std::uint64_t>(skip);
    } else {
        // -1 stands for whatever precedes the voxels at the end of the file.
        location.start = startOfLastBytes(location.path, voxelBytes(volume));
    }
    return location;
}

} // namespace

Volume readNrrd(fs::path const& path, Progress& progress) {
    HeaderText const header = readHeader(path);
    Volume volume;
    volume.format = "NRRD";
    volume.size = sizes(header);
    volume.image = allocateImage(volume.size, scalarType(header), path.string());
    applyGeometry(volume, header);
    readVoxels(volume, locateVoxels(header, path, volume), progress);
    return volume;
}

} // namespace tamo::tool
