// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "ByteSource.h"

#include <memory>
#include <vector>

namespace tamo::volume {

/// One volume of several whose numbers take turns: the first number of each, then the second of each, and so on.
class InterleavedBytes : public ByteSource {
  public:
    /// Takes numbers of `scalarBytes` bytes in turns of `count` numbers, and of each turn the number `which`. Only
    /// whole numbers can be read and skipped.
    InterleavedBytes(std::unique_ptr<ByteSource> turns, std::uint64_t scalarBytes, std::uint64_t count,
                     std::uint64_t which);

    [[nodiscard]] bool read(unsigned char* target, std::uint64_t bytes) override;
    [[nodiscard]] bool skip(std::uint64_t bytes) override;
    [[nodiscard]] bool finish() override { return _turns->finish(); }

  private:
    [[nodiscard]] bool readWide(unsigned char* target, std::uint64_t numbers);

    std::unique_ptr<ByteSource> _turns;
    std::uint64_t _scalarBytes;
    std::uint64_t _count;
    std::uint64_t _which;
    std::vector<unsigned char> _buffer;
};

} // namespace tamo::volume
