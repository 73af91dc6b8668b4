// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "AtlasSheet.h"

#include "StrokeText.h"

#include <tamo/surface/GLPolygonConsumer.h>

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace tamo::picture {

namespace {

// Lengths are in edges of the cell.
constexpr double kTile = 2.05;
constexpr double kLetter = 0.19;
constexpr double kDisc = 0.075;
constexpr double kLineShare = 0.012;
// Everything of a tile lies this near to its centre, texts in front included.
constexpr double kDepth = 2;

constexpr std::array<float, 4> kOutside{0.98F, 0.66F, 0.30F, 1.0F};
constexpr std::array<float, 4> kInside{0.35F, 0.58F, 0.92F, 1.0F};
constexpr std::array<float, 3> kInk{0.12F, 0.12F, 0.14F};
constexpr std::array<float, 3> kPaper{1.0F, 1.0F, 1.0F};
constexpr std::array<float, 3> kFrame{0.42F, 0.42F, 0.45F};
constexpr std::array<float, 3> kHidden{0.30F, 0.30F, 0.34F};

Vector3 cornerPosition(unsigned int corner) {
    return {static_cast<double>(corner & 1U), static_cast<double>(corner >> 1 & 1U),
            static_cast<double>(corner >> 2 & 1U)};
}

// Returns where a point of the unit cell lies in the tile around `centre`.
Vector3 inTile(Vector3 const& centre, Vector3 const& point) {
    return {centre[0] + point[0] - 0.5, centre[1] + point[1] - 0.5, centre[2] + point[2] - 0.5};
}

// Draws the edges of the triangles that OpenGL makes of a polygon, or the outline of a plain one. Its line mode would
// not do: where display lists join strips by triangles without area, it shows them.
void drawEdges(GLPolygon const& polygon, Vector3 const& centre) {
    auto const draw = [&](unsigned int a, unsigned int b) {
        for (unsigned int const i : {a, b}) {
            float const* const position = polygon.vData(i) + 3;
            glVertex3dv(inTile(centre, {position[0], position[1], position[2]}).data());
        }
    };
    unsigned int const last = polygon.size() - 1;
    for (unsigned int i = 0; i < last; ++i) {
        draw(i, i + 1);
    }
    if (polygon.type() == GL_POLYGON) {
        draw(last, 0);
        return;
    }
    for (unsigned int i = 2; i <= last; ++i) {
        draw(i, polygon.type() == GL_TRIANGLE_FAN ? 0 : i - 2);
    }
}

std::string hexadecimal(unsigned int configuration) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "0x%02X", configuration & 0xffU);
    return text.data();
}

// Colours the two sides. The light is flatter than that of a surface: which side it is has to show on every polygon.
void setMaterials() {
    constexpr std::array<float, 4> kAmbient{0.60F, 0.60F, 0.60F, 1.0F};
    constexpr float kDiffuse = 0.45F;
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kAmbient.data());
    glShadeModel(GL_FLAT);
    for (auto const& [face, colour] : {std::pair(GL_FRONT, kOutside), std::pair(GL_BACK, kInside)}) {
        std::array<float, 4> const diffuse{kDiffuse * colour[0], kDiffuse * colour[1], kDiffuse * colour[2], 1.0F};
        glMaterialfv(static_cast<GLenum>(face), GL_AMBIENT, colour.data());
        glMaterialfv(static_cast<GLenum>(face), GL_DIFFUSE, diffuse.data());
    }
}

} // namespace

AtlasSheet::AtlasSheet(std::vector<Tile> const& tiles, std::size_t columns, View view, PictureSize size, int samples)
    : _columns(columns), _axes(screenAxes(view)) {
    placeCamera((tiles.size() + columns - 1) / columns, size);
    double const unitsUp = 2 / _camera.projection[5];
    _scale = size.height * samples / unitsUp;

    compilePolygons(tiles);
    glNewList(_list.name(), GL_COMPILE);
    drawPolygons(tiles);
    // What a polygon hides shows through, thin and small.
    glDisable(GL_DEPTH_TEST);
    drawFrames(tiles, /*size=*/0.4);
    glEnable(GL_DEPTH_TEST);
    drawFrames(tiles, /*size=*/1);
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        drawNames(tiles[i], centreOf(i));
    }
    glEndList();
}

// Fits all tiles into the picture.
void AtlasSheet::placeCamera(std::size_t rows, PictureSize size) {
    double const halfWidth = kTile * static_cast<double>(_columns) / 2;
    double const halfHeight = kTile * static_cast<double>(rows) / 2;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            _camera.modelView[4 * column + row] = _axes[row][column];
        }
    }
    _camera.modelView[12] = -halfWidth;
    _camera.modelView[13] = halfHeight;
    _camera.modelView[15] = 1;
    double const half = std::max(halfHeight, halfWidth / size.aspect());
    _camera.projection = {1 / (half * size.aspect()), 0, 0, 0, 0, 1 / half, 0, 0, 0, 0, -1 / kDepth, 0, 0, 0, 0, 1};
}

