// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/GLPolygonConsumer.h>
#include <tamo/surface/TAMO.h>

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <fstream>
#include <iostream>
#include <vector>

// Makes an OpenGL context current that draws into memory, without a window. A window's toolkit brings a context along.
bool makeContext(int side) {
    EGLDisplay const display = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    EGLint const wanted[] = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_DEPTH_SIZE, 24, EGL_NONE};
    EGLint const size[] = {EGL_WIDTH, side, EGL_HEIGHT, side, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    bool const isReady = eglInitialize(display, nullptr, nullptr) && eglBindAPI(EGL_OPENGL_API) &&
                         eglChooseConfig(display, wanted, &config, 1, &count) && count == 1;
    EGLSurface const surface = eglCreatePbufferSurface(display, config, size);
    EGLContext const context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
    return isReady && eglMakeCurrent(display, surface, surface, context);
}

int main(int argc, char** argv) {
    int const side = 200;
    std::vector<unsigned char> voxels; // a ball of radius 20 around (25, 25, 25)
    for (int i = 0; i < 50 * 50 * 50; ++i) {
        int const x = i % 50 - 25, y = i / 50 % 50 - 25, z = i / 2500 - 25;
        voxels.push_back(x * x + y * y + z * z < 400 ? 1 : 0);
    }
    if (argc != 2 || !makeContext(side)) {
        std::cerr << "usage: display_list PICTURE.ppm; needs EGL and Mesa\n";
        return 2;
    }
    GLObjectList polygons;
    GLObjectListForNeighborhood(Neighborhood::N26, polygons);
    GLuint const name = glGenLists(1);
    GLPolygonConsumer consumer(static_cast<int>(name)); // opens the display list; the scan fills and closes it
    bool const isScanned = wrapGlobal(voxels.data(), {1, 50, 2500}, 1, {0, 0, 0}, {50, 50, 50}, polygons, consumer);
    glMatrixMode(GL_PROJECTION);
    glOrtho(0, 50, 0, 50, -50, 50); // looks down along z
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glCallList(name);

    std::vector<unsigned char> picture(3U * side * side);
    glReadPixels(0, 0, side, side, GL_RGB, GL_UNSIGNED_BYTE, picture.data());
    std::ofstream file(argv[1], std::ios::binary);
    file << "P6 " << side << " " << side << " 255\n";
    file.write(reinterpret_cast<char const*>(picture.data()), 3 * side * side);
    std::cout << "middle " << int{picture[3 * (side / 2 * side + side / 2)]} << ", corner " << int{picture[0]} << "\n";
    return isScanned && file.flush() ? 0 : 1;
}
