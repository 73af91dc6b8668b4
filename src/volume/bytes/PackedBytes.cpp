// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "PackedBytes.h"

#include <algorithm>
#include <cstring>

namespace tamo::volume {

namespace {

constexpr std::size_t kBufferBytes = 1 << 16;

} // namespace

PackedBytes::PackedBytes(std::filesystem::path const& path, std::uint64_t start)
    : _file(path, start), _input(kBufferBytes), _output(kBufferBytes) {}

bool PackedBytes::read(unsigned char* target, std::uint64_t bytes) {
    while (bytes > 0) {
        if (_first == _last) {
            if (bytes >= kBufferBytes) {
                return unpack(target, bytes) == bytes;
            }
            fillOutput();
            if (_first == _last) {
                return false;
            }
        }
        std::uint64_t const part = std::min<std::uint64_t>(bytes, _last - _first);
        std::memcpy(target, _output.data() + _first, part);
        _first += part;
        target += part;
        bytes -= part;
    }
    return true;
}

bool PackedBytes::skip(std::uint64_t bytes) {
    while (bytes > 0) {
        if (_first == _last) {
            pulse();
            fillOutput();
            if (_first == _last) {
                return false;
            }
        }
        std::uint64_t const part = std::min<std::uint64_t>(bytes, _last - _first);
        _first += part;
        bytes -= part;
    }
    return true;
}

bool PackedBytes::finish() {
    do {
        pulse();
        fillOutput();
    } while (_first != _last);
    return isComplete();
}

void PackedBytes::fillOutput() {
    _first = 0;
    _last = unpack(_output.data(), kBufferBytes);
}

std::size_t PackedBytes::refill(unsigned char const* next, std::size_t left) {
    if (left > 0) {
        std::memmove(_input.data(), next, left);
    }
    return left + _file.readSome(_input.data() + left, kBufferBytes - left);
}

} // namespace tamo::volume
