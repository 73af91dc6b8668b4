// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tiffio.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace tamo::volume {

/// A TIFF file that is open at one of its pages. What the library would print is kept to the handle, so that files may
/// be read on several threads, each through a handle of its own.
class TiffHandle {
  public:
    /// Opens the first page. Throws `Error`.
    explicit TiffHandle(std::filesystem::path const& path);

    [[nodiscard]] std::filesystem::path const& path() const { return _path; }
    [[nodiscard]] TIFF* get() const { return _tiff.get(); }
    [[nodiscard]] std::uint64_t fileBytes() const { return _fileBytes; }

    /// Goes on to the next page; returns false after the last. Throws `Error` where the file is damaged, also where its
    /// pages lead in a circle.
    [[nodiscard]] bool advance();
    /// Goes to the page whose directory begins at a byte of the file. Throws `Error`.
    void select(std::uint64_t directory);

    /// Returns a tag of the current page, which has to be of the type that the library gives it.
    template <typename T> [[nodiscard]] std::optional<T> tag(std::uint32_t name) const {
        T value{};
        return TIFFGetField(get(), name, &value) != 0 ? std::optional(value) : std::nullopt;
    }
    /// The same, or what the format says of pages that lack the tag.
    template <typename T> [[nodiscard]] T tagOrDefault(std::uint32_t name) const {
        T value{};
        TIFFGetFieldDefaulted(get(), name, &value);
        return value;
    }
    /// Returns the current page's ImageDescription, or nothing.
    [[nodiscard]] std::string description() const;

    /// Throws `Error` where the library has complained of damage.
    void check() const;
    /// Throws the `Error` for a file that is damaged.
    [[noreturn]] void throwDamaged() const;

  private:
    struct Close {
        void operator()(TIFF* file) const { TIFFClose(file); }
    };

    std::filesystem::path _path;
    std::uint64_t _fileBytes;
    // Its address is the library's, so that it stays where the handle moves.
    std::unique_ptr<bool> _isDamaged;
    std::unique_ptr<TIFF, Close> _tiff;
};

} // namespace tamo::volume
