// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "FileBytes.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace tamo::volume {

namespace {

// A stream drops its buffer wherever it is moved, and reads thousands of bytes for a row of a few; pread does neither.
int openFile(std::filesystem::path const& path) { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }

} // namespace

FileBytes::FileBytes(std::filesystem::path const& path, std::uint64_t start) : _file(openFile(path)) {
    static_cast<void>(skip(start));
}

FileBytes::~FileBytes() {
    if (_file >= 0) {
        close(_file);
    }
}

bool FileBytes::read(unsigned char* target, std::uint64_t bytes) { return readSome(target, bytes) == bytes; }

bool FileBytes::skip(std::uint64_t bytes) {
    // Files have signed sizes: no byte lies behind the largest of them, where the position then stays.
    constexpr auto kEnd = static_cast<std::uint64_t>(INT64_MAX);
    bool const isPossible = bytes <= kEnd - _position;
    _position = isPossible ? _position + bytes : kEnd;
    return isPossible;
}

std::uint64_t FileBytes::readSome(unsigned char* target, std::uint64_t bytes) {
    // What one call may ask for at most, whatever the system.
    constexpr std::uint64_t kMost = 1U << 30U;
    std::uint64_t done = 0;
    while (done < bytes && _file >= 0) {
        auto const got = pread(_file, target + done, std::min(bytes - done, kMost), static_cast<off_t>(_position));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            break;
        }
        done += static_cast<std::uint64_t>(got);
        _position += static_cast<std::uint64_t>(got);
    }
    return done;
}

} // namespace tamo::volume
