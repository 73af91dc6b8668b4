// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../bytes/TextVoxels.h"
#include "../chooseOne.h"
#include "LegacyVtkHeader.h"
#include "StoredFile.h"
#include "VolumeFormats.h"

#include <cmath>
#include <vector>

namespace tamo::volume {

namespace {

// Structured points whose voxels are decimal numbers.
class VtkTextFile : public VolumeFile {
  public:
    VtkTextFile(std::filesystem::path const& path, LegacyVtkHeader const& header)
        : VolumeFile(path, header.volume), _start(header.start), _areShares(header.areShares) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override {
        if (!(_areShares ? readShares(box, target, progress) : readNumbers(header().type, box, target, progress))) {
            throw Error(path(), "expected a number of the voxels' type for each; the file is damaged or truncated");
        }
    }

    [[nodiscard]] bool readNumbers(ScalarType type, Box const& box, unsigned char* target,
                                   Progress const& progress) const {
        return readTextBox(path(), _start, {header().size, type}, box, target, progress);
    }

    // Reads bytes that are written as shares of 255.
    [[nodiscard]] bool readShares(Box const& box, unsigned char* target, Progress const& progress) const {
        std::vector<float> shares(static_cast<std::size_t>(voxelCount(box.sides())));
        if (!readNumbers(ScalarType::Float32, box, reinterpret_cast<unsigned char*>(shares.data()), progress)) {
            return false;
        }
        for (float const share : shares) {
            if (!(share >= 0 && share <= 1)) {
                return false;
            }
            *target++ = static_cast<unsigned char>(std::lround(share * 255));
        }
        return true;
    }

    std::uint64_t _start;
    bool _areShares;
};

} // namespace

std::unique_ptr<VolumeFile> openLegacyVtk(VolumeSource const& source, Progress const& progress) {
    LegacyVtkHeader header = readLegacyVtkHeader(source.path, progress);
    header.volume.frame = chooseOne(source.path, "frame", 1, source.frame);
    if (header.isText) {
        return std::make_unique<VtkTextFile>(source.path, header);
    }
    StoredVoxels voxels;
    voxels.path = source.path;
    voxels.start = header.start;
    voxels.rows = {header.volume.size, header.volume.type, /*isBigEndian=*/true};
    return std::make_unique<StoredFile>(source.path, std::move(header.volume), std::move(voxels));
}

} // namespace tamo::volume
