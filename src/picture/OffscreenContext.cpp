// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "OffscreenContext.h"

#include "PictureError.h"

#include <EGL/eglext.h>

#include <string>

namespace tamo::picture {

namespace {

void require(bool isGood, std::string const& what) {
    if (!isGood) {
        throw PictureError("offscreen OpenGL: expected " + what +
                           " of EGL on Mesa's surfaceless platform; is Mesa's libEGL installed?");
    }
}

EGLConfig chooseConfig(EGLDisplay display) {
    EGLint const attributes[] = {EGL_SURFACE_TYPE,
                                 EGL_PBUFFER_BIT,
                                 EGL_RENDERABLE_TYPE,
                                 EGL_OPENGL_BIT,
                                 EGL_RED_SIZE,
                                 8,
                                 EGL_GREEN_SIZE,
                                 8,
                                 EGL_BLUE_SIZE,
                                 8,
                                 EGL_DEPTH_SIZE,
                                 24,
                                 EGL_NONE};
    EGLConfig config = nullptr;
    EGLint configs = 0;
    require(eglChooseConfig(display, attributes, &config, 1, &configs) == EGL_TRUE && configs == 1,
            "a configuration with a depth buffer");
    return config;
}

} // namespace

OffscreenContext::Display::Display()
    : _display(eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr)) {
    require(_display != EGL_NO_DISPLAY && eglInitialize(_display, nullptr, nullptr) == EGL_TRUE, "a display");
}

OffscreenContext::Display::~Display() { eglTerminate(_display); }

OffscreenContext::OffscreenContext(int width, int height) {
    require(eglBindAPI(EGL_OPENGL_API) == EGL_TRUE, "desktop OpenGL");
    EGLDisplay const display = _display.get();
    EGLConfig const config = chooseConfig(display);
    // No attributes: display lists and fixed lighting belong to the compatible profile that this asks for.
    EGLContext const context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
    require(context != EGL_NO_CONTEXT, "a context");
    EGLint const size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    EGLSurface const surface = eglCreatePbufferSurface(display, config, size);
    require(surface != EGL_NO_SURFACE && eglMakeCurrent(display, surface, surface, context) == EGL_TRUE,
            "a picture of " + std::to_string(width) + " x " + std::to_string(height));
}

OffscreenContext::~OffscreenContext() {
    eglMakeCurrent(_display.get(), EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

} // namespace tamo::picture
