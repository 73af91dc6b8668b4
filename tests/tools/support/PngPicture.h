// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPNGReader.h>

#include <array>
#include <filesystem>

struct Pixel {
    int red;
    int green;
    int blue;
};

/// A picture; row 0 at the top.
class PngPicture {
  public:
    explicit PngPicture(std::filesystem::path const& path) {
        _reader->SetFileName(path.c_str());
        _reader->Update();
        _reader->GetOutput()->GetDimensions(_size.data());
    }
    [[nodiscard]] int width() const { return _size[0]; }
    [[nodiscard]] int height() const { return _size[1]; }
    [[nodiscard]] Pixel at(int x, int y) const {
        auto const* const p =
            static_cast<unsigned char const*>(_reader->GetOutput()->GetScalarPointer(x, _size[1] - 1 - y, 0));
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
    vtkNew<vtkPNGReader> _reader;
    std::array<int, 3> _size{};
};
