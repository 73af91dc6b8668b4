// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "OffscreenContext.h"

#include "terminal/UserError.h"

#include <EGL/eglext.h>

#include <string>

namespace tamo::tool {

namespace {

void require(bool isGood, char const* what) {
    if (!isGood) {
        throw UserError(std::string("offscreen OpenGL: expected ") + what +
                        " of EGL on Mesa's surfaceless platform; is Mesa's libEGL installed?");
    }
}

} // namespace

OffscreenContext::OffscreenContext(int width, int height)
    : _display(eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr)) {
    require(_display != EGL_NO_DISPLAY && eglInitialize(_display, nullptr, nullptr) == EGL_TRUE, "a display");
    require(eglBindAPI(EGL_OPENGL_API) == EGL_TRUE, "desktop OpenGL");

    EGLint const configAttributes[] = {EGL_SURFACE_TYPE,
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
    require(eglChooseConfig(_display, configAttributes, &config, 1, &configs) == EGL_TRUE && configs == 1,
            "a configuration with a depth buffer");

    // No attributes: display lists and fixed lighting belong to the compatible profile that this asks for.
    _context = eglCreateContext(_display, config, EGL_NO_CONTEXT, nullptr);
    require(_context != EGL_NO_CONTEXT, "a context");
    EGLint const surfaceAttributes[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    _surface = eglCreatePbufferSurface(_display, config, surfaceAttributes);
    require(_surface != EGL_NO_SURFACE && eglMakeCurrent(_display, _surface, _surface, _context) == EGL_TRUE,
            ("a picture of " + std::to_string(width) + " x " + std::to_string(height)).c_str());
}

OffscreenContext::~OffscreenContext() {
    eglMakeCurrent(_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglTerminate(_display);
}

} // namespace tamo::tool
