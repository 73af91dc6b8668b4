// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/surface/IPolygonAggregator.h>

/// Compiles the fetched polygons into an OpenGL display list, with client-side interleaved arrays (OpenGL 1.1).
///
/// Construction opens the list, `finish` ends it: one consumer serves one scan, and `setList` opens the next. All calls
/// belong on the thread that holds the current OpenGL context. OpenGL's errors are left to OpenGL.
class TAMO_EXPORT GLPolygonConsumer : public IPolygonAggregator {
  public:
    /// Opens display list `list` (a name from `glGenLists`) for compilation.
    GLPolygonConsumer(int list = 0);
    /// Copies the list name; calls nothing of OpenGL.
    GLPolygonConsumer(GLPolygonConsumer const&) = default;
    GLPolygonConsumer& operator=(GLPolygonConsumer const&) = default;
    ~GLPolygonConsumer() override;

    /// Opens another display list for compilation.
    void setList(int list);

    /// Enables the vertex and the normal array.
    void start() override;
    /// Ends the display list and disables the two arrays.
    void finish() override;
    /// Draws every polygon of `object` moved by `offset`, in the current colour: one temporary copy per polygon.
    void fetch(GLObject& object, GLCoord3f const& offset) override;
    /// Draws every polygon of `object` in its own colour; does nothing where the list name is 0.
    void fetch(GLObject& object) override;

  private:
    int _list;
};
