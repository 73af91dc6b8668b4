// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "ByteSource.h"

#include <fstream>

namespace tamo::volume {

/// The bytes of a file as they stand, from a place on.
class FileBytes : public ByteSource {
  public:
    FileBytes(std::filesystem::path const& path, std::uint64_t start);

    [[nodiscard]] bool read(unsigned char* target, std::uint64_t bytes) override;
    [[nodiscard]] bool skip(std::uint64_t bytes) override;
    /// Returns true: nothing says where the bytes should end.
    [[nodiscard]] bool finish() override { return true; }

    /// Reads at most `bytes` bytes and returns how many there were.
    std::uint64_t readSome(unsigned char* target, std::uint64_t bytes);

  private:
    std::ifstream _file;
};

} // namespace tamo::volume
