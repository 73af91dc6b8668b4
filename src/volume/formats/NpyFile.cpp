// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../bytes/halfToFloat.h"
#include "../chooseOne.h"
#include "NpyHeader.h"
#include "StoredFile.h"
#include "VolumeFormats.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

struct Dtype {
    std::string_view name;
    ScalarType type;
};

// Without the byte order. Halves are read as numbers of 16 bits first.
constexpr std::array<Dtype, 12> kDtypes{{{"b1", ScalarType::UInt8},
                                         {"u1", ScalarType::UInt8},
                                         {"i1", ScalarType::Int8},
                                         {"u2", ScalarType::UInt16},
                                         {"i2", ScalarType::Int16},
                                         {"u4", ScalarType::UInt32},
                                         {"i4", ScalarType::Int32},
                                         {"u8", ScalarType::UInt64},
                                         {"i8", ScalarType::Int64},
                                         {"f2", ScalarType::UInt16},
                                         {"f4", ScalarType::Float32},
                                         {"f8", ScalarType::Float64}}};

// Turns `count` halves, which fill the second half of the target, into floats that fill all of it.
void widenHalves(unsigned char* target, std::uint64_t count) {
    unsigned char const* const halves = target + 2 * count;
    // In this order: a float covers no half behind its own.
    for (std::uint64_t i = 0; i < count; ++i) {
        std::uint16_t bits = 0;
        std::memcpy(&bits, halves + 2 * i, sizeof(bits));
        float const value = halfToFloat(bits);
        std::memcpy(target + 4 * i, &value, sizeof(value));
    }
}

class NpyFile : public VolumeFile {
  public:
    NpyFile(fs::path const& path, VolumeHeader header, VoxelFiles voxels, bool isFortranOrder, bool isHalf)
        : VolumeFile(path, std::move(header)), _voxels(std::move(voxels)), _isFortranOrder(isFortranOrder),
          _isHalf(isHalf) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override {
        auto const count = static_cast<std::uint64_t>(voxelCount(box.sides()));
        unsigned char* const stored = _isHalf ? target + 2 * count : target;
        if (!_isFortranOrder) {
            _voxels.read(box, stored, progress);
        } else if (!readReversed(box, stored, progress)) {
            throw Error(path(), "expected all voxels of the box; the file cannot be read to its end");
        }
        if (_isHalf) {
            widenHalves(target, count);
        }
    }

    // Reads voxels whose frame is fastest, then z, then y, then x: rows of frames and z, slices of constant x.
    [[nodiscard]] bool readReversed(Box const& box, unsigned char* target, Progress const& progress) const {
        Size3 const size = _voxels.rows.size;
        Size3 const sides = box.sides();
        VoxelRows const rows{{_voxels.frames * size[2], size[1], size[0]}, _voxels.rows.type, _voxels.rows.isBigEndian};
        std::int64_t const firstInRow = box.first[2] * _voxels.frames + header().frame;
        std::int64_t const lastInRow = box.last[2] * _voxels.frames + header().frame;
        std::int64_t const sliceBytes = (lastInRow - firstInRow + 1) * sides[1] * bytesOf(rows.type);
        // Several slices at once make neighbours along x, which are written one behind another; within 64 MiB.
        constexpr std::int64_t kMostBytes = 1 << 26;
        std::int64_t const most =
            std::clamp<std::int64_t>(kMostBytes / sliceBytes, 1, std::min<std::int64_t>(16, sides[0]));
        std::vector<unsigned char> slices(static_cast<std::size_t>(most * sliceBytes));
        for (std::int64_t x = 0; x < sides[0]; x += most) {
            std::int64_t const count = std::min(most, sides[0] - x);
            Box const part{{firstInRow, box.first[1], box.first[0] + x},
                           {lastInRow, box.last[1], box.first[0] + x + count - 1}};
            if (!readBox(*openBytes(path(), _voxels.start, Packing::None), rows, part, slices.data(), {})) {
                return false;
            }
            turn(slices.data(), sliceBytes, count, sides, target + x * bytesOf(rows.type));
            report(progress, static_cast<double>(x + count) / static_cast<double>(sides[0]));
        }
        return true;
    }

