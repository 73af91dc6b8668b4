// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

namespace tamo::volume {

/// The bytes of a DICOM file, or of what a part of it expands to, read at any place.
class DicomBytes {
  public:
    virtual ~DicomBytes() = default;
    DicomBytes() = default;
    DicomBytes(DicomBytes const&) = delete;
    DicomBytes& operator=(DicomBytes const&) = delete;

    [[nodiscard]] virtual std::uint64_t size() const = 0;
    /// Writes `bytes` bytes from byte `at` on to `target`; returns false where they do not exist.
    [[nodiscard]] virtual bool read(std::uint64_t at, unsigned char* target, std::uint64_t bytes) = 0;
};

/// Opens a file. Throws `Error` for one that cannot be read.
std::unique_ptr<DicomBytes> openFileBytes(std::filesystem::path const& path);

/// Expands the deflate stream that a file holds from byte `start` on, in memory. Throws `Error` for one that is damaged
/// or not whole.
std::unique_ptr<DicomBytes> openDeflatedBytes(std::filesystem::path const& path, std::uint64_t start);

} // namespace tamo::volume
