// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Picture.h"

// Its header needs FILE and std::size_t declared before.
#include <cstddef>
#include <cstdio>
#include <jpeglib.h>

#include <csetjmp>
#include <vector>

namespace tamo::volume {

namespace {

// The error handler, with where to jump on an error; the library hands back the address of its first member.
struct JpegErrors {
    jpeg_error_mgr handler;
    std::jmp_buf target;
};

extern "C" void leaveJpeg(j_common_ptr jpeg) { std::longjmp(reinterpret_cast<JpegErrors*>(jpeg->err)->target, 1); }
// A warning, such as that of a file that ends too early, has a negative level: what follows would be made up.
extern "C" void leaveJpegOnWarning(j_common_ptr jpeg, int level) {
    if (level < 0) {
        leaveJpeg(jpeg);
    }
}
extern "C" void ignoreJpegMessage(j_common_ptr) {}
// A progressive file may go over the whole picture in a few bytes, as often as it likes; encoders do it about 10 times.
extern "C" void limitScans(j_common_ptr jpeg) {
    constexpr int kMostScans = 100;
    if (jpeg->is_decompressor != FALSE && reinterpret_cast<j_decompress_ptr>(jpeg)->input_scan_number > kMostScans) {
        leaveJpeg(jpeg);
    }
}

class JpegPicture : public Picture {
  public:
    explicit JpegPicture(std::filesystem::path const& path) : Picture(path), _file(openToRead(path)) {
        _jpeg.err = jpeg_std_error(&_errors.handler);
        _errors.handler.error_exit = leaveJpeg;
        _errors.handler.emit_message = leaveJpegOnWarning;
        _errors.handler.output_message = ignoreJpegMessage;
        _progress.progress_monitor = limitScans;
        try {
            readHeader();
        } catch (...) {
            jpeg_destroy_decompress(&_jpeg);
            throw;
        }
    }
    ~JpegPicture() override { jpeg_destroy_decompress(&_jpeg); }

  private:
    // Calls what libjpeg may leave by a jump, and returns whether it did not. Nothing in `work` may need its
    // destructor.
    template <typename Work> bool isDone(Work const& work) {
        if (setjmp(_errors.target) != 0) {
            return false;
        }
        work();
        return true;
    }

    void readHeader() {
        bool const isRead = isDone([this] {
            jpeg_create_decompress(&_jpeg);
            _jpeg.progress = &_progress;
            jpeg_stdio_src(&_jpeg, _file.get());
            jpeg_read_header(&_jpeg, TRUE);
        });
        if (!isRead) {
            throwDamaged(path(), "JPEG");
        }
        if (_jpeg.num_components != 1) {
            throwColour(path());
        }
        setShape(_jpeg.image_width, _jpeg.image_height, ScalarType::UInt8, 8);
        // A block of 64 pixels takes a bit at least.
        constexpr std::uint64_t kMostPerByte = 512;
        checkExpansion(static_cast<std::uint64_t>(width()) * static_cast<std::uint64_t>(height()), kMostPerByte);
    }

    void readRows(std::int64_t first, std::int64_t last, unsigned char* target) override {
        std::vector<unsigned char> unwanted(static_cast<std::size_t>(width()));
        bool const isRead = isDone([&] {
            jpeg_start_decompress(&_jpeg);
            for (std::int64_t y = 0; y <= last; ++y) {
                unsigned char* row = y < first ? unwanted.data() : target + (y - first) * width();
                jpeg_read_scanlines(&_jpeg, &row, 1);
            }
            if (last + 1 == height()) {
                jpeg_finish_decompress(&_jpeg);
            }
        });
        if (!isRead) {
            throwDamaged(path(), "JPEG");
        }
    }

    File _file;
    JpegErrors _errors{};
    jpeg_progress_mgr _progress{};
    jpeg_decompress_struct _jpeg{};
};

} // namespace

std::unique_ptr<Picture> openJpegPicture(std::filesystem::path const& path) {
    return std::make_unique<JpegPicture>(path);
}

} // namespace tamo::volume
