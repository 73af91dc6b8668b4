// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Camera.h"
#include "DisplayList.h"

#include "../geometry/Vector3.h"

#include <tamo/objects/GLObjectList.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace tamo::picture {

/// Compiles a sheet of tiles, row by row from the upper left, in the current context.
///
/// A tile shows the cell's wire frame, its corners (a disc for foreground, a ring for background) and the polygons:
/// warm on the outward side, the one from which vertices turn counter-clockwise, and cold on the inside. Above it stand
/// the configuration's number, decimal and hexadecimal, below it the system.
class AtlasSheet {
  public:
    /// What one tile shows: a configuration and the polygons, not owned, that a system gives it.
    struct Tile {
        std::string system;
        unsigned int configuration;
        GLObject* polygons;
    };

    /// `columns` is at least 1; a picture of `size` is drawn with `samples` along each side of a pixel.
    AtlasSheet(std::vector<Tile> const& tiles, std::size_t columns, View view, PictureSize size, int samples);

    /// Returns the name of the display list, which lives as long as this.
    [[nodiscard]] unsigned int displayList() const { return _list.name(); }
    [[nodiscard]] Camera const& camera() const { return _camera; }

  private:
    void placeCamera(std::size_t rows, PictureSize size);
    [[nodiscard]] Vector3 centreOf(std::size_t tile) const;
    [[nodiscard]] Vector3 onScreen(Vector3 const& origin, double right, double up, double nearer) const;
    void setLineWidth(double share) const;
    void compilePolygons(std::vector<Tile> const& tiles) const;
    void drawPolygons(std::vector<Tile> const& tiles) const;
    void drawTriangles(std::vector<Tile> const& tiles) const;
    void drawFrames(std::vector<Tile> const& tiles, double size) const;
    void drawFrame(Vector3 const& centre) const;
    void drawCorner(Vector3 const& position, double radius, bool isForeground) const;
    void drawDisc(Vector3 const& position, double radius, double nearer) const;
    void drawNames(Tile const& tile, Vector3 const& centre) const;

    std::size_t _columns;
    std::array<Vector3, 3> _axes;
    /// Pixels, as they are drawn, that one unit of the cell takes.
    double _scale = 1;
    Camera _camera;
    /// The polygons alone; the sheet's list calls it.
    DisplayList _polygons;
    DisplayList _list;
};

} // namespace tamo::picture
