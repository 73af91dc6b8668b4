// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Bzip2Bytes.h"

#include <algorithm>
#include <cstring>

namespace tamo::volume {

Bzip2Bytes::Bzip2Bytes(std::filesystem::path const& path, std::uint64_t start)
    : PackedBytes(path, start), _isGood(this->start()) {}

Bzip2Bytes::~Bzip2Bytes() { BZ2_bzDecompressEnd(&_stream); }

bool Bzip2Bytes::start() { return BZ2_bzDecompressInit(&_stream, /*verbosity=*/0, /*small=*/0) == BZ_OK; }

std::uint64_t Bzip2Bytes::unpack(unsigned char* target, std::uint64_t bytes) {
    constexpr std::uint64_t kMost = 1U << 30U;
    std::uint64_t done = 0;
    while (_isGood && done < bytes) {
        auto const part = static_cast<unsigned int>(std::min(bytes - done, kMost));
        _stream.next_out = reinterpret_cast<char*>(target + done);
        _stream.avail_out = part;
        while (_isGood && _stream.avail_out > 0) {
            expand();
        }
        done += part - _stream.avail_out;
    }
    return done;
}

void Bzip2Bytes::expand() {
    if (_stream.avail_in == 0) {
        fill();
    }
    unsigned int const packed = _stream.avail_in;
    unsigned int const room = _stream.avail_out;
    int const result = BZ2_bzDecompress(&_stream);
    _isAtEnd = result == BZ_STREAM_END;
    // Unlike zlib, this library calls it well where nothing is left to read and nothing came out.
    bool const hasMoved = packed > 0 || _stream.avail_out < room;
    _isGood = (result == BZ_OK && hasMoved) || (_isAtEnd && startNextStream());
}

void Bzip2Bytes::fill() {
    _stream.avail_in =
        static_cast<unsigned int>(refill(reinterpret_cast<unsigned char const*>(_stream.next_in), _stream.avail_in));
    _stream.next_in = reinterpret_cast<char*>(input());
}

bool Bzip2Bytes::startNextStream() {
    constexpr std::size_t kMagicBytes = 3;
    if (_stream.avail_in < kMagicBytes) {
        fill();
    }
    if (_stream.avail_in < kMagicBytes || std::memcmp(_stream.next_in, "BZh", kMagicBytes) != 0) {
        return false;
    }
    // The library has no way to begin anew but this; what concerns input and output stays.
    _isAtEnd = false;
    BZ2_bzDecompressEnd(&_stream);
    return start();
}

} // namespace tamo::volume
