// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/geometry/GLAccess3f.h>
#include <tamo/geometry/GLAccessNV.h>
#include <tamo/geometry/GLConstAccess3f.h>
#include <tamo/geometry/GLConstAccessNV.h>
#include <tamo/geometry/GLCoord3f.h>
#include <tamo/geometry/GLVec3f.h>

#include <vector>

/// Holds one surface polygon as OpenGL's interleaved array `GL_N3F_V3F` expects it.
///
/// Vertex i occupies floats 6i to 6i + 5: normal x, y, z, then position x, y, z. Accessors are views into that array,
/// read-only ones where the polygon is const; a resize, a clear or an assignment invalidates them. Vertex indices are
/// not checked except where stated; reading from a polygon without vertices stops the program with the standard
/// library's assertion. Growing the array may throw `std::bad_alloc`; nothing else throws.
///
/// A fan has its centre at vertex 0 and its rim at the others. A fan that is closed repeats its first rim vertex, which
/// is vertex 1, at the end. Other closed polygons repeat no vertex.
class TAMO_EXPORT GLPolygon {
  public:
    /// Makes three vertices, all floats 0, no flag set, black.
    GLPolygon();
    /// Makes `n` vertices, all floats 0, no flag set, black.
    GLPolygon(unsigned int n);
    /// Copies vertices and flags and multiplies every position by `scale`. The copy is black: it does not take the
    /// colour, which says which builder made the original.
    GLPolygon(GLPolygon const& p, float scale = 1.0F);
    /// Copies vertices and flags and adds `offset` to every position. The copy is black, as above.
    GLPolygon(GLPolygon const& p, GLCoord3f const& offset);
    /// Copies everything, the colour included.
    GLPolygon& operator=(GLPolygon const& p);
    virtual ~GLPolygon();

    /// Returns the number of vertices.
    [[nodiscard]] unsigned int size() const;

    /// Returns the colour: red, green, blue in [0, 1].
    [[nodiscard]] GLVec3f& color();
    [[nodiscard]] GLVec3f const& color() const;

    /// Returns the address of vertex i's record of six floats; the index is not checked against the vertex count.
    [[nodiscard]] float* vData(unsigned int i);
    [[nodiscard]] float const* vData(unsigned int i) const;
    [[nodiscard]] GLAccess3f normal(unsigned int i);
    [[nodiscard]] GLConstAccess3f normal(unsigned int i) const;
    [[nodiscard]] GLAccess3f vertex(unsigned int i);
    [[nodiscard]] GLConstAccess3f vertex(unsigned int i) const;
    [[nodiscard]] GLAccessNV access(unsigned int i);
    [[nodiscard]] GLConstAccessNV access(unsigned int i) const;

    [[nodiscard]] bool isFan() const;
    [[nodiscard]] bool isStrip() const;
    [[nodiscard]] bool isClosed() const;
    [[nodiscard]] bool isCCW() const;
    /// Sets the fan flag to `b` and clears the strip flag, whatever `b` is.
    void setFan(bool b);
    /// Sets the strip flag to `b` and clears the fan flag, whatever `b` is.
    void setStrip(bool b);
    void setClosed(bool b);
    void setCCW(bool b);
    /// Stores the four flags as given; fan and strip may both be set.
    void setProperties(bool fan, bool strip, bool closed, bool ccw);

    /// Returns the OpenGL primitive: 6 (`GL_TRIANGLE_FAN`) for a fan, else 5 (`GL_TRIANGLE_STRIP`) for a strip, else 9
    /// (`GL_POLYGON`).
    [[nodiscard]] int type() const;

    /// Makes room for exactly `n` vertices; those kept keep their values, new floats are 0.
    /// The result says nothing about success: it is true for n = 0 and false otherwise. Ignore it.
    bool resize(unsigned int n);
    /// Removes all vertices; flags and colour stay.
    void clear();
    /// Does nothing and returns false: polygons grow through `resize` only.
    bool pushBack(GLAccess3f const& vertex);
    bool pushBack(GLConstAccess3f const& vertex);

    /// Gives every vertex the normal `n`.
    void setNormals(GLVec3f const& n);
    /// Computes every normal from the positions, by the first rule that applies: triangle (whatever the flags), strip
    /// (even where the fan flag is set too), fan, plain polygon. The closed flag matters for a fan only, whose last
    /// normal is then that of vertex 1.
    ///
    /// Counter-clockwise vertices give outward normals, but for a strip's vertices 3, 5, 7 and so on, whose normals
    /// point inward. Degenerate geometry gives NaN. Returns false and changes nothing for fewer than 3 vertices.
    bool setNormals();

    /// Orders the vertices counter-clockwise as seen from the side to which `reference` points, moving normals along,
    /// and sets the CCW flag. A greedy search for the nearest neighbour; vertex 0 stays first. A polygon with the
    /// closed flag keeps its order, unless it is a triangle, which is turned whatever its flags.
    ///
    /// Returns a face direction: for a triangle the cross product before any swap, not normalised; otherwise the
    /// normalised sum of the turns examined. It is NaN where that sum is zero, for fewer than 3 vertices, and for a
    /// polygon that keeps its order for being closed. `reference` is read before anything moves.
    GLVec3f sortCCW(GLAccess3f const& reference);
    GLVec3f sortCCW(GLConstAccess3f const& reference);
    /// Exchanges the whole records of vertices i and j. Returns false, changing nothing, where an index is out of
    /// range.
    bool swapV(unsigned int i, unsigned int j);
    /// Removes vertex i; later vertices move forward. Returns false, changing nothing, where i is out of range.
    bool eraseV(unsigned int i);
    /// Returns the sum of the areas of the triangles of vertices 0, k and k + 1, in square voxels; 0 for fewer than 3
    /// vertices. That is the area of a convex polygon and of a fan, a closed one included, but not of a strip.
    [[nodiscard]] float area() const;

  private:
    [[nodiscard]] float* _begin();
    [[nodiscard]] float const* _begin() const;

    std::vector<float> _data;
    unsigned int _count;
    bool _fan = false;
    bool _strip = false;
    bool _closed = false;
    bool _ccw = false;
    GLVec3f _color;
};
