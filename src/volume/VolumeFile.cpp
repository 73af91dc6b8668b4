// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeFile.h"

#include "Error.h"

#include <new>
#include <stdexcept>

namespace tamo::volume {

Volume VolumeFile::read(Box const& box, Progress const& progress) const {
    if (!isInside(box, _header.size)) {
        throw std::logic_error("a box outside of its volume");
    }
    Volume volume;
    volume.header = _header;
    volume.box = box;
    Size3 const size = box.sides();
    std::ptrdiff_t const voxel = bytesOf(_header.type);
    volume.increments = {voxel, voxel * size[0], voxel * size[0] * size[1]};
    try {
        // Not cleared: every byte is overwritten.
        std::shared_ptr<unsigned char> memory(new unsigned char[volume.bytes()],
                                              std::default_delete<unsigned char[]>());
        volume.voxels = memory.get();
        readVoxels(box, memory.get(), progress);
        volume.memory = std::move(memory);
    } catch (std::bad_alloc const&) {
        throw Error(_path, "expected a volume that fits into memory, found " + text(size, " x ") + " voxels of " +
                               std::to_string(voxel) + " bytes; give a smaller box");
    }
    return volume;
}

} // namespace tamo::volume
