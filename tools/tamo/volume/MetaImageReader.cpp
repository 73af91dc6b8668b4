// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../terminal/UserError.h"
#include "HeaderText.h"
#include "ScalarType.h"
#include "VolumeFormats.h"
#include "VoxelFile.h"

#include <algorithm>
#include <cmath>
#include <fstream>

// VTK's own reader of this format takes a truncated file for a whole one.

namespace tamo::tool {

namespace {

namespace fs = std::filesystem;

HeaderText readHeader(fs::path const& path) {
    HeaderText header(path);
    std::ifstream file(path, std::ios::binary);
    std::string line;
    // The field that names the voxels' file is the last one; what follows it may be the voxels.
    while (!header.has("ElementDataFile") && std::getline(file, line)) {
        auto const equals = line.find('=');
        if (equals == std::string::npos) {
            break;
        }
        header.set(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }
    header.end = file ? static_cast<std::uint64_t>(file.tellg()) : 0;
    return header;
}

int scalarType(HeaderText const& header) {
    static std::map<std::string, int> const kTypes{{"MET_CHAR", VTK_SIGNED_CHAR},
                                                   {"MET_UCHAR", VTK_UNSIGNED_CHAR},
                                                   {"MET_SHORT", VTK_SHORT},
                                                   {"MET_USHORT", VTK_UNSIGNED_SHORT},
                                                   {"MET_INT", VTK_INT},
                                                   {"MET_UINT", VTK_UNSIGNED_INT},
                                                   {"MET_LONG", VTK_INT},
                                                   {"MET_ULONG", VTK_UNSIGNED_INT},
                                                   {"MET_LONG_LONG", VTK_LONG_LONG},
                                                   {"MET_ULONG_LONG", VTK_UNSIGNED_LONG_LONG},
                                                   {"MET_FLOAT", VTK_FLOAT},
                                                   {"MET_DOUBLE", VTK_DOUBLE}};
    auto const type = kTypes.find(header.require("ElementType"));
    if (type == kTypes.end() || header.text("ElementNumberOfChannels", "1") != "1") {
        header.refuse(type == kTypes.end() ? "ElementType" : "ElementNumberOfChannels", "one scalar per voxel");
    }
    return type->second;
}

Size3 size(HeaderText const& header) {
    if (header.require("NDims") != "3") {
        header.refuse("NDims", "3, a 3-D volume,");
    }
    return header.size("DimSize");
}

bool isTrue(std::string const& text) { return !text.empty() && (text[0] == 'T' || text[0] == 't' || text[0] == '1'); }

void applyGeometry(Volume& volume, HeaderText const& header) {
    char const* const spacing = header.has("ElementSpacing") ? "ElementSpacing" : "ElementSize";
    if (header.has(spacing)) {
        auto const values = header.numbers(spacing, 3);
        std::copy(values.begin(), values.end(), volume.spacing.begin());
    }
    for (char const* const name : {"TransformMatrix", "Rotation", "Orientation"}) {
        if (header.has(name)) {
            auto const values = header.numbers(name, 9);
            for (std::size_t axis = 0; axis < 3; ++axis) {
                Vector3 const v{values[3 * axis], values[3 * axis + 1], values[3 * axis + 2]};
                double const length = std::hypot(v[0], v[1], v[2]);
                if (!(length > 0)) {
                    header.refuse(name, "three directions");
                }
                // Given towards the left, back and top.
                volume.axes[axis] = {-v[0] / length, -v[1] / length, v[2] / length};
            }
            return;
        }
    }
}

VoxelLocation locateVoxels(HeaderText const& header, fs::path const& path, Volume const& volume) {
    VoxelLocation location;
    std::string const file = header.require("ElementDataFile");
    bool const isLocal = file == "LOCAL" || file == "Local" || file == "local";
    location.path = isLocal ? path : path.parent_path() / file;
    if (!fs::is_regular_file(location.path)) {
        header.refuse("ElementDataFile", "LOCAL or one file that exists");
    }
    bool const isBinary = isTrue(header.text("BinaryData", "True"));
    bool const isCompressed = isTrue(header.text("CompressedData", "False"));
    location.encoding = !isBinary ? VoxelEncoding::Text : isCompressed ? VoxelEncoding::Compressed : VoxelEncoding::Raw;
    location.isBigEndian = isTrue(header.text("BinaryDataByteOrderMSB", header.text("ElementByteOrderMSB", "False")));
    location.start = isLocal ? header.end : 0;
    // Counted from the beginning of the file; -1 stands for whatever precedes the voxels at its end.
    std::int64_t const skipped = header.whole("HeaderSize", -1);
    if (skipped > 0) {
        location.start = static_cast<std::uint64_t>(skipped);
    } else if (skipped < 0) {
        location.start = startOfLastBytes(location.path, voxelBytes(volume));
    }
    return location;
}

} // namespace

Volume readMetaImage(fs::path const& path, Progress& progress) {
    HeaderText const header = readHeader(path);
    Volume volume;
    volume.format = "MetaImage";
    volume.size = size(header);
    volume.image = allocateImage(volume.size, scalarType(header), path.string());
    applyGeometry(volume, header);
    readVoxels(volume, locateVoxels(header, path, volume), progress);
    return volume;
}

} // namespace tamo::tool
