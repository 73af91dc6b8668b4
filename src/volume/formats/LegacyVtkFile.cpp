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

// Structured points whose bytes are written as shares of 255, in decimal.
class VtkSharesFile : public VolumeFile {
  public:
    VtkSharesFile(std::filesystem::path const& path, LegacyVtkHeader const& header)
        : VolumeFile(path, header.volume), _start(header.start) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override {
        std::vector<float> shares(static_cast<std::size_t>(voxelCount(box.sides())));
        bool isGood = readTextBox(path(), _start, {header().size, ScalarType::Float32}, box,
                                  reinterpret_cast<unsigned char*>(shares.data()), progress);
        for (std::size_t i = 0; i < shares.size() && isGood; ++i) {
            isGood = shares[i] >= 0 && shares[i] <= 1;
            target[i] = static_cast<unsigned char>(isGood ? std::lround(shares[i] * 255) : 0);
        }
        if (!isGood) {
            throw Error(path(), "expected a number from 0 to 1 for each voxel; the file is damaged or truncated");
        }
    }

    std::uint64_t _start;
};

} // namespace

std::unique_ptr<VolumeFile> openLegacyVtk(VolumeSource const& source, Progress const& progress) {
    LegacyVtkHeader header = readLegacyVtkHeader(source.path, progress);
    header.volume.frame = chooseOne(source.path, "frame", 1, source.frame);
    if (header.areShares) {
        return std::make_unique<VtkSharesFile>(source.path, header);
    }
    VoxelFiles voxels;
    voxels.paths = {source.path};
    voxels.start = header.start;
    voxels.isText = header.isText;
    voxels.rows.isBigEndian = true;
    return openVoxelFiles(source, std::move(header.volume), std::move(voxels));
}

} // namespace tamo::volume
