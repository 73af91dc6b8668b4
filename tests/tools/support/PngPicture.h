// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <png.h>

#include <filesystem>
#include <stdexcept>
#include <vector>

struct Pixel {
    int red;
    int green;
    int blue;
};

/// A picture; row 0 at the top.
class PngPicture {
  public:
    explicit PngPicture(std::filesystem::path const& path) {
        _image.version = PNG_IMAGE_VERSION;
        if (png_image_begin_read_from_file(&_image, path.c_str()) == 0) {
            throw std::runtime_error(path.string() + ": no picture");
        }
        _image.format = PNG_FORMAT_RGB;
        _pixels.resize(PNG_IMAGE_SIZE(_image));
        if (png_image_finish_read(&_image, nullptr, _pixels.data(), 0, nullptr) == 0) {
            throw std::runtime_error(path.string() + ": a damaged picture");
        }
    }
    [[nodiscard]] int width() const { return static_cast<int>(_image.width); }
    [[nodiscard]] int height() const { return static_cast<int>(_image.height); }
    [[nodiscard]] Pixel at(int x, int y) const {
        auto const* const p =
            _pixels.data() + 3 * (static_cast<std::size_t>(y) * _image.width + static_cast<std::size_t>(x));
        return {p[0], p[1], p[2]};
    }
    [[nodiscard]] bool isBackground(int x, int y) const {
        Pixel const p = at(x, y);
        return p.red == p.green && p.green == p.blue;
    }
    /// Returns whether a pixel is exactly the same in both pictures.
    [[nodiscard]] bool isSame(int x, int y, PngPicture const& other, int otherX, int otherY) const {
        Pixel const a = at(x, y);
        Pixel const b = other.at(otherX, otherY);
        return a.red == b.red && a.green == b.green && a.blue == b.blue;
    }
    /// The share of the pixels that show the surface.
    [[nodiscard]] double coverage() const {
        int covered = 0;
        for (int i = 0; i < width() * height(); ++i) {
            covered += isBackground(i % width(), i / width()) ? 0 : 1;
        }
        return static_cast<double>(covered) / (width() * height());
    }

  private:
    png_image _image{};
    std::vector<unsigned char> _pixels;
};
