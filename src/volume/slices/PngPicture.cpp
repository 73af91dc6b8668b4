// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../bytes/VoxelRows.h"
#include "Picture.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <vector>

namespace tamo::volume {

namespace {

extern "C" void leavePng(png_structp png, png_const_charp) { png_longjmp(png, 1); }
extern "C" void ignorePngWarning(png_structp, png_const_charp) {}

// Calls what libpng may leave by a jump, and returns whether it did not. Nothing in `work` may need its destructor.
template <typename Work> bool isDone(png_structp png, Work const& work) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    work();
    return true;
}

// Returns whether the last chunk of a file stands where it should: a reader of pixels would not miss it.
bool endsLikePng(std::FILE* file) {
    constexpr std::array<unsigned char, 8> kEnd{'I', 'E', 'N', 'D', 0xAE, 0x42, 0x60, 0x82};
    std::array<unsigned char, 8> end{};
    bool const isRead = std::fseek(file, -8, SEEK_END) == 0 && std::fread(end.data(), 1, 8, file) == 8;
    return isRead && end == kEnd && std::fseek(file, 0, SEEK_SET) == 0;
}

class PngPicture : public Picture {
  public:
    explicit PngPicture(std::filesystem::path const& path)
        : Picture(path), _file(openToRead(path)),
          _png(png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, leavePng, ignorePngWarning)) {
        _info = _png != nullptr ? png_create_info_struct(_png) : nullptr;
        if (_info == nullptr) {
            png_destroy_read_struct(&_png, nullptr, nullptr);
            throw std::bad_alloc();
        }
        try {
            readHeader();
        } catch (...) {
            png_destroy_read_struct(&_png, &_info, nullptr);
            throw;
        }
    }
    ~PngPicture() override { png_destroy_read_struct(&_png, &_info, nullptr); }

  private:
    void readHeader() {
        bool const isRead = endsLikePng(_file.get()) && isDone(_png, [this] {
                                png_init_io(_png, _file.get());
                                png_set_crc_action(_png, PNG_CRC_ERROR_QUIT, PNG_CRC_ERROR_QUIT);
                                png_read_info(_png, _info);
                            });
        if (!isRead) {
            throwDamaged(path(), "PNG");
        }
        if (png_get_color_type(_png, _info) != PNG_COLOR_TYPE_GRAY || png_get_valid(_png, _info, PNG_INFO_tRNS) != 0) {
            throwColour(path());
        }
        int const bits = png_get_bit_depth(_png, _info);
        setShape(png_get_image_width(_png, _info), png_get_image_height(_png, _info),
                 bits == 16 ? ScalarType::UInt16 : ScalarType::UInt8, bits);
        // Deflate repeats at most 258 bytes for 2 bits.
        constexpr std::uint64_t kMostPerByte = 1032;
        checkExpansion(png_get_rowbytes(_png, _info) * static_cast<std::uint64_t>(height()), kMostPerByte);
    }

    void readRows(std::int64_t first, std::int64_t last, unsigned char* target) override {
        auto const rowBytes = static_cast<std::size_t>(width()) * static_cast<std::size_t>(bytesOf(type()));
        // An interlaced picture comes in passes that each touch all of it.
        bool const isInterlaced = png_get_interlace_type(_png, _info) != PNG_INTERLACE_NONE;
        std::vector<unsigned char> unwanted(isInterlaced ? rowBytes * static_cast<std::size_t>(height()) : rowBytes);
        bool const isRead = isDone(_png, [&] {
            png_set_packing(_png);
            if (!isBigEndianMachine()) {
                png_set_swap(_png);
            }
            if (isInterlaced) {
                readPasses(unwanted.data(), rowBytes);
            }
            for (std::int64_t y = 0; !isInterlaced && y <= last; ++y) {
                png_read_row(_png,
                             y < first ? unwanted.data() : target + static_cast<std::size_t>(y - first) * rowBytes,
                             nullptr);
            }
            if (isInterlaced || last + 1 == height()) {
                png_read_end(_png, nullptr);
            }
        });
        if (!isRead) {
            throwDamaged(path(), "PNG");
        }
        if (isInterlaced) {
            std::copy_n(unwanted.data() + static_cast<std::size_t>(first) * rowBytes,
                        static_cast<std::size_t>(last - first + 1) * rowBytes, target);
        }
    }

    void readPasses(unsigned char* image, std::size_t rowBytes) {
        int const passes = png_set_interlace_handling(_png);
        png_start_read_image(_png);
        for (int pass = 0; pass < passes; ++pass) {
            for (std::int64_t y = 0; y < height(); ++y) {
                png_read_row(_png, image + static_cast<std::size_t>(y) * rowBytes, nullptr);
            }
        }
    }

    File _file;
    png_structp _png;
    png_infop _info = nullptr;
};

} // namespace

std::unique_ptr<Picture> openPngPicture(std::filesystem::path const& path) {
    return std::make_unique<PngPicture>(path);
}

} // namespace tamo::volume
