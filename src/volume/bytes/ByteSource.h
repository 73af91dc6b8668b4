// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>

namespace tamo::volume {

/// The bytes of voxels in the order in which they stand, whatever they are packed in.
class ByteSource {
  public:
    virtual ~ByteSource() = default;
    ByteSource() = default;
    ByteSource(ByteSource const&) = delete;
    ByteSource& operator=(ByteSource const&) = delete;

    /// Writes the next `bytes` bytes to `target`; returns false where the source is damaged or ends before.
    [[nodiscard]] virtual bool read(unsigned char* target, std::uint64_t bytes) = 0;
    /// Leaves out the next `bytes` bytes; returns false likewise. Costs nothing where the bytes are not packed.
    [[nodiscard]] virtual bool skip(std::uint64_t bytes) = 0;
    /// Reads on to the end of what is packed and to its check sum; returns whether they are as they should be.
    [[nodiscard]] virtual bool finish() = 0;

    /// Has `beat` called again and again while packed bytes that nobody wants are unpacked, by `skip` and `finish`,
    /// which may take minutes. It may throw in order to cancel.
    void setPulse(std::function<void()> beat) { _beat = std::move(beat); }

  protected:
    void pulse() const {
        if (_beat) {
            _beat();
        }
    }

  private:
    std::function<void()> _beat;
};

/// How bytes are packed.
enum class Packing {
    None,
    /// zlib or gzip; a gzip file may consist of several streams, one after another.
    Gzip,
    /// Several streams, one after another, likewise.
    Bzip2,
    /// Two hexadecimal digits per byte, the higher one first, blanks and line breaks anywhere between them.
    Hex,
};

/// Opens the bytes of a file from byte `start` of the file on. A file that cannot be read has no bytes.
std::unique_ptr<ByteSource> openBytes(std::filesystem::path const& path, std::uint64_t start, Packing packing);

/// Returns how a file is packed by its first bytes, whatever its name: `None` or `Gzip`.
Packing packingOf(std::filesystem::path const& path);

/// Returns how many bytes `packed` bytes may hold at most: what a header claims beyond that needs no memory.
std::uint64_t mostUnpackedBytes(Packing packing, std::uint64_t packed);

} // namespace tamo::volume