    // Writes `count` slices of constant x, as `readReversed` reads them, into rows along x.
    void turn(unsigned char const* slices, std::int64_t sliceBytes, std::int64_t count, Size3 const& sides,
              unsigned char* target) const {
        std::int64_t const voxel = bytesOf(_voxels.rows.type);
        std::int64_t const rowBytes = sliceBytes / sides[1];
        for (std::int64_t z = 0; z < sides[2]; ++z) {
            for (std::int64_t y = 0; y < sides[1]; ++y, target += sides[0] * voxel) {
                unsigned char const* const first = slices + y * rowBytes + z * _voxels.frames * voxel;
                for (std::int64_t x = 0; x < count; ++x) {
                    std::memcpy(target + x * voxel, first + x * sliceBytes, static_cast<std::size_t>(voxel));
                }
            }
        }
    }

    VoxelFiles _voxels;
    bool _isFortranOrder;
    bool _isHalf;
};

// The name of the type without the byte order, which goes to `isBigEndian`.
std::string_view withoutOrder(std::string_view descr, bool& isBigEndian) {
    bool const hasOrder = !descr.empty() && std::string_view("<>=|").find(descr[0]) != std::string_view::npos;
    isBigEndian = hasOrder && descr[0] == '>';
    if (!hasOrder || descr[0] == '=') {
        isBigEndian = isBigEndianMachine();
    }
    return descr.substr(hasOrder ? 1 : 0);
}

// Takes the last of the array's axes as x, the first of four as the frame: the order in which NumPy indexes an image.
void setShape(VolumeHeader& header, std::vector<std::int64_t> const& shape, fs::path const& path) {
    if (shape.size() != 3 && shape.size() != 4) {
        throw Error(path, "expected a 3-D volume, or 4-D for frames of them, found an array of " +
                              std::to_string(shape.size()) + " dimensions");
    }
    header.size = {shape[shape.size() - 1], shape[shape.size() - 2], shape[shape.size() - 3]};
    header.frames = shape.size() == 4 ? shape[0] : 1;
    if (!isCountable(header.size) || header.frames == 0) {
        throw Error(path, "expected at least one volume, of less than 2^60 voxels, found " +
                              std::to_string(header.frames) + " of " + text(header.size, " x "));
    }
}

} // namespace

std::unique_ptr<VolumeFile> openNpy(VolumeSource const& source, Progress const&) {
    NpyHeader const npy = readNpyHeader(source.path);
    VoxelFiles voxels;
    std::string_view const name = withoutOrder(npy.descr, voxels.rows.isBigEndian);
    auto const* const dtype =
        std::find_if(kDtypes.begin(), kDtypes.end(), [name](Dtype const& candidate) { return candidate.name == name; });
    if (dtype == kDtypes.end()) {
        throw Error(source.path, "expected an array of whole or floating-point numbers, found " +
                                     (npy.descr.empty() ? "one of several fields" : "the type \"" + npy.descr + "\""));
    }
    bool const isHalf = name == "f2";
    VolumeHeader header;
    header.format = "NumPy";
    header.type = isHalf ? ScalarType::Float32 : dtype->type;
    setShape(header, npy.shape, source.path);
    voxels.paths = {source.path};
    voxels.start = npy.start;
    voxels.rows.size = header.size;
    voxels.rows.type = dtype->type;
    voxels.frames = header.frames;
    voxels.check();
    if (std::uint64_t const behind = voxels.bytesBehind(); behind > 0) {
        throw Error(source.path, "expected an array that ends with the file, found " + std::to_string(behind) +
                                     " more bytes; the file is damaged");
    }
    header.frame = chooseOne(source.path, "frame", header.frames, source.frame);
    voxels.frame = header.frame;
    return std::make_unique<NpyFile>(source.path, std::move(header), std::move(voxels), npy.isFortranOrder, isHalf);
}

} // namespace tamo::volume
