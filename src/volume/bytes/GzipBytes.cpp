// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "GzipBytes.h"

#include <algorithm>
#include <limits>

namespace tamo::volume {

namespace {

constexpr std::size_t kBufferBytes = 1 << 16;

} // namespace

GzipBytes::GzipBytes(std::filesystem::path const& path, std::uint64_t start)
    : _file(path, start), _input(kBufferBytes), _unwanted(kBufferBytes) {
    // 32 more than the largest window makes zlib tell the two kinds of stream apart.
    constexpr int kAnyHeader = MAX_WBITS + 32;
    _isGood = inflateInit2(&_stream, kAnyHeader) == Z_OK;
}

GzipBytes::~GzipBytes() { inflateEnd(&_stream); }

bool GzipBytes::read(unsigned char* target, std::uint64_t bytes) {
    constexpr std::uint64_t kMost = std::numeric_limits<unsigned int>::max();
    while (bytes > 0) {
        auto const part = static_cast<unsigned int>(std::min(bytes, kMost));
        _stream.next_out = target;
        _stream.avail_out = part;
        while (_isGood && _stream.avail_out > 0) {
            expand();
        }
        if (_stream.avail_out > 0) {
            return false;
        }
        target += part;
        bytes -= part;
    }
    return true;
}

bool GzipBytes::skip(std::uint64_t bytes) {
    while (bytes > 0) {
        std::uint64_t const part = std::min<std::uint64_t>(bytes, kBufferBytes);
        if (!read(_unwanted.data(), part)) {
            return false;
        }
        bytes -= part;
    }
    return true;
}

bool GzipBytes::finish() {
    while (_isGood && !_isAtEnd) {
        _stream.next_out = _unwanted.data();
        _stream.avail_out = static_cast<unsigned int>(kBufferBytes);
        expand();
    }
    return _isAtEnd;
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

// Moves what is left of the input to the front of its buffer and reads on behind it.
void GzipBytes::fill() {
    if (_stream.avail_in > 0) {
        std::copy_n(_stream.next_in, _stream.avail_in, _input.begin());
    }
    std::uint64_t const got = _file.readSome(_input.data() + _stream.avail_in, _input.size() - _stream.avail_in);
    _stream.next_in = _input.data();
    _stream.avail_in += static_cast<unsigned int>(got);
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