Vector3 AtlasSheet::centreOf(std::size_t tile) const {
    std::size_t const row = tile / _columns;
    std::size_t const column = tile % _columns;
    return onScreen({0, 0, 0}, kTile * (static_cast<double>(column) + 0.5), -kTile * (static_cast<double>(row) + 0.5),
                    0);
}

Vector3 AtlasSheet::onScreen(Vector3 const& origin, double right, double up, double nearer) const {
    Vector3 point = origin;
    for (std::size_t i = 0; i < 3; ++i) {
        point[i] += right * _axes[0][i] + up * _axes[1][i] + nearer * _axes[2][i];
    }
    return point;
}

void AtlasSheet::setLineWidth(double share) const { glLineWidth(static_cast<float>(std::max(1.0, share * _scale))); }

void AtlasSheet::compilePolygons(std::vector<Tile> const& tiles) const {
    GLPolygonConsumer consumer(static_cast<int>(_polygons.name()));
    consumer.start();
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        Vector3 const corner = inTile(centreOf(i), {0, 0, 0});
        consumer.fetch(*tiles[i].polygons, GLCoord3f(static_cast<float>(corner[0]), static_cast<float>(corner[1]),
                                                     static_cast<float>(corner[2])));
    }
    consumer.finish();
}

// Draws the polygons and the edges of their triangles, thinly also those that a polygon hides.
void AtlasSheet::drawPolygons(std::vector<Tile> const& tiles) const {
    setMaterials();
    // The edges lie on their polygons: these step back to let them be seen.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1, 4);
    glCallList(_polygons.name());
    glDisable(GL_POLYGON_OFFSET_FILL);

    glDisable(GL_LIGHTING);
    glColor3fv(kInk.data());
    setLineWidth(kLineShare);
    drawTriangles(tiles);
    glColor3fv(kHidden.data());
    setLineWidth(kLineShare / 4);
    glDisable(GL_DEPTH_TEST);
    drawTriangles(tiles);
    glEnable(GL_DEPTH_TEST);
}

void AtlasSheet::drawTriangles(std::vector<Tile> const& tiles) const {
    glBegin(GL_LINES);
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        for (GLPolygon const* polygon : *tiles[i].polygons) {
            drawEdges(*polygon, centreOf(i));
        }
    }
    glEnd();
}

void AtlasSheet::drawFrames(std::vector<Tile> const& tiles, double size) const {
    glColor3fv(kFrame.data());
    setLineWidth(size * kLineShare);
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        drawFrame(centreOf(i));
    }
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        for (unsigned int corner = 0; corner < 8; ++corner) {
            bool const isForeground = (tiles[i].configuration >> corner & 1U) != 0;
            drawCorner(inTile(centreOf(i), cornerPosition(corner)), size * kDisc, isForeground);
        }
    }
}

void AtlasSheet::drawFrame(Vector3 const& centre) const {
    glBegin(GL_LINES);
    for (unsigned int corner = 0; corner < 8; ++corner) {
        for (unsigned int axis = 1; axis < 8; axis *= 2) {
            if ((corner & axis) == 0) {
                glVertex3dv(inTile(centre, cornerPosition(corner)).data());
                glVertex3dv(inTile(centre, cornerPosition(corner | axis)).data());
            }
        }
    }
    glEnd();
}

void AtlasSheet::drawCorner(Vector3 const& position, double radius, bool isForeground) const {
    glColor3fv(kInk.data());
    drawDisc(position, radius, 0.02);
    if (!isForeground) {
        glColor3fv(kPaper.data());
        drawDisc(position, 0.7 * radius, 0.03);
    }
}

void AtlasSheet::drawDisc(Vector3 const& position, double radius, double nearer) const {
    constexpr int kSides = 24;
    double const turn = 2 * std::acos(-1.0) / kSides;
    glBegin(GL_TRIANGLE_FAN);
    for (int i = 0; i < kSides; ++i) {
        glVertex3dv(onScreen(position, radius * std::cos(i * turn), radius * std::sin(i * turn), nearer).data());
    }
    glEnd();
}

void AtlasSheet::drawNames(Tile const& tile, Vector3 const& centre) const {
    constexpr double kSide = kTile / 2 - 0.6 * kLetter;
    constexpr double kNearer = 0.9 * kDepth;
    Vector3 const right = onScreen({0, 0, 0}, kLetter, 0, 0);
    Vector3 const up = onScreen({0, 0, 0}, 0, kLetter, 0);
    glColor3fv(kInk.data());
    setLineWidth(1.5 * kLineShare);
    drawStrokeText(std::to_string(tile.configuration), onScreen(centre, -kSide, kSide - kLetter, kNearer), right, up);
    glColor3fv(kFrame.data());
    std::string const number = hexadecimal(tile.configuration);
    drawStrokeText(number, onScreen(centre, kSide - kLetter * strokeTextWidth(number), kSide - kLetter, kNearer), right,
                   up);
    drawStrokeText(tile.system, onScreen(centre, -kSide, -kSide, kNearer), right, up);
}

} // namespace tamo::picture
