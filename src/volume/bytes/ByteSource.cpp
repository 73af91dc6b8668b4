// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ByteSource.h"

#include "FileBytes.h"
#include "GzipBytes.h"

namespace tamo::volume {

std::unique_ptr<ByteSource> openBytes(std::filesystem::path const& path, std::uint64_t start, Packing packing) {
    if (packing == Packing::Gzip) {
        return std::make_unique<GzipBytes>(path, start);
    }
    return std::make_unique<FileBytes>(path, start);
}

} // namespace tamo::volume
