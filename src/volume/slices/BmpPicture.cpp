// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "Picture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace tamo::volume {

namespace {

std::uint32_t numberAt(unsigned char const* bytes, std::ptrdiff_t count) {
    std::uint32_t number = 0;
    for (std::ptrdiff_t i = count - 1; i >= 0; --i) {
        number = number << 8U | bytes[i];
    }
    return number;
}

class BmpPicture : public Picture {
  public:
    explicit BmpPicture(std::filesystem::path const& path) : Picture(path), _file(openToRead(path)) {
        // The file's header, and of the picture's the part that all kinds have.
        std::array<unsigned char, 18> start{};
        readBytes(start.data(), start.size());
        if (start[0] != 'B' || start[1] != 'M') {
            throwDamaged(path, "BMP");
        }
        _offset = numberAt(&start[10], 4);
        readPictureHeader(numberAt(&start[14], 4));
        checkSize();
    }

  private:
    void readBytes(unsigned char* target, std::size_t bytes) const {
        if (std::fread(target, 1, bytes, _file.get()) != bytes) {
            throwDamaged(path(), "BMP");
        }
    }

    void readPictureHeader(std::uint32_t headerBytes) {
        constexpr std::uint32_t kCoreBytes = 12;
        constexpr std::uint32_t kMostBytes = 124;
        bool const isCore = headerBytes == kCoreBytes;
        if (!isCore && (headerBytes < 40 || headerBytes > kMostBytes)) {
            throwDamaged(path(), "BMP");
        }
        std::array<unsigned char, kMostBytes> header{};
        readBytes(&header[4], headerBytes - 4);
        std::ptrdiff_t const side = isCore ? 2 : 4;
        auto const width = static_cast<std::int32_t>(numberAt(&header[4], side));
        auto const height = static_cast<std::int32_t>(numberAt(&header[4] + side, side));
        _isTopDown = height < 0;
        setShape(width, std::abs(std::int64_t{height}), ScalarType::UInt8, 8);
        _bits = numberAt(&header[6] + 2 * side, 2);
        std::uint32_t const compression = isCore ? 0 : numberAt(&header[16], 4);
        if (_bits == 16 || _bits == 24 || _bits == 32) {
            throwColour(path());
        }
        if ((_bits != 1 && _bits != 4 && _bits != 8) || compression != 0) {
            throw Error(path(), "expected a BMP file of 1, 4 or 8 bits per pixel without compression, found " +
                                    std::to_string(_bits) + " bits, compression " + std::to_string(compression));
        }
        readPalette(isCore ? 3 : 4, isCore ? 0 : numberAt(&header[32], 4));
    }

    void readPalette(std::size_t entryBytes, std::uint32_t coloursUsed) {
        std::uint32_t const most = 1U << _bits;
        std::uint32_t const colours = coloursUsed == 0 ? most : coloursUsed;
        if (colours > most) {
            throwDamaged(path(), "BMP");
        }
        std::vector<unsigned char> entries(colours * entryBytes);
        readBytes(entries.data(), entries.size());
        for (std::size_t i = 0; i < entries.size(); i += entryBytes) {
            if (entries[i] != entries[i + 1] || entries[i] != entries[i + 2]) {
                throwColour(path());
            }
            _greys.push_back(entries[i]);
        }
        if (_offset < static_cast<std::uint64_t>(std::ftell(_file.get()))) {
            throwDamaged(path(), "BMP");
        }
    }

    // Rows are padded to whole groups of 4 bytes.
    [[nodiscard]] std::uint64_t rowBytes() const { return (static_cast<std::uint64_t>(width()) * _bits + 31) / 32 * 4; }

    void checkSize() const {
        std::uint64_t const expected = _offset + rowBytes() * static_cast<std::uint64_t>(height());
        std::uint64_t const found = std::filesystem::file_size(path());
        if (found < expected) {
            throw Error(path(), "expected " + std::to_string(expected) + " bytes, found " + std::to_string(found) +
                                    "; the file is damaged or truncated");
        }
    }

    void readRows(std::int64_t first, std::int64_t last, unsigned char* target) override {
        std::vector<unsigned char> row(rowBytes());
        for (std::int64_t y = first; y <= last; ++y, target += width()) {
            auto const stored = static_cast<std::uint64_t>(_isTopDown ? y : height() - 1 - y);
            if (fseeko(_file.get(), static_cast<off_t>(_offset + stored * rowBytes()), SEEK_SET) != 0) {
                throwDamaged(path(), "BMP");
            }
            readBytes(row.data(), row.size());
            unpack(row, target);
        }
    }

    // The leftmost pixel is in the highest bits of its byte.
    void unpack(std::vector<unsigned char> const& row, unsigned char* target) const {
        std::uint32_t const mask = (1U << _bits) - 1;
        std::uint32_t const perByte = 8 / _bits;
        for (std::size_t x = 0; x < static_cast<std::size_t>(width()); ++x) {
            auto const shift = static_cast<std::uint32_t>(8 - _bits * (x % perByte + 1));
            std::uint32_t const entry = row[x / perByte] >> shift & mask;
            if (entry >= _greys.size()) {
                throw Error(path(), "expected a palette with an entry " + std::to_string(entry) +
                                        ", which a pixel names, found " + std::to_string(_greys.size()) +
                                        " entries; the file is damaged");
            }
            target[x] = _greys[entry];
        }
    }

    File _file;
    std::uint64_t _offset = 0;
    std::uint32_t _bits = 0;
    bool _isTopDown = false;
    std::vector<unsigned char> _greys;
};

} // namespace

std::unique_ptr<Picture> openBmpPicture(std::filesystem::path const& path) {
    return std::make_unique<BmpPicture>(path);
}

} // namespace tamo::volume
