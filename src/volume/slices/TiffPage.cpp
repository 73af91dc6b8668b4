// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TiffPage.h"

#include "../Error.h"
#include "../bytes/halfToFloat.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace tamo::volume {

namespace {

// Returns the type of the numbers that pixels are read as.
ScalarType typeOf(std::uint16_t bits, std::uint16_t format, std::filesystem::path const& path) {
    std::string kind = "uint";
    if (format == SAMPLEFORMAT_INT) {
        kind = "int";
    } else if (format == SAMPLEFORMAT_IEEEFP) {
        kind = "float";
    } else if (format == SAMPLEFORMAT_COMPLEXINT || format == SAMPLEFORMAT_COMPLEXIEEEFP) {
        kind = "complex";
    }
    std::string const name = kind + std::to_string(bits);
    if (name == "uint1" || name == "uint2" || name == "uint4") {
        return ScalarType::UInt8;
    }
    if (name == "float16") {
        return ScalarType::Float32;
    }
    auto const type = std::find_if(kScalarTypes.begin(), kScalarTypes.end(),
                                   [&name](ScalarTypeInfo const& candidate) { return candidate.name == name; });
    if (type == kScalarTypes.end()) {
        throw Error(path, "expected TIFF samples of 1, 2, 4, 8, 16, 32 or 64 bits, found " + name);
    }
    return type->type;
}

// To how many bytes a byte of a page can expand. LZW: 12 bits for a string of up to 4096; PackBits: 2 bytes for 128;
// Deflate: 2 bits for 258; JPEG: a bit for 64. The others have no such bound, but no page in use comes near this one.
std::uint64_t mostPerByte(std::uint16_t compression) {
    switch (compression) {
    case COMPRESSION_NONE:
        return 1;
    case COMPRESSION_PACKBITS:
        return 64;
    case COMPRESSION_JPEG:
        return 512;
    case COMPRESSION_ADOBE_DEFLATE:
    case COMPRESSION_DEFLATE:
        return 1032;
    case COMPRESSION_LZW:
        return 4096;
    default:
        return 65536;
    }
}

std::uint64_t bytesOfRow(std::int64_t width, std::uint16_t bits) {
    return (static_cast<std::uint64_t>(width) * bits + 7) / 8;
}

} // namespace

bool isReducedPage(TiffHandle const& file) {
    auto const kinds = file.tag<std::uint32_t>(TIFFTAG_SUBFILETYPE).value_or(0);
    return (kinds & (FILETYPE_REDUCEDIMAGE | FILETYPE_MASK)) != 0;
}

TiffPage currentPage(TiffHandle const& file) {
    TiffPage page;
    page.directory = TIFFCurrentDirOffset(file.get());
    page.bits = file.tagOrDefault<std::uint16_t>(TIFFTAG_BITSPERSAMPLE);
    // A page without the tag is taken for one whose 0 is black: 0 is the number of the other kind.
    auto const photometric = file.tag<std::uint16_t>(TIFFTAG_PHOTOMETRIC).value_or(PHOTOMETRIC_MINISBLACK);
    if (file.tagOrDefault<std::uint16_t>(TIFFTAG_SAMPLESPERPIXEL) != 1 || photometric == PHOTOMETRIC_PALETTE) {
        throwColour(file.path());
    }
    if (std::uint32_t const depth = file.tag<std::uint32_t>(TIFFTAG_IMAGEDEPTH).value_or(1); depth > 1) {
        throw Error(file.path(), "expected pages of one slice, found pages of " + std::to_string(depth) +
                                     " slices; save each slice as a page of its own");
    }
    page.isZeroWhite = photometric == PHOTOMETRIC_MINISWHITE;
    page.isTurned = file.tagOrDefault<std::uint16_t>(TIFFTAG_ORIENTATION) > ORIENTATION_TOPLEFT;
    page.type = typeOf(page.bits, file.tagOrDefault<std::uint16_t>(TIFFTAG_SAMPLEFORMAT), file.path());
    page.width = file.tagOrDefault<std::uint32_t>(TIFFTAG_IMAGEWIDTH);
    page.height = file.tagOrDefault<std::uint32_t>(TIFFTAG_IMAGELENGTH);
    if (page.width < 1 || page.height < 1 || page.width > INT32_MAX || page.height > INT32_MAX ||
        static_cast<std::uint64_t>(TIFFScanlineSize64(file.get())) != bytesOfRow(page.width, page.bits)) {
        file.throwDamaged();
    }
    return page;
}

std::string noteOf(TiffPage const& page) {
    std::string note =
        page.isTurned
            ? "the file asks to show its slices turned or mirrored; their rows and columns are left as they are"
            : "";
    if (page.isZeroWhite) {
        note += std::string(note.empty() ? "" : "; ") + "0 is white in the file; its values are " +
                (page.isInverted() ? "inverted, so that brighter is higher" : "left as they are");
    }
    return note;
}

void checkUnpacked(TiffHandle const& file, std::uint64_t& unpacked) {
    bool const isTiled = TIFFIsTiled(file.get()) != 0;
    std::uint64_t const parts =
        isTiled ? TIFFNumberOfTiles(file.get()) : file.tagOrDefault<std::uint32_t>(TIFFTAG_IMAGELENGTH);
    std::uint64_t const partBytes = isTiled ? TIFFTileSize64(file.get()) : TIFFScanlineSize64(file.get());
    std::uint64_t const most = mostPerByte(file.tagOrDefault<std::uint16_t>(TIFFTAG_COMPRESSION));
    constexpr std::uint64_t kMostTotal = INT64_MAX;
    if (partBytes == 0 || parts > (kMostTotal - unpacked) / partBytes) {
        file.throwDamaged();
    }
    unpacked += parts * partBytes;
    if (unpacked / most > file.fileBytes()) {
        file.throwDamaged();
    }
}

