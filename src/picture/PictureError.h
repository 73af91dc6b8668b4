// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <stdexcept>

namespace tamo::picture {

/// Reports that a picture cannot be drawn: one line that says what was expected.
class PictureError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Reports that OpenGL has no memory left for what was to be drawn.
class PictureMemoryError : public PictureError {
  public:
    using PictureError::PictureError;
};

} // namespace tamo::picture
