// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../chooseOne.h"
#include "DataFiles.h"
#include "HeaderText.h"
#include "StoredFile.h"
#include "VolumeFormats.h"
#include "headerGeometry.h"

#include <algorithm>
#include <cmath>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

HeaderText readHeader(HeaderLines& lines, fs::path const& path) {
    HeaderText header(path);
    // The field that names the voxels' file is the last one; what follows it may be the voxels.
    while (!header.has("ElementDataFile")) {
        auto const line = lines.next();
        auto const equals = line ? line->find('=') : std::string::npos;
        if (equals == std::string::npos) {
            break;
        }
        header.set(trimmed(line->substr(0, equals)), trimmed(line->substr(equals + 1)));
    }
    return header;
}

ScalarType scalarType(HeaderText const& header) {
    static std::map<std::string, ScalarType> const kTypes{
        {"MET_CHAR", ScalarType::Int8},       {"MET_UCHAR", ScalarType::UInt8},
        {"MET_SHORT", ScalarType::Int16},     {"MET_USHORT", ScalarType::UInt16},
        {"MET_INT", ScalarType::Int32},       {"MET_UINT", ScalarType::UInt32},
        {"MET_LONG", ScalarType::Int32},      {"MET_ULONG", ScalarType::UInt32},
        {"MET_LONG_LONG", ScalarType::Int64}, {"MET_ULONG_LONG", ScalarType::UInt64},
        {"MET_FLOAT", ScalarType::Float32},   {"MET_DOUBLE", ScalarType::Float64}};
    auto const type = kTypes.find(header.require("ElementType"));
    if (type == kTypes.end() || header.text("ElementNumberOfChannels", "1") != "1") {
        header.refuse(type == kTypes.end() ? "ElementType" : "ElementNumberOfChannels",
                      "one number per voxel, no colour,");
    }
    return type->second;
}

bool isTrue(std::string const& text) { return !text.empty() && (text[0] == 'T' || text[0] == 't' || text[0] == '1'); }

// Returns the number of axes: the fourth one is that of frames.
std::size_t dimensions(HeaderText const& header) {
    std::string const text = header.require("NDims");
    if (text != "3" && text != "4") {
        header.refuse("NDims", "3 or 4, a 3-D volume or several of them,");
    }
    return text == "3" ? 3 : 4;
}

void applyDirections(VolumeHeader& volume, HeaderText const& header, std::size_t axes) {
    std::string const name = header.firstOf({"TransformMatrix", "Rotation", "Orientation"});
    std::string const letters = header.text("AnatomicalOrientation", "???");
    if (name.empty()) {
        if (letters.find_first_not_of('?') != std::string::npos) {
            volume.notes.push_back("the orientation \"" + letters +
                                   "\" comes without a matrix and was left out: LPS is assumed");
        }
        return;
    }
    auto const values = header.finiteNumbers(name, axes * axes);
    std::array<Vector3, 3> directions{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::copy_n(values.begin() + static_cast<std::ptrdiff_t>(axis * axes), 3, directions[axis].begin());
        if (axes == 4 && (values[4 * axis + 3] != 0 || values[12 + axis] != 0)) {
            header.refuse(name, "an axis of frames apart from those of space");
        }
    }
    if (!volume.geometry.setSteps(directions)) {
        header.refuse(name, "three directions, none in the plane of the others,");
    }
    // The lengths of the directions say nothing; those of the voxels are stated elsewhere.
    constexpr double kRounded = 1e-3;
    Vector3 const& lengths = volume.geometry.spacing;
    if (std::any_of(lengths.begin(), lengths.end(), [](double length) { return std::abs(length - 1) > kRounded; })) {
        volume.notes.push_back("the directions in " + name + " are not of length 1; their lengths were left out");
    }
    volume.geometry.spacing = {1, 1, 1};
    volume.geometry.isSpacingKnown = false;
}

void applyGeometry(VolumeHeader& volume, HeaderText const& header, std::size_t axes) {
    applyDirections(volume, header, axes);
    std::string const unit = header.text("DistanceUnits", "");
    bool const isStated = unit.find_first_not_of('?') != std::string::npos;
    double const length = millimetresOf(volume, isStated ? unit : "");
    Vector3 const millimetres{length, length, length};
    std::string const spacing = header.firstOf({"ElementSpacing", "ElementSize"});
    if (!spacing.empty()) {
        auto const values = header.numbers(spacing, axes);
        setSpacing(volume, scaled({values[0], values[1], values[2]}, millimetres));
    }
    std::string const origin = header.firstOf({"Offset", "Position", "Origin"});
    if (!origin.empty()) {
        auto const values = header.finiteNumbers(origin, axes);
        volume.geometry.origin = scaled({values[0], values[1], values[2]}, millimetres);
        volume.geometry.isOriginKnown = true;
    }
}

