// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Jpeg2000.h"

#include "FrameDecoder.h"

#include <openjpeg.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>

namespace tamo::volume {

namespace {

struct Input {
    unsigned char const* data;
    std::size_t size;
    std::size_t at;
};

OPJ_SIZE_T readInput(void* target, OPJ_SIZE_T bytes, void* user) {
    auto& input = *static_cast<Input*>(user);
    std::size_t const count = std::min<std::size_t>(bytes, input.size - input.at);
    if (count == 0) {
        return static_cast<OPJ_SIZE_T>(-1);
    }
    std::memcpy(target, input.data + input.at, count);
    input.at += count;
    return count;
}

OPJ_OFF_T skipInput(OPJ_OFF_T bytes, void* user) {
    auto& input = *static_cast<Input*>(user);
    if (bytes < 0 || static_cast<std::size_t>(bytes) > input.size - input.at) {
        return -1;
    }
    input.at += static_cast<std::size_t>(bytes);
    return bytes;
}

OPJ_BOOL seekInput(OPJ_OFF_T at, void* user) {
    auto& input = *static_cast<Input*>(user);
    if (at < 0 || static_cast<std::size_t>(at) > input.size) {
        return OPJ_FALSE;
    }
    input.at = static_cast<std::size_t>(at);
    return OPJ_TRUE;
}

void ignoreMessage(char const* /*text*/, void* /*user*/) {}

std::uint32_t numberAt(unsigned char const* bytes) {
    return std::uint32_t{bytes[0]} << 24U | std::uint32_t{bytes[1]} << 16U | std::uint32_t{bytes[2]} << 8U | bytes[3];
}

// Compares the size that the codestream states with the one wanted, before the decoder allocates for it; returns where
// the codestream begins. Its first two markers are SOC and SIZ, followed by length, capabilities, and eight numbers.
std::size_t checkStart(std::vector<unsigned char> const& bytes, int columns, int rows) {
    constexpr std::array<unsigned char, 4> kStart{0xFF, 0x4F, 0xFF, 0x51};
    constexpr std::ptrdiff_t kLengthOfStart = 42;
    auto const start = std::search(bytes.begin(), bytes.end(), kStart.begin(), kStart.end());
    if (bytes.end() - start < kLengthOfStart) {
        throw BadFrame("no JPEG 2000 codestream");
    }
    std::array<std::uint64_t, 8> sizes{};
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        sizes[i] = numberAt(&*start + 8 + 4 * i);
    }
    auto const [right, bottom, left, top, tileWidth, tileHeight, tileLeft, tileTop] = sizes;
    int const components = start[40] << 8 | start[41];
    if (right <= left || bottom <= top || right - left != static_cast<std::uint64_t>(columns) ||
        bottom - top != static_cast<std::uint64_t>(rows)) {
        throw BadFrame("a JPEG 2000 frame of another size");
    }
    if (components != 1) {
        throw BadFrame("a JPEG 2000 frame of " + std::to_string(components) + " components");
    }
    // The decoder allocates some kilobytes for each tile, of which each takes at least 14 bytes in the stream: the
    // segments SOT (12) and SOD (2) of ISO/IEC 15444-1.
    auto const tiles = [](std::uint64_t length, std::uint64_t side) { return length / side + 1; };
    std::uint64_t const most = bytes.size() / 14 + 4;
    if (tileWidth == 0 || tileHeight == 0 || tileLeft > left || tileTop > top ||
        tiles(right - tileLeft, tileWidth) > most / tiles(bottom - tileTop, tileHeight)) {
        throw BadFrame("more JPEG 2000 tiles than the frame has room for");
    }
    return static_cast<std::size_t>(start - bytes.begin());
}

constexpr std::uint64_t kStartOfTilePart = 0xFF90;
constexpr std::uint64_t kStartOfData = 0xFF93;
constexpr std::uint64_t kCodingStyle = 0xFF52;
constexpr std::uint64_t kCodingStyleOfComponent = 0xFF53;
// The bytes of a tile part up to its own markers.
constexpr std::size_t kTilePartHead = 12;

// Walks through the headers of a codestream for what says how its tiles are divided into precincts. For each of them
// the decoder allocates hundreds of bytes before it reads the data, in which each takes a byte at least.
class PrecinctCheck {
  public:
    PrecinctCheck(std::vector<unsigned char> const& bytes, std::size_t start, int columns, int rows)
        : _bytes(bytes), _width(static_cast<std::uint64_t>(columns)), _height(static_cast<std::uint64_t>(rows)) {
        std::size_t const size = bytes.size();
        std::size_t at = readHeaders(start + 2, size);
        _width = std::min(_width, number(start + 24, 4));
        _height = std::min(_height, number(start + 28, 4));
        while (size - at >= kTilePartHead && number(at, 2) == kStartOfTilePart) {
            // The last part may leave open where it ends.
            std::uint64_t const length = number(at + 6, 4) == 0 ? size - at : number(at + 6, 4);
            if (length < kTilePartHead || length > size - at) {
                throw BadFrame("a damaged JPEG 2000 tile");
            }
            readHeaders(at + kTilePartHead, at + length);
            at += length;
        }
    }

  private:
    // Returns 0 for what lies beyond the end.
    [[nodiscard]] std::uint64_t number(std::size_t at, std::size_t count) const {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            value = value << 8U | (at + i < _bytes.size() ? _bytes[at + i] : 0U);
        }
        return value;
    }

