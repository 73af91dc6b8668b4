// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "PackedBytes.h"

#include <bzlib.h>

namespace tamo::volume {

/// What a bzip2 stream in a file expands to, and those that follow it.
class Bzip2Bytes : public PackedBytes {
  public:
    Bzip2Bytes(std::filesystem::path const& path, std::uint64_t start);
    ~Bzip2Bytes() override;

  private:
    std::uint64_t unpack(unsigned char* target, std::uint64_t bytes) override;
    [[nodiscard]] bool isComplete() const override { return _isAtEnd; }
    void expand();
    void fill();
    bool startNextStream();
    bool start();

    bz_stream _stream{};
    bool _isGood = false;
    bool _isAtEnd = false;
};

} // namespace tamo::volume
