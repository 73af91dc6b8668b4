// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../ScalarType.h"
#include "DicomImage.h"

#include <memory>

namespace tamo::volume {

/// A rectangle of pixels within a frame; the last ones are included.
struct PixelWindow {
    std::int64_t firstColumn = 0;
    std::int64_t lastColumn = 0;
    std::int64_t firstRow = 0;
    std::int64_t lastRow = 0;
};

/// Reads frames of one file, which stays open meanwhile.
class DicomPixels {
  public:
    /// The image must outlive this. Throws `Error`.
    explicit DicomPixels(DicomImage const& image);

    [[nodiscard]] DicomImage const& image() const { return _image; }

    /// Writes a frame's pixels in a window as numbers of `type`: the stored ones where that is the type in which they
    /// are stored, and rescaled ones where `isRescaled`. Throws `Error` where the file does not hold them whole.
    void read(DicomFrame const& frame, PixelWindow const& window, ScalarType type, bool isRescaled,
              unsigned char* target);

  private:
    struct Rows {
        std::vector<unsigned char> bytes;
        // The window's first pixel, counted in pixels from the first byte.
        std::size_t first = 0;
    };
    [[nodiscard]] Rows readNative(DicomFrame const& frame, PixelWindow const& window);
    [[nodiscard]] Rows readCompressed(DicomFrame const& frame, PixelWindow const& window);
    [[nodiscard]] std::pair<std::size_t, std::size_t> fragmentsOf(std::int64_t frame) const;

    DicomImage const& _image;
    std::unique_ptr<DicomBytes> _bytes;
};

} // namespace tamo::volume
