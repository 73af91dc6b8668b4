// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "PackedBytes.h"

namespace tamo::volume {

/// Bytes written as pairs of hexadecimal digits, with blanks and line breaks anywhere between the digits. Any other
/// character is damage, and so is a digit without its fellow.
class HexBytes : public PackedBytes {
  public:
    HexBytes(std::filesystem::path const& path, std::uint64_t start) : PackedBytes(path, start) {}

  private:
    std::uint64_t unpack(unsigned char* target, std::uint64_t bytes) override;
    [[nodiscard]] bool isComplete() const override { return _isAtEnd && _pending < 0; }

    unsigned char const* _next = nullptr;
    unsigned char const* _last = nullptr;
    // The first digit of a byte whose second one is still to come, or -1.
    int _pending = -1;
    bool _isAtEnd = false;
    bool _isDamaged = false;
};

} // namespace tamo::volume
