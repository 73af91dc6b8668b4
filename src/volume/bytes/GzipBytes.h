// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "FileBytes.h"

#include <zlib.h>

#include <vector>

namespace tamo::volume {

/// What a zlib or gzip stream in a file expands to; a gzip stream may be followed by others.
class GzipBytes : public ByteSource {
  public:
    GzipBytes(std::filesystem::path const& path, std::uint64_t start);
    ~GzipBytes() override;

    [[nodiscard]] bool read(unsigned char* target, std::uint64_t bytes) override;
    [[nodiscard]] bool skip(std::uint64_t bytes) override;
    [[nodiscard]] bool finish() override;

  private:
    void expand();
    void fill();
    bool startNextMember();

    FileBytes _file;
    std::vector<unsigned char> _input;
    std::vector<unsigned char> _unwanted;
    z_stream _stream{};
    bool _isGood = false;
    bool _isAtEnd = false;
};

} // namespace tamo::volume
