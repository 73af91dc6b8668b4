// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "FileBytes.h"

namespace tamo::volume {

FileBytes::FileBytes(std::filesystem::path const& path, std::uint64_t start) : _file(path, std::ios::binary) {
    if (!skip(start)) {
        _file.setstate(std::ios::failbit);
    }
}

bool FileBytes::read(unsigned char* target, std::uint64_t bytes) { return readSome(target, bytes) == bytes; }

bool FileBytes::skip(std::uint64_t bytes) {
    // Files have signed sizes; a place behind the end shows once bytes are read from there.
    return bytes <= static_cast<std::uint64_t>(INT64_MAX) &&
           _file.seekg(static_cast<std::streamoff>(bytes), std::ios::cur);
}

std::uint64_t FileBytes::readSome(unsigned char* target, std::uint64_t bytes) {
    if (!_file) {
        return 0;
    }
    _file.read(reinterpret_cast<char*>(target), static_cast<std::streamsize>(bytes));
    return static_cast<std::uint64_t>(_file.gcount());
}

} // namespace tamo::volume
