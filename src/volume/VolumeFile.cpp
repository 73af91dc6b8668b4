// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeFile.h"

#include "Error.h"

#include <sys/mman.h>

#include <new>
#include <stdexcept>

namespace tamo::volume {

namespace {

// The size of a large page.
constexpr std::align_val_t kPage{std::size_t{1} << 21U};

void deleteLarge(unsigned char* address) { ::operator delete[](address, kPage); }

// Returns memory that is not cleared: every byte will be overwritten. In large pages, where there are enough bytes for
// many: the first touch of each page of 4 KiB costs more than to copy what it holds.
std::shared_ptr<unsigned char> allocate(std::uint64_t bytes) {
    constexpr std::uint64_t kMany = std::uint64_t{1} << 25U;
    if (bytes < kMany) {
        return {new unsigned char[bytes], std::default_delete<unsigned char[]>()};
    }
    auto* const memory = static_cast<unsigned char*>(::operator new[](bytes, kPage));
    // A wish only: systems without large pages refuse it.
    static_cast<void>(madvise(memory, bytes, MADV_HUGEPAGE));
    return {memory, deleteLarge};
}

} // namespace

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
        std::shared_ptr<unsigned char> memory = allocate(volume.bytes());
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
