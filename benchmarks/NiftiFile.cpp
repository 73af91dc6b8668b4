// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NiftiFile.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <zlib.h>

namespace tamo::bench {

namespace {

// The fixed part of a file, of which the fields at these places matter here.
class Header {
  public:
    static constexpr std::size_t kSize = 348;

    unsigned char* bytes() { return _bytes.data(); }

    [[nodiscard]] std::int32_t headerSize() const { return field<std::int32_t>(0); }
    [[nodiscard]] int side(std::size_t axis) const { return field<std::int16_t>(42 + 2 * axis); }
    [[nodiscard]] int dataType() const { return field<std::int16_t>(70); }
    [[nodiscard]] float firstVoxel() const { return field<float>(108); }

  private:
    template <typename T> [[nodiscard]] T field(std::size_t place) const {
        T value{};
        std::memcpy(&value, _bytes.data() + place, sizeof value);
        return value;
    }

    std::array<unsigned char, kSize> _bytes{};
};

} // namespace

NiftiVolume readNifti(std::string const& file) {
    auto const require = [&file](bool condition, char const* expected) {
        if (!condition) {
            throw std::runtime_error(file + ": expected " + expected);
        }
    };
    constexpr int kUnsignedBytes = 2;
    std::unique_ptr<gzFile_s, int (*)(gzFile)> const stream(gzopen(file.c_str(), "rb"), gzclose);
    require(stream != nullptr, "a file that can be read");
    Header header;
    bool const isWhole = gzread(stream.get(), header.bytes(), Header::kSize) == static_cast<int>(Header::kSize);
    require(isWhole && header.headerSize() == static_cast<std::int32_t>(Header::kSize), "a NIfTI-1 volume");
    require(header.dataType() == kUnsignedBytes, "unsigned bytes as voxels");

    NiftiVolume volume{{header.side(0), header.side(1), header.side(2)}, {}};
    require(volume.size[0] > 0 && volume.size[1] > 0 && volume.size[2] > 0, "three sides of at least one voxel");
    volume.voxels.resize(static_cast<std::size_t>(volume.size[0]) * static_cast<std::size_t>(volume.size[1]) *
                         static_cast<std::size_t>(volume.size[2]));
    require(gzseek(stream.get(), static_cast<z_off_t>(header.firstVoxel()), SEEK_SET) >= 0, "voxels after the header");
    int const count = gzread(stream.get(), volume.voxels.data(), static_cast<unsigned int>(volume.voxels.size()));
    require(static_cast<std::size_t>(count) == volume.voxels.size(), "as many voxels as the header tells");
    return volume;
}

} // namespace tamo::bench
