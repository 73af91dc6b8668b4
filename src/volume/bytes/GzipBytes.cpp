// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "GzipBytes.h"

#include <algorithm>

namespace tamo::volume {

GzipBytes::GzipBytes(std::filesystem::path const& path, std::uint64_t start) : PackedBytes(path, start) {
    // 32 more than the largest window makes zlib tell the two kinds of stream apart.
    constexpr int kAnyHeader = MAX_WBITS + 32;
    _isGood = inflateInit2(&_stream, kAnyHeader) == Z_OK;
}

GzipBytes::~GzipBytes() { inflateEnd(&_stream); }

std::uint64_t GzipBytes::unpack(unsigned char* target, std::uint64_t bytes) {
    constexpr std::uint64_t kMost = 1U << 30U;
    std::uint64_t done = 0;
    while (_isGood && done < bytes) {
        auto const part = static_cast<unsigned int>(std::min(bytes - done, kMost));
        _stream.next_out = target + done;
        _stream.avail_out = part;
        while (_isGood && _stream.avail_out > 0) {
            expand();
        }
        done += part - _stream.avail_out;
    }
    return done;
}

void GzipBytes::expand() {
    if (_stream.avail_in == 0) {
        fill();
    }
    int const result = inflate(&_stream, Z_NO_FLUSH);
    _isAtEnd = result == Z_STREAM_END;
    // Without input inflate reports that it could not go on: the file ends before the stream.
    _isGood = result == Z_OK || (_isAtEnd && startNextMember());
}

void GzipBytes::fill() {
    _stream.avail_in = static_cast<unsigned int>(refill(_stream.next_in, _stream.avail_in));
    _stream.next_in = input();
}

bool GzipBytes::startNextMember() {
    if (_stream.avail_in < 2) {
        fill();
    }
    bool const isMore = _stream.avail_in > 1 && _stream.next_in[0] == 0x1F && _stream.next_in[1] == 0x8B;
    if (isMore) {
        _isAtEnd = false;
        return inflateReset(&_stream) == Z_OK;
    }
    return false;
}

} // namespace tamo::volume
