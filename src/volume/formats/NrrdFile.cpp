// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../chooseOne.h"
#include "DataFiles.h"
#include "NrrdGeometry.h"
#include "NrrdHeader.h"
#include "StoredFile.h"
#include "VolumeFormats.h"
#include "headerGeometry.h"

#include <algorithm>
#include <optional>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

// Reads a type by its C name, in any of the orders of words that the format allows, or by its number of bits.
ScalarType scalarType(HeaderText const& header) {
    static std::map<std::string, ScalarType> const kTypes{{"signed char", ScalarType::Int8},
                                                          {"unsigned char", ScalarType::UInt8},
                                                          {"uchar", ScalarType::UInt8},
                                                          {"short", ScalarType::Int16},
                                                          {"unsigned short", ScalarType::UInt16},
                                                          {"ushort", ScalarType::UInt16},
                                                          {"int", ScalarType::Int32},
                                                          {"unsigned int", ScalarType::UInt32},
                                                          {"uint", ScalarType::UInt32},
                                                          {"long long", ScalarType::Int64},
                                                          {"longlong", ScalarType::Int64},
                                                          {"unsigned long long", ScalarType::UInt64},
                                                          {"ulonglong", ScalarType::UInt64},
                                                          {"float", ScalarType::Float32},
                                                          {"double", ScalarType::Float64}};
    std::string name = header.require("type");
    auto const hasEnding = [&name](std::string const& ending) {
        return name.size() > ending.size() && name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
    };
    auto const bits = std::find_if(kScalarTypes.begin(), kScalarTypes.end(), [&name](ScalarTypeInfo const& type) {
        return name == type.name || name == std::string(type.name) + "_t";
    });
    if (bits != kScalarTypes.end()) {
        return bits->type;
    }
    if (name.compare(0, 7, "signed ") == 0 && name != "signed char") {
        name.erase(0, 7);
    }
    if (hasEnding(" int") && name != "unsigned int") {
        name.resize(name.size() - 4);
    }
    auto const type = kTypes.find(name);
    if (type == kTypes.end()) {
        header.refuse("type", "a type of one number per voxel");
    }
    return type->second;
}

void applyEncoding(VoxelFiles& voxels, HeaderText const& header) {
    static std::map<std::string, Packing> const kPackings{
        {"raw", Packing::None},    {"gzip", Packing::Gzip}, {"gz", Packing::Gzip},
        {"bzip2", Packing::Bzip2}, {"bz2", Packing::Bzip2}, {"hex", Packing::Hex},
        {"ascii", Packing::None},  {"text", Packing::None}, {"txt", Packing::None}};
    std::string const name = lowerCase(header.require("encoding"));
    auto const found = kPackings.find(name);
    if (found == kPackings.end()) {
        header.refuse("encoding", "raw, gzip, bzip2, hex or ascii");
    }
    voxels.packing = found->second;
    voxels.isText = name == "ascii" || name == "text" || name == "txt";
}

// Returns the byte order of the voxels; single bytes have none.
bool isBigEndian(HeaderText const& header, ScalarType type) {
    if (bytesOf(type) == 1) {
        return false;
    }
    std::string const order = lowerCase(header.require("endian"));
    if (order != "big" && order != "little") {
        header.refuse("endian", "big or little");
    }
    return order == "big";
}

// Returns how many files hold the volume, each with the numbers of `axes` axes. With all axes to each, they divide the
// last one among them, `found` files: as many as there are.
std::int64_t fileCount(NrrdHeader const& header, std::int64_t axes, std::int64_t found) {
    auto const dimension = static_cast<std::int64_t>(header.sizes.size());
    // Files of whole slices: the first axis may be that of frames.
    std::int64_t const least = header.frameAxis == 0U ? 3 : 2;
    if (axes < least || axes > dimension) {
        header.text.refuse("data file", "files of whole slices");
    }
    if (axes == dimension) {
        if (found < 1 || header.sizes.back() % found != 0) {
            header.text.refuse("data file", "files of the same number of slices");
        }
        return found;
    }
    std::int64_t count = 1;
    for (auto i = static_cast<std::size_t>(axes); i < header.sizes.size(); ++i) {
        count *= header.sizes[i];
    }
    return count;
}

std::vector<fs::path> findFiles(NrrdHeader const& header, HeaderLines& lines) {
    fs::path const& path = header.text.path();
    std::string const field = header.text.require("data file");
    auto const words = wordsOf(field);
    auto const dimension = static_cast<std::int64_t>(header.sizes.size());
    if (!words.empty() && words[0] == "LIST" && words.size() <= 2) {
        auto paths = filesOfList(lines, path);
        auto const found = static_cast<std::int64_t>(paths.size());
        std::int64_t const axes = words.size() == 1 ? dimension - 1 : words[1].size() == 1 ? words[1][0] - '0' : 0;
        requireCount(path, fileCount(header, axes, found), found);
        return paths;
    }
    std::error_code error;
    auto const pattern = parsePattern(field, 4);
    if (!pattern || pattern->numbers.size() < 3 || fs::is_regular_file(path.parent_path() / field, error)) {
        requireFile(path.parent_path() / field, path);
        return {path.parent_path() / field};
    }
    auto const& numbers = pattern->numbers;
    std::int64_t const axes = numbers.size() == 3 ? dimension - 1 : numbers[3];
    std::int64_t const found = patternCount(numbers[0], numbers[1], numbers[2]);
    std::int64_t const count = fileCount(header, axes, found);
    requireCount(path, count, found);
    return filesOfPattern(*pattern, path, numbers[0], numbers[2], count);
}

VoxelFiles locateVoxels(NrrdHeader const& header, ScalarType type, HeaderLines& lines) {
    VoxelFiles voxels;
    bool const isDetached = header.text.has("data file");
    applyEncoding(voxels, header.text);
    voxels.rows.isBigEndian = !voxels.isText && isBigEndian(header.text, type);
    voxels.isInterleaved = header.frameAxis == 0U;
    voxels.lines = header.text.whole("line skip", 0);
    std::int64_t const skip = header.text.whole("byte skip", -1);
    // -1 stands for whatever precedes the voxels at the end of the file.
    voxels.areLast = skip < 0 && voxels.packing == Packing::None && !voxels.isText;
    voxels.skipped = skip > 0 ? static_cast<std::uint64_t>(skip) : 0;
    voxels.start = isDetached ? 0 : lines.position();
    voxels.paths = isDetached ? findFiles(header, lines) : std::vector<fs::path>{header.text.path()};
    return voxels;
}

} // namespace

std::unique_ptr<VolumeFile> openNrrd(VolumeSource const& source, Progress const&) {
    HeaderLines lines(source.path);
    NrrdHeader const header = readNrrdHeader(lines, source.path);
    VolumeHeader volume;
    volume.format = "NRRD";
    for (std::size_t i = 0; i < 3; ++i) {
        volume.size[i] = header.sizes[header.spaceAxes[i]];
    }
    volume.type = scalarType(header.text);
    applyNrrdGeometry(volume, header);
    VoxelFiles const voxels = locateVoxels(header, volume.type, lines);
    volume.frames = header.frameAxis ? header.sizes[*header.frameAxis] : 1;
    applySegments(volume, header);
    bool const isSegmentWanted = !source.segment.empty() && !source.frame;
    volume.frame = isSegmentWanted ? frameOfSegment(source, volume.labels)
                                   : chooseOne(source.path, "frame", volume.frames, source.frame);
    return openVoxelFiles(source, std::move(volume), voxels);
}

} // namespace tamo::volume
