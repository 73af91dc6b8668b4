// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "ByteSource.h"
#include "FileBytes.h"

#include <vector>

namespace tamo::volume {

/// Bytes that have to be unpacked: what all packings share.
///
/// Long reads are unpacked into their target. Short ones, and what is skipped, go through a buffer: unpacking a few
/// bytes at a time is slow.
class PackedBytes : public ByteSource {
  public:
    PackedBytes(std::filesystem::path const& path, std::uint64_t start);

    [[nodiscard]] bool read(unsigned char* target, std::uint64_t bytes) final;
    [[nodiscard]] bool skip(std::uint64_t bytes) final;
    [[nodiscard]] bool finish() final;

  protected:
    /// Moves `left` packed bytes that are still wanted to the front of the input and reads on behind them. Returns how
    /// many there are then.
    std::size_t refill(unsigned char const* next, std::size_t left);
    /// Returns the front of the input.
    [[nodiscard]] unsigned char* input() { return _input.data(); }

  private:
    /// Unpacks at most `bytes` bytes and returns how many there were: fewer at the end only, or where the packed bytes
    /// are damaged or end too early.
    virtual std::uint64_t unpack(unsigned char* target, std::uint64_t bytes) = 0;
    /// Returns whether everything was unpacked, with nothing missing.
    [[nodiscard]] virtual bool isComplete() const = 0;
    void fillOutput();

    FileBytes _file;
    std::vector<unsigned char> _input;
    std::vector<unsigned char> _output;
    // What is unpacked and not used yet: the bytes of _output from _first to _last.
    std::size_t _first = 0;
    std::size_t _last = 0;
};

} // namespace tamo::volume
