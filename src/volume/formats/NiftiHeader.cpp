// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NiftiHeader.h"

#include "../Error.h"
#include "NiftiGeometry.h"

#include <nifti/nifti2_io.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <optional>
#include <string>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

static_assert(sizeof(nifti_1_header) == 348 && sizeof(nifti_2_header) == 540, "headers are read as they stand");

// The library's nifti_convert_n1hdr2nim and its like are passed over: they put 0 for NaN in the quaternion and 1 for
// sides and distances that are none, and print what they refuse.
struct Raw {
    // Of every version: that of NIfTI-2 has room for all fields.
    nifti_2_header fields{};
    int version = 2;
    bool isBigEndian = false;
    [[nodiscard]] bool isAnalyze() const { return version == 0; }
    [[nodiscard]] char const* formatName() const {
        return version == 2 ? "NIfTI-2" : version == 1 ? "NIfTI-1" : "Analyze 7.5";
    }
};

struct Datatype {
    int code;
    ScalarType type;
};

constexpr std::array<Datatype, 10> kDatatypes{{{DT_UINT8, ScalarType::UInt8},
                                               {DT_INT8, ScalarType::Int8},
                                               {DT_UINT16, ScalarType::UInt16},
                                               {DT_INT16, ScalarType::Int16},
                                               {DT_UINT32, ScalarType::UInt32},
                                               {DT_INT32, ScalarType::Int32},
                                               {DT_UINT64, ScalarType::UInt64},
                                               {DT_INT64, ScalarType::Int64},
                                               {DT_FLOAT32, ScalarType::Float32},
                                               {DT_FLOAT64, ScalarType::Float64}}};

// Returns the place of the first voxel, which NIfTI-1 gives as a float.
std::int64_t wholeOffset(fs::path const& path, double offset) {
    // More than any file holds, and still exact.
    constexpr double kMost = 1e15;
    if (!(std::abs(offset) <= kMost) || offset != std::floor(offset)) {
        throw Error(path, "expected a whole number as vox_offset, found " + std::to_string(offset));
    }
    return static_cast<std::int64_t>(offset);
}

nifti_2_header widened(nifti_1_header const& narrow, std::int64_t voxelStart) {
    nifti_2_header wide{};
    std::copy(std::begin(narrow.dim), std::end(narrow.dim), std::begin(wide.dim));
    std::copy(std::begin(narrow.pixdim), std::end(narrow.pixdim), std::begin(wide.pixdim));
    wide.datatype = narrow.datatype;
    wide.bitpix = narrow.bitpix;
    wide.vox_offset = voxelStart;
    wide.scl_slope = narrow.scl_slope;
    wide.scl_inter = narrow.scl_inter;
    wide.xyzt_units = static_cast<unsigned char>(narrow.xyzt_units);
    wide.intent_code = narrow.intent_code;
    wide.qform_code = narrow.qform_code;
    wide.sform_code = narrow.sform_code;
    wide.quatern_b = narrow.quatern_b;
    wide.quatern_c = narrow.quatern_c;
    wide.quatern_d = narrow.quatern_d;
    wide.qoffset_x = narrow.qoffset_x;
    wide.qoffset_y = narrow.qoffset_y;
    wide.qoffset_z = narrow.qoffset_z;
    std::copy(std::begin(narrow.srow_x), std::end(narrow.srow_x), std::begin(wide.srow_x));
    std::copy(std::begin(narrow.srow_y), std::end(narrow.srow_y), std::begin(wide.srow_y));
    std::copy(std::begin(narrow.srow_z), std::end(narrow.srow_z), std::begin(wide.srow_z));
    std::copy(std::begin(narrow.magic), std::end(narrow.magic), std::begin(wide.magic));
    return wide;
}

// Returns the version that the magic names, 0 for Analyze, which has none.
int versionOf(fs::path const& path, char const* magic, int version) {
    // The line ends of NIfTI-2 show a transfer as text.
    std::string const single = version == 2 ? std::string("n+2\0\r\n\032\n", 8) : std::string("n+1\0", 4);
    std::string pair = single;
    pair[1] = 'i';
    std::string const found(magic, single.size());
    if (found == single || found == pair) {
        return version;
    }
    // Of Analyze's number in this place nothing is known; a magic with one byte damaged would lose the orientation.
    int const alike =
        (found[0] == 'n' ? 1 : 0) + (found[1] == 'i' || found[1] == '+' ? 1 : 0) + (found[2] == '1' ? 1 : 0);
    if (version == 2 || alike >= 2) {
        throw Error(path, "expected the magic \"n+" + std::to_string(version) + "\" or \"ni" + std::to_string(version) +
                              "\" of NIfTI-" + std::to_string(version) + "; the header is damaged");
    }
    return 0;
}