void convertPixels(TiffPage const& page, unsigned char const* stored, std::int64_t count, unsigned char* target) {
    auto const pixels = static_cast<std::size_t>(count);
    if (page.bits < 8) {
        std::size_t const perByte = 8U / page.bits;
        unsigned int const most = (1U << page.bits) - 1;
        for (std::size_t x = 0; x < pixels; ++x) {
            auto const shift = static_cast<unsigned int>(8 - page.bits * (x % perByte + 1));
            unsigned int const value = static_cast<unsigned int>(stored[x / perByte]) >> shift & most;
            target[x] = static_cast<unsigned char>(page.isInverted() ? most - value : value);
        }
    } else if (page.type == ScalarType::Float32 && page.bits == 16) {
        for (std::size_t x = 0; x < pixels; ++x) {
            std::uint16_t half = 0;
            std::memcpy(&half, stored + 2 * x, 2);
            float const value = halfToFloat(half);
            std::memcpy(target + 4 * x, &value, 4);
        }
    } else {
        std::size_t const bytes = pixels * static_cast<std::size_t>(bytesOf(page.type));
        // The largest value minus another one is that one with all bits changed.
        std::transform(stored, stored + bytes, target, [mask = page.isInverted() ? 0xFF : 0](unsigned char byte) {
            return static_cast<unsigned char>(byte ^ mask);
        });
    }
}

namespace {

class TiffPicture : public Picture {
  public:
    TiffPicture(std::shared_ptr<TiffHandle> file, TiffPage const& page)
        : Picture(file->path()), _file(std::move(file)), _page(page) {
        setShape(page.width, page.height, page.type, page.bits);
        setNote(noteOf(page));
    }

  private:
    [[nodiscard]] std::size_t targetRowBytes() const {
        return static_cast<std::size_t>(_page.width) * static_cast<std::size_t>(bytesOf(_page.type));
    }

    void readRows(std::int64_t first, std::int64_t last, unsigned char* target) override {
        _file->select(_page.directory);
        // The file may be another one than the one that was described.
        std::uint64_t unpacked = 0;
        checkUnpacked(*_file, unpacked);
        if (!currentPage(*_file).isLike(_page)) {
            _file->throwDamaged();
        }
        if (TIFFIsTiled(_file->get()) != 0) {
            readTiles(first, last, target);
        } else {
            readStrips(first, last, target);
        }
        _file->check();
    }

    // Rows of a compressed strip can only be read from its first on.
    void readStrips(std::int64_t first, std::int64_t last, unsigned char* target) {
        auto const perStrip = std::int64_t{_file->tagOrDefault<std::uint32_t>(TIFFTAG_ROWSPERSTRIP)};
        if (perStrip < 1) {
            _file->throwDamaged();
        }
        std::vector<unsigned char> row(bytesOfRow(_page.width, _page.bits));
        for (std::int64_t y = first / perStrip * perStrip; y <= last; ++y) {
            if (TIFFReadScanline(_file->get(), row.data(), static_cast<std::uint32_t>(y), 0) < 0) {
                _file->throwDamaged();
            }
            if (y >= first) {
                convertPixels(_page, row.data(), _page.width, target);
                target += targetRowBytes();
            }
        }
    }

    void readTiles(std::int64_t first, std::int64_t last, unsigned char* target) {
        auto const tileWidth = std::int64_t{_file->tagOrDefault<std::uint32_t>(TIFFTAG_TILEWIDTH)};
        auto const tileHeight = std::int64_t{_file->tagOrDefault<std::uint32_t>(TIFFTAG_TILELENGTH)};
        std::uint64_t const rowBytes = bytesOfRow(tileWidth, _page.bits);
        std::vector<unsigned char> tile(static_cast<std::size_t>(TIFFTileSize64(_file->get())));
        if (tileWidth < 1 || tileHeight < 1 || tile.size() / rowBytes < static_cast<std::uint64_t>(tileHeight)) {
            _file->throwDamaged();
        }
        auto const pixelBytes = static_cast<std::int64_t>(bytesOf(_page.type));
        for (std::int64_t top = first / tileHeight * tileHeight; top <= last; top += tileHeight) {
            for (std::int64_t x = 0; x < _page.width; x += tileWidth) {
                if (TIFFReadTile(_file->get(), tile.data(), static_cast<std::uint32_t>(x),
                                 static_cast<std::uint32_t>(top), 0, 0) < 0) {
                    _file->throwDamaged();
                }
                for (std::int64_t y = std::max(first, top); y <= std::min(last, top + tileHeight - 1); ++y) {
                    convertPixels(_page, tile.data() + static_cast<std::uint64_t>(y - top) * rowBytes,
                                  std::min(tileWidth, _page.width - x),
                                  target + ((y - first) * _page.width + x) * pixelBytes);
                }
            }
        }
    }

    std::shared_ptr<TiffHandle> _file;
    TiffPage _page;
};

} // namespace

std::unique_ptr<Picture> pictureOf(std::shared_ptr<TiffHandle> file, TiffPage const& page) {
    return std::make_unique<TiffPicture>(std::move(file), page);
}

} // namespace tamo::volume
