// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../chooseOne.h"
#include "StoredFile.h"
#include "VolumeFormats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <optional>
#include <string>

namespace tamo::volume {

namespace {

// The header, of which only the first 90 bytes are used.
constexpr std::size_t kHeaderBytes = 284;

// Its numbers, all big-endian, by their places.
class Fields {
  public:
    explicit Fields(std::array<unsigned char, kHeaderBytes> const& bytes) : _bytes(bytes) {}

    [[nodiscard]] std::int32_t whole(std::size_t at) const { return number<std::int32_t>(at); }
    [[nodiscard]] std::int16_t shortWhole(std::size_t at) const { return number<std::int16_t>(at); }
    // Returns three numbers one behind another.
    [[nodiscard]] Vector3 vector(std::size_t at) const {
        return {number<float>(at), number<float>(at + sizeof(float)), number<float>(at + 2 * sizeof(float))};
    }

  private:
    template <typename T> [[nodiscard]] T number(std::size_t at) const {
        std::array<unsigned char, sizeof(T)> bytes{};
        std::copy_n(_bytes.begin() + static_cast<std::ptrdiff_t>(at), sizeof(T), bytes.begin());
        if (!isBigEndianMachine()) {
            std::reverse(bytes.begin(), bytes.end());
        }
        T value{};
        std::memcpy(&value, bytes.data(), sizeof(T));
        return value;
    }

    std::array<unsigned char, kHeaderBytes> const& _bytes;
};

constexpr std::size_t kVersionAt = 0;
constexpr std::size_t kSidesAt = 4;
constexpr std::size_t kFramesAt = 16;
constexpr std::size_t kTypeAt = 20;
constexpr std::size_t kGoodRasAt = 28;
constexpr std::size_t kSpacingAt = 30;
constexpr std::size_t kAxesAt = 42;
constexpr std::size_t kCentreAt = 78;

std::optional<ScalarType> typeOf(std::int32_t code) {
    switch (code) {
    case 0:
        return ScalarType::UInt8;
    case 1:
        return ScalarType::Int32;
    case 3:
        return ScalarType::Float32;
    case 4:
        return ScalarType::Int16;
    case 10:
        return ScalarType::UInt16;
    default:
        return {};
    }
}

Fields readFields(std::filesystem::path const& path, Packing packing, std::array<unsigned char, kHeaderBytes>& bytes) {
    if (!openBytes(path, 0, packing)->read(bytes.data(), bytes.size())) {
        throw Error(path, "expected an MGH header of 284 bytes; the file is damaged or truncated");
    }
    Fields const fields(bytes);
    if (fields.whole(kVersionAt) != 1) {
        throw Error(path, "expected the MGH version 1, found " + std::to_string(fields.whole(kVersionAt)));
    }
    return fields;
}

void setSizes(VolumeHeader& header, Fields const& fields, std::filesystem::path const& path) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        header.size[axis] = fields.whole(kSidesAt + 4 * axis);
    }
    header.frames = fields.whole(kFramesAt);
    if (*std::min_element(header.size.begin(), header.size.end()) < 1 || header.frames < 1) {
        throw Error(path, "expected sides and frames of at least 1, found " + text(header.size, " x ") + " x " +
                              std::to_string(header.frames));
    }
    if (!isCountable(header.size)) {
        throw Error(path, "expected a volume of less than 2^60 voxels, found " + text(header.size, " x "));
    }
    auto const type = typeOf(fields.whole(kTypeAt));
    if (!type) {
        throw Error(path, "expected a volume of one scalar per voxel, of the MGH type 0, 1, 3, 4 or 10, found " +
                              std::to_string(fields.whole(kTypeAt)));
    }
    header.type = *type;
}

// Puts the first voxel where the centre of the volume, half its sides from there, is at `centre`.
void setOrigin(VolumeHeader& header, Vector3 const& centre) {
    header.geometry.origin = centre;
    header.geometry.origin = header.geometry.position({-0.5 * static_cast<double>(header.size[0]),
                                                       -0.5 * static_cast<double>(header.size[1]),
                                                       -0.5 * static_cast<double>(header.size[2])});
}

bool setStatedGeometry(VolumeHeader& header, Fields const& fields) {
    Vector3 const spacing = fields.vector(kSpacingAt);
    Vector3 const centre = fields.vector(kCentreAt);
    std::array<Vector3, 3> steps{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        Vector3 const direction = flippedToLps(fields.vector(kAxesAt + 12 * axis));
        steps[axis] = {direction[0] * spacing[axis], direction[1] * spacing[axis], direction[2] * spacing[axis]};
        if (!std::isfinite(centre[axis]) || !(spacing[axis] > 0)) {
            return false;
        }
    }
    if (!header.geometry.setSteps(steps)) {
        return false;
    }
    setOrigin(header, flippedToLps(centre));
    header.geometry.isOriginKnown = true;
    return true;
}

// For files that state no geometry the format itself names one, that of its own program: coronal slices of 1 mm about
// the origin, x to the left, y down, z to the front. Taken as an assumption, which --spacing and --orientation replace.
void setDefaultGeometry(VolumeHeader& header) {
    header.geometry.axes = {{{1, 0, 0}, {0, 0, -1}, {0, -1, 0}}};
    setOrigin(header, {0, 0, 0});
}

} // namespace

std::unique_ptr<VolumeFile> openMgh(VolumeSource const& source, Progress const&) {
    VoxelFiles voxels;
    voxels.paths = {source.path};
    voxels.packing = packingOf(source.path);
    std::array<unsigned char, kHeaderBytes> bytes{};
    Fields const fields = readFields(source.path, voxels.packing, bytes);
    VolumeHeader header;
    header.format = voxels.packing == Packing::Gzip ? "MGZ" : "MGH";
    setSizes(header, fields, source.path);
    bool const isStated = fields.shortWhole(kGoodRasAt) > 0;
    if (!isStated || !setStatedGeometry(header, fields)) {
        setDefaultGeometry(header);
        header.notes.emplace_back(
            std::string(isStated ? "the geometry spans no space" : "the header states no geometry") +
            "; coronal slices of 1 mm about the origin are assumed, as the format asks");
    }
    // Behind the voxels stand the scanner's parameters, which say nothing of the volume.
    voxels.skipped = kHeaderBytes;
    voxels.rows = {header.size, header.type, /*isBigEndian=*/true};
    voxels.frames = header.frames;
    voxels.check();
    header.frame = chooseOne(source.path, "frame", header.frames, source.frame);
    return openVoxelFiles(source, std::move(header), std::move(voxels));
}

} // namespace tamo::volume