Raw readRaw(fs::path const& path, ByteSource& source) {
    std::array<unsigned char, sizeof(nifti_2_header)> bytes{};
    std::int32_t size = 0;
    if (!source.read(bytes.data(), sizeof(nifti_1_header))) {
        throw Error(path, "expected a NIfTI or Analyze header of 348 bytes or more; the file is damaged or truncated");
    }
    std::memcpy(&size, bytes.data(), sizeof(size));
    // The sizes 348 and 540 with their bytes reversed.
    constexpr std::int32_t kForeign1 = 0x5C010000;
    constexpr std::int32_t kForeign2 = 0x1C020000;
    Raw raw;
    bool const isForeign = size == kForeign1 || size == kForeign2;
    raw.isBigEndian = isForeign;
    if (size == sizeof(nifti_1_header) || size == kForeign1) {
        nifti_1_header narrow{};
        std::memcpy(&narrow, bytes.data(), sizeof(narrow));
        if (isForeign) {
            nifti_swap_as_nifti1(&narrow);
        }
        raw.version = versionOf(path, narrow.magic, 1);
        raw.fields = widened(narrow, wholeOffset(path, narrow.vox_offset));
    } else if (size == sizeof(nifti_2_header) || size == kForeign2) {
        if (!source.read(bytes.data() + sizeof(nifti_1_header), sizeof(nifti_2_header) - sizeof(nifti_1_header))) {
            throw Error(path, "expected a NIfTI-2 header of 540 bytes; the file is damaged or truncated");
        }
        std::memcpy(&raw.fields, bytes.data(), sizeof(raw.fields));
        if (isForeign) {
            nifti_swap_as_nifti2(&raw.fields);
        }
        raw.version = versionOf(path, raw.fields.magic, 2);
    } else {
        throw Error(path, "expected a NIfTI or Analyze header, whose first number is 348 or 540, found " +
                              std::to_string(size));
    }
    return raw;
}

void setSizes(VolumeHeader& volume, nifti_2_header const& raw, fs::path const& path) {
    std::int64_t const dimensions = raw.dim[0];
    if (dimensions < 1 || dimensions > 7) {
        throw Error(path, "expected 1 to 7 dimensions, found " + std::to_string(dimensions));
    }
    volume.size = {1, 1, 1};
    for (std::int64_t i = 1; i <= dimensions; ++i) {
        std::int64_t const side = raw.dim[i];
        if (side < 1) {
            throw Error(path, "expected sides of at least 1, found dim[" + std::to_string(i) + "] of " +
                                  std::to_string(side));
        }
        if (i <= 3) {
            volume.size[static_cast<std::size_t>(i - 1)] = side;
        } else if (volume.frames > INT64_MAX / side) {
            throw Error(path, "expected less than 2^63 frames");
        } else {
            volume.frames *= side;
        }
    }
    if (!isCountable(volume.size)) {
        throw Error(path, "expected a volume of less than 2^60 voxels, found " + text(volume.size, " x "));
    }
}

void setType(VolumeHeader& volume, nifti_2_header const& raw, fs::path const& path) {
    int const code = raw.datatype;
    auto const* const found = std::find_if(kDatatypes.begin(), kDatatypes.end(),
                                           [code](Datatype const& candidate) { return candidate.code == code; });
    if (found == kDatatypes.end()) {
        bool const isColour = code == DT_RGB24 || code == DT_RGBA32;
        throw Error(path, std::string("expected a volume of one scalar per voxel, found ") +
                              (isColour ? "a colour image" : "voxels of another kind") + ": datatype " +
                              std::to_string(code) + " (" + nifti_datatype_to_string(code) + ")");
    }
    volume.type = found->type;
    if (raw.bitpix != 8 * bytesOf(found->type)) {
        throw Error(path, "expected " + std::to_string(8 * bytesOf(found->type)) + " as bitpix of " +
                              std::string(nameOf(found->type)) + ", found " + std::to_string(raw.bitpix));
    }
}

void setScale(VolumeHeader& volume, nifti_2_header const& raw) {
    if (!std::isfinite(raw.scl_slope) || !std::isfinite(raw.scl_inter)) {
        volume.notes.emplace_back("scl_slope or scl_inter is not finite; values are taken as stored");
    } else if (raw.scl_slope != 0) {
        volume.slope = raw.scl_slope;
        volume.intercept = raw.scl_inter;
    }
}

