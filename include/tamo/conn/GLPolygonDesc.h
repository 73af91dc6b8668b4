// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/geometry/GLPolygon.h>
#include <tamo/geometry/GLVec3f.h>

#include <array>
#include <memory>
#include <optional>
#include <vector>

/// Holds a polygon under construction, for one pair of a foreground and a background component of a cell.
///
/// A vertex is the midpoint of a link, named by the link's number, with a slot that keeps its normal. At most 26
/// vertices can be added; closing the polygon repeats one more. `conn` and `normalIndex` start with a place for each
/// link and grow where that is not enough. A wrong index is an error of the program and ends it.
struct TAMO_EXPORT GLPolygonDesc {
    /// Makes a polygon without vertices over the links whose midpoints `pointTable` lists; the table must outlive it.
    GLPolygonDesc(std::vector<GLVec3f> const& pointTable, unsigned char linkCount);
    GLPolygonDesc(std::vector<GLVec3f> const&& pointTable, unsigned char linkCount) = delete;

    /// Appends the midpoint of link `link`. Returns false, changing nothing, where 26 vertices are in use or there is
    /// no such link. Throws `std::bad_alloc` where the arrays have to grow.
    bool addVertex(unsigned char link, GLVec3f const& normal);
    /// Removes the first vertex of link `link`; later ones move forward. Returns false where there is none.
    bool removeVertex(unsigned char link);
    /// Exchanges vertices i and j, their normals included. Ends the program, with a line on standard error, where i or
    /// j is not below `count`.
    void swapVertices(unsigned char i, unsigned char j);

    /// Returns the position of vertex k, in unit-cell coordinates.
    [[nodiscard]] GLVec3f const& position(unsigned int k) const;
    /// Returns the normal that was given when vertex k was added.
    [[nodiscard]] GLVec3f const& normal(unsigned int k) const;

    /// Sets `centre` to the mean position and `meanNormal` to the normalised sum of normals (NaN where the sum is
    /// zero); both are zero without vertices.
    void computeCentre();

    /// Orders the vertices counter-clockwise about the mean normal, or about `givenNormal`, and sets `ccw`.
    ///
    /// Vertex `first` becomes the start of the turn. A vertex on the centroid or on the cell centre goes before them
    /// all and `hasCentre` is set; `second`, unless it is 0, then follows `first` unsorted. With `close`, a polygon
    /// with such a vertex, or a fan, repeats vertex 1 at the end, even one that repeats it already, and sets `closed`;
    /// else `closed` is cleared. Ends the program as `swapVertices` does, and where `count` would pass 255. Throws
    /// `std::bad_alloc` where the arrays have to grow.
    void arrange(unsigned char first, unsigned char second, bool close,
                 std::optional<GLVec3f> const& givenNormal = std::nullopt);

    /// Makes a polygon of the vertices as they stand, with positions, normals and the four flags.
    [[nodiscard]] std::unique_ptr<GLPolygon> createPolygon() const;

    unsigned char count = 0;
    unsigned char connCount;
    std::vector<unsigned char> conn;
    std::vector<unsigned char> normalIndex;
    std::array<GLVec3f, 26> normals;
    std::vector<GLVec3f> const* points;
    unsigned char state = 0;
    bool hasCentre = false;
    bool fan = false;
    bool strip = false;
    bool closed = false;
    bool ccw = false;
    GLVec3f centre;
    GLVec3f meanNormal;
};
