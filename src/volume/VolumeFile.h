// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Box.h"
#include "Progress.h"
#include "Volume.h"
#include "VolumeHeader.h"

#include <filesystem>
#include <utility>

namespace tamo::volume {

/// A file, or a folder, whose header is read and whose voxels are not yet.
///
/// Each format derives a class of its own, which states the header and knows how to find voxels.
class VolumeFile {
  public:
    virtual ~VolumeFile() = default;
    VolumeFile(VolumeFile const&) = delete;
    VolumeFile& operator=(VolumeFile const&) = delete;

    [[nodiscard]] std::filesystem::path const& path() const { return _path; }
    [[nodiscard]] VolumeHeader const& header() const { return _header; }

    /// Reads the voxels of a box that lies inside the volume, from the file as far as its encoding allows no more than
    /// those. May be called again, and by several threads at once. Throws `Error` where the file does not hold them,
    /// where it is damaged, was changed since it was opened, or where they do not fit into memory, and `Cancelled`;
    /// `std::logic_error` for a box outside of the volume.
    [[nodiscard]] Volume read(Box const& box, Progress const& progress) const;

    /// Gives the header what the caller of `openVolume` knows better than the file.
    void setHeader(VolumeHeader header) { _header = std::move(header); }

  protected:
    VolumeFile(std::filesystem::path path, VolumeHeader header) : _path(std::move(path)), _header(std::move(header)) {}

  private:
    /// Writes the voxels of a box that lies inside to `target`, x fastest, then y, then z, without gaps, in the
    /// machine's byte order. Throws `Error` where it cannot: nothing that the file does not hold may be made up.
    virtual void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const = 0;

    std::filesystem::path _path;
    VolumeHeader _header;
};

} // namespace tamo::volume
