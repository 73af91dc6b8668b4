// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <EGL/egl.h>

namespace tamo::tool {

/// Owns an OpenGL context without a window system, current on the thread that made it, and its picture of 8 bits a
/// colour and 24 of depth.
class OffscreenContext {
  public:
    /// Throws `UserError` where the machine's EGL cannot provide it.
    OffscreenContext(int width, int height);
    ~OffscreenContext();
    OffscreenContext(OffscreenContext const&) = delete;
    OffscreenContext& operator=(OffscreenContext const&) = delete;

  private:
    EGLDisplay _display;
    EGLContext _context = EGL_NO_CONTEXT;
    EGLSurface _surface = EGL_NO_SURFACE;
};

} // namespace tamo::tool
