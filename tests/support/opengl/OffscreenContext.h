// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <vector>

namespace tamo::test {

/// Makes an OpenGL context with a square picture in memory current, without any display.
///
/// Throws `std::runtime_error` where EGL cannot do that.
class OffscreenContext {
  public:
    using Pixel = std::array<unsigned char, 4>;

    explicit OffscreenContext(int side) : _side(side) {
        auto const platformDisplay =
            reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
        require(platformDisplay != nullptr, "EGL knows no platforms");
        _display = platformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
        require(eglInitialize(_display, nullptr, nullptr) == EGL_TRUE, "EGL offers no surfaceless display");
        require(eglBindAPI(EGL_OPENGL_API) == EGL_TRUE, "EGL offers no desktop OpenGL");

        std::array<EGLint, 15> const wanted = {EGL_SURFACE_TYPE,
                                               EGL_PBUFFER_BIT,
                                               EGL_RENDERABLE_TYPE,
                                               EGL_OPENGL_BIT,
                                               EGL_RED_SIZE,
                                               8,
                                               EGL_GREEN_SIZE,
                                               8,
                                               EGL_BLUE_SIZE,
                                               8,
                                               EGL_ALPHA_SIZE,
                                               8,
                                               EGL_DEPTH_SIZE,
                                               24,
                                               EGL_NONE};
        EGLConfig config = nullptr;
        EGLint count = 0;
        require(eglChooseConfig(_display, wanted.data(), &config, 1, &count) == EGL_TRUE && count == 1,
                "EGL offers no pictures in memory with a depth buffer");
        std::array<EGLint, 5> const size = {EGL_WIDTH, side, EGL_HEIGHT, side, EGL_NONE};
        _surface = eglCreatePbufferSurface(_display, config, size.data());
        _context = eglCreateContext(_display, config, EGL_NO_CONTEXT, nullptr);
        require(eglMakeCurrent(_display, _surface, _surface, _context) == EGL_TRUE, "EGL makes no context current");
        glViewport(0, 0, side, side);
    }
    OffscreenContext(OffscreenContext const&) = delete;
    OffscreenContext& operator=(OffscreenContext const&) = delete;
    ~OffscreenContext() {
        eglMakeCurrent(_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        eglDestroyContext(_display, _context);
        eglDestroySurface(_display, _surface);
        eglTerminate(_display);
    }

    [[nodiscard]] int side() const { return _side; }

    /// Returns the picture, row by row from the bottom.
    [[nodiscard]] std::vector<Pixel> readPixels() const {
        std::vector<Pixel> pixels(static_cast<std::size_t>(_side) * static_cast<std::size_t>(_side));
        glReadPixels(0, 0, _side, _side, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
        return pixels;
    }

    /// Returns each pixel's depth, 0 at the eye to 1, in the same order.
    [[nodiscard]] std::vector<float> readDepths() const {
        std::vector<float> depths(static_cast<std::size_t>(_side) * static_cast<std::size_t>(_side));
        glReadPixels(0, 0, _side, _side, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
        return depths;
    }

  private:
    static void require(bool condition, char const* message) {
        if (!condition) {
            throw std::runtime_error(message);
        }
    }

    int _side;
    EGLDisplay _display = EGL_NO_DISPLAY;
    EGLSurface _surface = EGL_NO_SURFACE;
    EGLContext _context = EGL_NO_CONTEXT;
};

} // namespace tamo::test
