// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "ByteSource.h"

namespace tamo::volume {

/// The bytes of a file as they stand, from a place on, read straight into their target: there is no buffer between.
class FileBytes : public ByteSource {
  public:
    FileBytes(std::filesystem::path const& path, std::uint64_t start);
    ~FileBytes() override;

    [[nodiscard]] bool read(unsigned char* target, std::uint64_t bytes) override;
    /// A place behind the file's end shows once bytes are read from there.
    [[nodiscard]] bool skip(std::uint64_t bytes) override;
    /// Returns true: nothing says where the bytes should end.
    [[nodiscard]] bool finish() override { return true; }

    /// Reads at most `bytes` bytes and returns how many there were: fewer at the end of the file, and where it cannot
    /// be read.
    std::uint64_t readSome(unsigned char* target, std::uint64_t bytes);

  private:
    int _file;
    std::uint64_t _position = 0;
};

} // namespace tamo::volume
