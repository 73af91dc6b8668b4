// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "PackedBytes.h"

#include <zlib.h>

namespace tamo::volume {

/// What a zlib or gzip stream in a file expands to; a gzip stream may be followed by others.
class GzipBytes : public PackedBytes {
  public:
    GzipBytes(std::filesystem::path const& path, std::uint64_t start);
    ~GzipBytes() override;

  private:
    std::uint64_t unpack(unsigned char* target, std::uint64_t bytes) override;
    [[nodiscard]] bool isComplete() const override { return _isAtEnd; }
    void expand();
    void fill();
    bool startNextMember();

    z_stream _stream{};
    bool _isGood = false;
    bool _isAtEnd = false;
};

} // namespace tamo::volume