    // Returns where the first marker stands that does not belong to the headers, or the end.
    std::size_t readHeaders(std::size_t at, std::size_t end) const {
        while (end - at >= 4) {
            std::uint64_t const marker = number(at, 2);
            std::uint64_t const length = number(at + 2, 2);
            if (marker == kStartOfTilePart || marker == kStartOfData) {
                return at;
            }
            // The decoder looks for markers within those that it does not know.
            if (std::find(kKnown.begin(), kKnown.end(), marker) == kKnown.end() || length < 2) {
                throw BadFrame("a damaged JPEG 2000 header");
            }
            if (marker == kCodingStyle && (number(at + 4, 1) & 1U) != 0) {
                check(at + 14, number(at + 9, 1));
            } else if (marker == kCodingStyleOfComponent && (number(at + 5, 1) & 1U) != 0) {
                check(at + 11, number(at + 6, 1));
            }
            at = std::min<std::size_t>(end, at + 2 + length);
        }
        return end;
    }

    // Counts the whole precincts, whose sides are powers of 2 that stand from `at` on, one for each resolution.
    void check(std::size_t at, std::uint64_t levels) const {
        constexpr std::uint64_t kMostLevels = 32;
        if (levels > kMostLevels) {
            throw BadFrame("a damaged JPEG 2000 header");
        }
        std::uint64_t precincts = 0;
        for (std::uint64_t level = 0; level <= levels; ++level) {
            std::uint64_t const powers = number(at + level, 1);
            std::uint64_t const halvings = levels - level;
            precincts += (_width >> halvings >> (powers & 15U)) * (_height >> halvings >> (powers >> 4U));
        }
        if (precincts > _bytes.size()) {
            throw BadFrame("more JPEG 2000 precincts than the frame has room for");
        }
    }

    static constexpr std::array<std::uint64_t, 20> kKnown{0xFF50, 0xFF51, 0xFF52, 0xFF53, 0xFF55, 0xFF57, 0xFF58,
                                                          0xFF59, 0xFF5C, 0xFF5D, 0xFF5E, 0xFF5F, 0xFF60, 0xFF61,
                                                          0xFF63, 0xFF64, 0xFF74, 0xFF75, 0xFF77, 0xFF78};

    std::vector<unsigned char> const& _bytes;
    // Of the picture for its own header, then of a tile.
    std::uint64_t _width;
    std::uint64_t _height;
};

struct DestroyStream {
    void operator()(opj_stream_t* stream) const { opj_stream_destroy(stream); }
};
struct DestroyCodec {
    void operator()(opj_codec_t* codec) const { opj_destroy_codec(codec); }
};
struct DestroyImage {
    void operator()(opj_image_t* image) const { opj_image_destroy(image); }
};
using Image = std::unique_ptr<opj_image_t, DestroyImage>;

std::unique_ptr<opj_stream_t, DestroyStream> makeStream(Input& input) {
    std::unique_ptr<opj_stream_t, DestroyStream> stream(opj_stream_default_create(OPJ_TRUE));
    opj_stream_set_user_data(stream.get(), &input, nullptr);
    opj_stream_set_user_data_length(stream.get(), input.size);
    opj_stream_set_read_function(stream.get(), readInput);
    opj_stream_set_skip_function(stream.get(), skipInput);
    opj_stream_set_seek_function(stream.get(), seekInput);
    return stream;
}

std::unique_ptr<opj_codec_t, DestroyCodec> makeCodec() {
    std::unique_ptr<opj_codec_t, DestroyCodec> codec(opj_create_decompress(OPJ_CODEC_J2K));
    opj_set_info_handler(codec.get(), ignoreMessage, nullptr);
    opj_set_warning_handler(codec.get(), ignoreMessage, nullptr);
    opj_set_error_handler(codec.get(), ignoreMessage, nullptr);
    opj_dparameters_t parameters;
    opj_set_default_decoder_parameters(&parameters);
    // A stream that ends early would else give a picture with holes.
    if (opj_setup_decoder(codec.get(), &parameters) == OPJ_FALSE ||
        opj_decoder_set_strict_mode(codec.get(), OPJ_TRUE) == OPJ_FALSE) {
        throw BadFrame("a JPEG 2000 frame that cannot be decoded");
    }
    return codec;
}

} // namespace

std::vector<std::int32_t> decodeJpeg2000(std::vector<unsigned char> const& bytes, int columns, int rows) {
    std::size_t const start = checkStart(bytes, columns, rows);
    static_cast<void>(PrecinctCheck(bytes, start, columns, rows));
    Input input{bytes.data() + start, bytes.size() - start, 0};
    auto const stream = makeStream(input);
    auto const codec = makeCodec();
    opj_image_t* read = nullptr;
    bool const hasHeader = opj_read_header(stream.get(), codec.get(), &read) == OPJ_TRUE;
    Image const image(read);
    if (!hasHeader || image == nullptr || image->numcomps != 1 || image->comps[0].dx != 1 || image->comps[0].dy != 1 ||
        image->comps[0].prec > 32) {
        throw BadFrame("a damaged JPEG 2000 header");
    }
    if (opj_decode(codec.get(), stream.get(), image.get()) == OPJ_FALSE ||
        opj_end_decompress(codec.get(), stream.get()) == OPJ_FALSE) {
        throw BadFrame("damaged JPEG 2000 data");
    }
    opj_image_comp_t const& component = image->comps[0];
    auto const size = static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
    if (component.data == nullptr || component.w != static_cast<OPJ_UINT32>(columns) ||
        component.h != static_cast<OPJ_UINT32>(rows)) {
        throw BadFrame("a JPEG 2000 frame of another size");
    }
    return {component.data, component.data + size};
}

} // namespace tamo::volume