// Returns how many millimetres a length of 1 is, and names the unit.
double setUnit(VolumeHeader& volume, int units) {
    int const unit = XYZT_TO_SPACE(units);
    volume.geometry.fileUnit = unit == NIFTI_UNITS_METER    ? "m"
                               : unit == NIFTI_UNITS_MM     ? "mm"
                               : unit == NIFTI_UNITS_MICRON ? "um"
                                                            : "";
    if (unit > NIFTI_UNITS_MICRON) {
        volume.notes.push_back("the unit of lengths " + std::to_string(unit) +
                               " is not known; millimetres are assumed");
    }
    return volume.geometry.fileUnit.empty() ? 1 : millimetresPer(volume.geometry.fileUnit);
}

NiftiMatrix sform(nifti_2_header const& raw) {
    NiftiMatrix matrix{};
    std::copy(std::begin(raw.srow_x), std::end(raw.srow_x), matrix[0].begin());
    std::copy(std::begin(raw.srow_y), std::end(raw.srow_y), matrix[1].begin());
    std::copy(std::begin(raw.srow_z), std::end(raw.srow_z), matrix[2].begin());
    return matrix;
}

NiftiMatrix qform(nifti_2_header const& raw) {
    // All zeros where the header holds NaN, of which the library would make some turn.
    NiftiMatrix matrix{};
    for (double const number :
         {raw.quatern_b, raw.quatern_c, raw.quatern_d, raw.pixdim[1], raw.pixdim[2], raw.pixdim[3]}) {
        if (!std::isfinite(number)) {
            return matrix;
        }
    }
    // A qfac of -1 makes the frame left-handed.
    auto const found = nifti_quatern_to_dmat44(
        raw.quatern_b, raw.quatern_c, raw.quatern_d, raw.qoffset_x, raw.qoffset_y, raw.qoffset_z,
        std::abs(raw.pixdim[1]), std::abs(raw.pixdim[2]), std::abs(raw.pixdim[3]), raw.pixdim[0] < 0 ? -1 : 1);
    for (std::size_t row = 0; row < 3; ++row) {
        std::copy(std::begin(found.m[row]), std::end(found.m[row]), matrix[row].begin());
    }
    return matrix;
}

void setGeometry(VolumeHeader& volume, Raw const& raw) {
    NiftiSpace space;
    space.pixdim = {raw.fields.pixdim[1], raw.fields.pixdim[2], raw.fields.pixdim[3]};
    // In the place of codes and units Analyze has other fields.
    if (!raw.isAnalyze()) {
        space.millimetresPerUnit = setUnit(volume, raw.fields.xyzt_units);
        space.sform = raw.fields.sform_code > 0 ? std::optional(sform(raw.fields)) : std::nullopt;
        space.qform = raw.fields.qform_code > 0 ? std::optional(qform(raw.fields)) : std::nullopt;
    }
    setNiftiGeometry(volume, space);
}

} // namespace

NiftiHeader readNiftiHeader(fs::path const& path, Packing packing) {
    auto const source = openBytes(path, 0, packing);
    Raw const raw = readRaw(path, *source);
    NiftiHeader header;
    header.isBigEndian = raw.isBigEndian;
    header.isSingleFile = !raw.isAnalyze() && raw.fields.magic[1] == '+';
    // Where voxels follow, they are read to the end of the stream.
    if (!header.isSingleFile && !source->finish()) {
        throw Error(path, "expected a complete compressed file; it is damaged or truncated");
    }
    std::size_t const headerBytes = raw.version == 2 ? sizeof(nifti_2_header) : sizeof(nifti_1_header);
    std::int64_t const least = header.isSingleFile ? static_cast<std::int64_t>(headerBytes) : 0;
    if (raw.fields.vox_offset < least) {
        throw Error(path, "expected a vox_offset of at least " + std::to_string(least) + ", found " +
                              std::to_string(raw.fields.vox_offset));
    }
    header.voxelStart = static_cast<std::uint64_t>(raw.fields.vox_offset);
    VolumeHeader& volume = header.volume;
    volume.format = raw.formatName();
    setSizes(volume, raw.fields, path);
    setType(volume, raw.fields, path);
    setGeometry(volume, raw);
    if (!raw.isAnalyze()) {
        setScale(volume, raw.fields);
        volume.isLabelMap =
            raw.fields.intent_code == NIFTI_INTENT_LABEL || raw.fields.intent_code == NIFTI_INTENT_NEURONAME;
    }
    return header;
}

} // namespace tamo::volume
