// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../Box.h"
#include "../ScalarType.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace tamo::volume {

/// A picture file of one number per pixel whose header is read and whose pixels are not yet. Nothing is scaled: a pixel
/// of 1, 2 or 4 bits becomes an 8-bit number of the same value. The top row is row 0.
class Picture {
  public:
    virtual ~Picture() = default;
    Picture(Picture const&) = delete;
    Picture& operator=(Picture const&) = delete;

    [[nodiscard]] std::filesystem::path const& path() const { return _path; }
    [[nodiscard]] std::int64_t width() const { return _width; }
    [[nodiscard]] std::int64_t height() const { return _height; }
    [[nodiscard]] ScalarType type() const { return _type; }
    /// Returns of how many bits the file's numbers are: the range of 1, 2 and 4 does not show in the type.
    [[nodiscard]] int bits() const { return _bits; }
    /// Returns what is not as the file stores it, as a note of a header; empty where all is.
    [[nodiscard]] std::string const& note() const { return _note; }
    /// Returns whether both may be slices of one volume.
    [[nodiscard]] bool isLike(Picture const& other) const {
        return _width == other._width && _height == other._height && _type == other._type && _bits == other._bits &&
               _note == other._note;
    }

    /// Writes the pixels in the x and y range of a box that lies inside the picture to `target`, x fastest, without
    /// gaps, in the machine's byte order. May be called once. Throws `Error` where the file does not hold them.
    void read(Box const& box, unsigned char* target);

  protected:
    explicit Picture(std::filesystem::path path) : _path(std::move(path)) {}

    /// States what the header says. Throws `Error` where a side is not positive.
    void setShape(std::int64_t width, std::int64_t height, ScalarType type, int bits);
    void setNote(std::string note) { _note = std::move(note); }
    /// Throws `Error` where `unpackedBytes` bytes are more than the file can expand to, each byte to `mostPerByte`.
    void checkExpansion(std::uint64_t unpackedBytes, std::uint64_t mostPerByte) const;

  private:
    /// Writes whole rows, both ends included.
    virtual void readRows(std::int64_t first, std::int64_t last, unsigned char* target) = 0;

    std::filesystem::path _path;
    std::int64_t _width = 0;
    std::int64_t _height = 0;
    ScalarType _type = ScalarType::UInt8;
    int _bits = 8;
    std::string _note;
};

enum class PictureFormat {
    Png,
    Jpeg,
    Bmp,
    Tiff
};

/// Returns "PNG" and so on.
char const* nameOf(PictureFormat format);

/// Returns the format that the ending of a file's name stands for, in any case.
std::optional<PictureFormat> pictureFormatOf(std::filesystem::path const& path);

/// Opens a picture. Throws `Error` where the file cannot be read, is damaged as far as its header shows, is in colour
/// (a palette and a transparency count as such, a palette of greys in a BMP file does not), or has several pages.
std::unique_ptr<Picture> openPicture(std::filesystem::path const& path, PictureFormat format);

// The formats of `openPicture`.
std::unique_ptr<Picture> openPngPicture(std::filesystem::path const& path);
std::unique_ptr<Picture> openJpegPicture(std::filesystem::path const& path);
std::unique_ptr<Picture> openBmpPicture(std::filesystem::path const& path);
std::unique_ptr<Picture> openTiffPicture(std::filesystem::path const& path);

// What the formats share.

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a file to be read, or throws an `Error` that says why it cannot be.
File openToRead(std::filesystem::path const& path);

/// Throws the `Error` for a file that is not what its name promises: "expected a complete PNG file; ...".
[[noreturn]] void throwDamaged(std::filesystem::path const& path, char const* format);

/// Throws the `Error` for a picture of several numbers per pixel.
[[noreturn]] void throwColour(std::filesystem::path const& path);

} // namespace tamo::volume
