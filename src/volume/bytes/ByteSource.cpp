// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ByteSource.h"

#include "Bzip2Bytes.h"
#include "FileBytes.h"
#include "GzipBytes.h"
#include "HexBytes.h"

#include <array>

namespace tamo::volume {

std::unique_ptr<ByteSource> openBytes(std::filesystem::path const& path, std::uint64_t start, Packing packing) {
    switch (packing) {
    case Packing::None:
        break;
    case Packing::Gzip:
        return std::make_unique<GzipBytes>(path, start);
    case Packing::Bzip2:
        return std::make_unique<Bzip2Bytes>(path, start);
    case Packing::Hex:
        return std::make_unique<HexBytes>(path, start);
    }
    return std::make_unique<FileBytes>(path, start);
}

Packing packingOf(std::filesystem::path const& path) {
    // The magic of RFC 1952.
    std::array<unsigned char, 2> first{};
    bool const isGzip = FileBytes(path, 0).read(first.data(), first.size()) && first[0] == 0x1F && first[1] == 0x8B;
    return isGzip ? Packing::Gzip : Packing::None;
}

std::uint64_t mostUnpackedBytes(Packing packing, std::uint64_t packed) {
    // deflate: a match of 258 bytes takes two bits at least. bzip2: a block holds up to 900000 bytes of runs, 255 bytes
    // in five of them, and takes 24 bytes at least.
    constexpr std::uint64_t kMostOfDeflate = 258 * 8 / 2;
    constexpr std::uint64_t kMostOfBzip2 = 900000ULL / 5 * 255 / 24;
    std::uint64_t const factor = packing == Packing::Gzip    ? kMostOfDeflate
                                 : packing == Packing::Bzip2 ? kMostOfBzip2
                                                             : 1;
    if (packing == Packing::Hex) {
        return packed / 2;
    }
    return packed > UINT64_MAX / factor ? UINT64_MAX : packed * factor;
}

} // namespace tamo::volume
