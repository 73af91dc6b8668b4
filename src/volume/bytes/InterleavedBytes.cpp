// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "InterleavedBytes.h"

#include <algorithm>
#include <cstring>

namespace tamo::volume {

namespace {

constexpr std::uint64_t kBufferBytes = 1 << 18;

} // namespace

InterleavedBytes::InterleavedBytes(std::unique_ptr<ByteSource> turns, std::uint64_t scalarBytes, std::uint64_t count,
                                   std::uint64_t which)
    : _turns(std::move(turns)), _scalarBytes(scalarBytes), _count(count), _which(which), _buffer(kBufferBytes) {}

bool InterleavedBytes::read(unsigned char* target, std::uint64_t bytes) {
    std::uint64_t const turnBytes = _count * _scalarBytes;
    std::uint64_t const most = kBufferBytes / turnBytes;
    if (most == 0) {
        return readWide(target, bytes / _scalarBytes);
    }
    for (std::uint64_t left = bytes / _scalarBytes; left > 0;) {
        std::uint64_t const part = std::min(left, most);
        if (!_turns->read(_buffer.data(), part * turnBytes)) {
            return false;
        }
        unsigned char const* from = _buffer.data() + _which * _scalarBytes;
        for (std::uint64_t i = 0; i < part; ++i, from += turnBytes, target += _scalarBytes) {
            std::memcpy(target, from, _scalarBytes);
        }
        left -= part;
    }
    return true;
}

// Takes single numbers out of turns that are longer than the buffer.
bool InterleavedBytes::readWide(unsigned char* target, std::uint64_t numbers) {
    for (; numbers > 0; --numbers, target += _scalarBytes) {
        if (!_turns->skip(_which * _scalarBytes) || !_turns->read(target, _scalarBytes) ||
            !_turns->skip((_count - 1 - _which) * _scalarBytes)) {
            return false;
        }
    }
    return true;
}

bool InterleavedBytes::skip(std::uint64_t bytes) {
    return bytes <= UINT64_MAX / _count && _turns->skip(bytes * _count);
}

} // namespace tamo::volume
