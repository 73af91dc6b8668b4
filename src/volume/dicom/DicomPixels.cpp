// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomPixels.h"

#include "../Error.h"
#include "../bytes/VoxelRows.h"
#include "FrameDecoder.h"

#include <algorithm>
#include <cstring>

namespace tamo::volume {

namespace {

// Takes the bits that are in use out of a stored number, and gives them their sign.
class StoredBits {
  public:
    explicit StoredBits(PixelFormat const& format)
        : _shift(static_cast<unsigned int>(format.highBit + 1 - format.bitsStored)),
          _mask(format.bitsStored >= 32 ? 0xFFFFFFFFU : (1U << static_cast<unsigned int>(format.bitsStored)) - 1U),
          _sign(format.isSigned ? 1U << static_cast<unsigned int>(format.bitsStored - 1) : 0U) {}

    [[nodiscard]] std::int64_t operator()(std::uint32_t bits) const {
        std::uint32_t const value = bits >> _shift & _mask;
        return (value & _sign) != 0 ? static_cast<std::int64_t>(value) - static_cast<std::int64_t>(_mask) - 1
                                    : static_cast<std::int64_t>(value);
    }

  private:
    unsigned int _shift;
    std::uint32_t _mask;
    std::uint32_t _sign;
};

template <typename Stored> Stored loaded(unsigned char const* bytes, std::size_t index) {
    Stored value;
    std::memcpy(&value, bytes + index * sizeof(Stored), sizeof(Stored));
    return value;
}

// Calls `use` with a function that gives the number of a pixel.
template <typename Use> void visitNumbers(PixelFormat const& format, unsigned char const* bytes, Use const& use) {
    if (format.kind == PixelData::Kind::Float) {
        use([bytes](std::size_t i) { return loaded<float>(bytes, i); });
        return;
    }
    if (format.kind == PixelData::Kind::Double) {
        use([bytes](std::size_t i) { return loaded<double>(bytes, i); });
        return;
    }
    // Of floats nobody has checked which bits are said to be in use.
    StoredBits const stored(format);
    if (format.bitsAllocated == 1) {
        use([bytes](std::size_t i) { return std::int64_t{bytes[i / 8] >> (i % 8) & 1}; });
    } else if (format.bitsAllocated == 8) {
        use([=](std::size_t i) { return stored(loaded<std::uint8_t>(bytes, i)); });
    } else if (format.bitsAllocated == 16) {
        use([=](std::size_t i) { return stored(loaded<std::uint16_t>(bytes, i)); });
    } else {
        use([=](std::size_t i) { return stored(loaded<std::uint32_t>(bytes, i)); });
    }
}

Error truncated(DicomImage const& image, std::string const& found) {
    return {image.path, "expected a whole frame of " + image.syntax.name + ", found " + found +
                            "; the file is damaged or truncated"};
}

} // namespace

DicomPixels::DicomPixels(DicomImage const& image)
    : _image(image), _bytes(openPixelBytes(image.path, image.syntax.encoding, image.datasetAt)) {}

void DicomPixels::read(DicomFrame const& frame, PixelWindow const& window, ScalarType type, bool isRescaled,
                       unsigned char* target) {
    Rows const rows = _image.pixels.isEncapsulated ? readCompressed(frame, window) : readNative(frame, window);
    auto const columns = static_cast<std::size_t>(_image.columns);
    auto const width = static_cast<std::size_t>(window.lastColumn - window.firstColumn + 1);
    auto const height = static_cast<std::size_t>(window.lastRow - window.firstRow + 1);
    visitNumbers(_image.format, rows.bytes.data(), [&](auto const& numberAt) {
        visitScalarType(type, [&](auto const* null) {
            using Number = std::remove_cv_t<std::remove_pointer_t<decltype(null)>>;
            auto* next = target;
            for (std::size_t y = 0; y < height; ++y) {
                for (std::size_t x = 0; x < width; ++x, next += sizeof(Number)) {
                    auto const stored = numberAt(rows.first + y * columns + x);
                    Number const number =
                        isRescaled ? static_cast<Number>(frame.slope * static_cast<double>(stored) + frame.intercept)
                                   : static_cast<Number>(stored);
                    std::memcpy(next, &number, sizeof(Number));
                }
            }
        });
    });
}

// Reads the rows of the window, in whole bytes and, where these are swapped in pairs, in whole pairs.
DicomPixels::Rows DicomPixels::readNative(DicomFrame const& frame, PixelWindow const& window) {
    auto const bits = static_cast<std::uint64_t>(_image.format.bitsAllocated);
    auto const columns = static_cast<std::uint64_t>(_image.columns);
    std::uint64_t const frameStart =
        static_cast<std::uint64_t>(frame.index) * columns * static_cast<std::uint64_t>(_image.rows);
    std::uint64_t const first = (frameStart + static_cast<std::uint64_t>(window.firstRow) * columns) * bits;
    std::uint64_t const last = (frameStart + static_cast<std::uint64_t>(window.lastRow + 1) * columns) * bits;
    std::uint64_t const firstByte = first / 16 * 2;
    std::uint64_t const bytes = (last + 15) / 16 * 2 - firstByte;
    Rows rows;
    rows.first =
        static_cast<std::size_t>((first - firstByte * 8) / bits) + static_cast<std::size_t>(window.firstColumn);
    rows.bytes.resize(bytes);
    // The last pair may have lost its filling.
    std::uint64_t const held = std::min(bytes, _image.pixels.bytes - std::min(firstByte, _image.pixels.bytes));
    if (held + 1 < bytes || !_bytes->read(_image.pixels.at + firstByte, rows.bytes.data(), held)) {
        throw truncated(_image, "less");
    }
    int const stored = bits <= 8 ? (_image.pixels.isWords ? 2 : 1) : static_cast<int>(bits / 8);
    if (_image.syntax.hasBigEndianPixels != isBigEndianMachine() && stored > 1) {
        reverseScalars(rows.bytes.data(), bytes / static_cast<std::uint64_t>(stored), stored);
    }
    return rows;
}

// Where the pieces of a frame begin and end among those of its file.
std::pair<std::size_t, std::size_t> DicomPixels::fragmentsOf(std::int64_t frame) const {
    PixelData const& pixels = _image.pixels;
    auto const index = static_cast<std::size_t>(frame);
    if (pixels.fragments.size() == _image.frames.size()) {
        return {index, index + 1};
    }
    if (_image.frames.size() == 1) {
        return {0, pixels.fragments.size()};
    }
    // Offsets lead from the header of the first piece to those of others.
    auto const pieceAt = [&pixels](std::uint64_t offset) {
        std::uint64_t const at = pixels.fragments.front().first + offset;
        auto const piece = std::lower_bound(pixels.fragments.begin(), pixels.fragments.end(),
                                            std::pair<std::uint64_t, std::uint64_t>{at, 0});
        bool const isPiece = piece != pixels.fragments.end() && piece->first == at;
        return static_cast<std::size_t>((isPiece ? piece : pixels.fragments.end()) - pixels.fragments.begin());
    };
    if (pixels.offsets.size() != _image.frames.size()) {
        throw truncated(_image, "no table that says where it begins");
    }
    std::size_t const first = pieceAt(pixels.offsets[index]);
    std::size_t const last =
        index + 1 < pixels.offsets.size() ? pieceAt(pixels.offsets[index + 1]) : pixels.fragments.size();
    if (first >= last) {
        throw truncated(_image, "a table that leads elsewhere");
    }
    return {first, last};
}

DicomPixels::Rows DicomPixels::readCompressed(DicomFrame const& frame, PixelWindow const& window) {
    CompressedFrame compressed;
    compressed.encoding = _image.syntax.encoding;
    compressed.columns = static_cast<int>(_image.columns);
    compressed.rows = static_cast<int>(_image.rows);
    compressed.bitsAllocated = _image.format.bitsAllocated;
    auto const [first, last] = fragmentsOf(frame.index);
    for (std::size_t i = first; i < last; ++i) {
        auto const& [at, bytes] = _image.pixels.fragments[i];
        compressed.fragments.emplace_back(bytes);
        if (!_bytes->read(at, compressed.fragments.back().data(), bytes)) {
            throw truncated(_image, "less");
        }
    }
    try {
        return {decodeFrame(compressed),
                static_cast<std::size_t>(window.firstRow * _image.columns + window.firstColumn)};
    } catch (BadFrame const& bad) {
        throw truncated(_image, bad.what());
    }
}

} // namespace tamo::volume