// Returns how many files hold the volume, each with the numbers of `axes` axes.
std::int64_t fileCount(HeaderText const& header, std::vector<std::int64_t> const& sizes, std::int64_t axes) {
    if (axes < 2 || axes > static_cast<std::int64_t>(sizes.size())) {
        header.refuse("ElementDataFile", "files of slices or of volumes");
    }
    std::int64_t count = 1;
    for (auto i = static_cast<std::size_t>(axes); i < sizes.size(); ++i) {
        count *= sizes[i];
    }
    return count;
}

std::vector<fs::path> findFiles(HeaderText const& header, std::vector<std::int64_t> const& sizes, HeaderLines& lines) {
    std::string const field = header.require("ElementDataFile");
    fs::path const path = header.path().parent_path() / field;
    auto const words = wordsOf(field);
    auto const axes = static_cast<std::int64_t>(sizes.size());
    if (!words.empty() && words[0] == "LIST" && words.size() <= 2) {
        // "LIST 2", or "LIST 2D".
        bool const isStated = words.size() == 2 && words[1].find_first_not_of("0123456789") > 0;
        std::int64_t const each = isStated && words[1].size() <= 2 ? words[1][0] - '0' : axes - 1;
        auto paths = filesOfList(lines, header.path());
        requireCount(header.path(), fileCount(header, sizes, each), static_cast<std::int64_t>(paths.size()));
        return paths;
    }
    std::error_code error;
    auto const pattern = parsePattern(field, 3);
    if (!pattern || fs::is_regular_file(path, error)) {
        requireFile(path, header.path());
        return {path};
    }
    std::int64_t const count = fileCount(header, sizes, axes - 1);
    auto const& numbers = pattern->numbers;
    std::int64_t const first = numbers.empty() ? 1 : numbers[0];
    std::int64_t const last = numbers.size() < 2 ? first + count - 1 : numbers[1];
    std::int64_t const step = numbers.size() < 3 ? 1 : numbers[2];
    requireCount(header.path(), count, patternCount(first, last, step));
    return filesOfPattern(*pattern, header.path(), first, step, count);
}

// Returns where the compressed bytes of a file begin, of which the header says how many they are.
std::uint64_t startOfPacked(HeaderText const& header, fs::path const& path, std::uint64_t start, bool areLast) {
    auto const bytes = static_cast<std::uint64_t>(header.whole("CompressedDataSize", 0));
    std::uint64_t const found = fs::file_size(path);
    if (bytes > found || (!areLast && start > found - bytes)) {
        throw Error(path, "expected " + std::to_string(bytes) + " bytes of compressed voxels, found a file of " +
                              std::to_string(found) + "; the file is damaged or truncated");
    }
    return areLast && bytes > 0 ? found - bytes : start;
}

VoxelFiles locateVoxels(HeaderText const& header, std::vector<std::int64_t> const& sizes, HeaderLines& lines) {
    VoxelFiles voxels;
    std::string const file = header.require("ElementDataFile");
    bool const isLocal = lowerCase(file) == "local";
    voxels.paths = isLocal ? std::vector<fs::path>{header.path()} : findFiles(header, sizes, lines);
    voxels.isText = !isTrue(header.text("BinaryData", "True"));
    bool const isPacked = !voxels.isText && isTrue(header.text("CompressedData", "False"));
    voxels.packing = isPacked ? Packing::Gzip : Packing::None;
    voxels.rows.isBigEndian =
        isTrue(header.text("BinaryDataByteOrderMSB", header.text("ElementByteOrderMSB", "False")));
    voxels.start = isLocal ? lines.position() : 0;
    // Counted from the beginning of each file; -1 stands for whatever precedes the voxels at its end.
    std::int64_t const skipped = header.whole("HeaderSize", -1);
    if (skipped > 0) {
        voxels.start = static_cast<std::uint64_t>(skipped);
    }
    voxels.areLast = skipped < 0 && !isPacked && !voxels.isText;
    // Of several files the size would be that of one, and it is not said of which.
    if (isPacked && voxels.paths.size() == 1) {
        voxels.start = startOfPacked(header, voxels.paths[0], voxels.start, skipped < 0);
    }
    return voxels;
}

} // namespace

std::unique_ptr<VolumeFile> openMetaImage(VolumeSource const& source, Progress const&) {
    HeaderLines lines(source.path);
    HeaderText const header = readHeader(lines, source.path);
    VolumeHeader volume;
    volume.format = "MetaImage";
    std::size_t const axes = dimensions(header);
    auto const sizes = header.sizes("DimSize", axes);
    std::copy_n(sizes.begin(), 3, volume.size.begin());
    volume.type = scalarType(header);
    applyGeometry(volume, header, axes);
    VoxelFiles const voxels = locateVoxels(header, sizes, lines);
    volume.frames = axes == 4 ? sizes[3] : 1;
    volume.frame = chooseOne(source.path, "frame", volume.frames, source.frame);
    return openVoxelFiles(source, std::move(volume), voxels);
}

} // namespace tamo::volume
