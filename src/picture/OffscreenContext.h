// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <EGL/egl.h>

namespace tamo::picture {

/// Owns an OpenGL context without a window system, current on the thread that made it, and its picture of at least 8
/// bits per colour and 24 of depth; it need not keep alpha. Only one may exist at a time.
class OffscreenContext {
  public:
    /// Throws `PictureError` where the machine's EGL cannot provide it.
    OffscreenContext(int width, int height);
    ~OffscreenContext();
    OffscreenContext(OffscreenContext const&) = delete;
    OffscreenContext& operator=(OffscreenContext const&) = delete;

  private:
    /// Ends EGL's use of the display, and with it of all that was made on it.
    class Display {
      public:
        Display();
        ~Display();
        Display(Display const&) = delete;
        Display& operator=(Display const&) = delete;
        [[nodiscard]] EGLDisplay get() const { return _display; }

      private:
        EGLDisplay _display;
    };

    Display _display;
};

} // namespace tamo::picture
