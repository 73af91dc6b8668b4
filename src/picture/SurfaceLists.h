// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "DisplayList.h"

#include <tamo/surface/GLPolygonConsumer.h>
#include <tamo/surface/IPolygonAggregator.h>

#include <cstddef>
#include <functional>
#include <vector>

namespace tamo::picture {

/// Compiles a scanned surface into display lists of the current context. Drawn one after another they are the
/// surface, and each takes a moment only.
class SurfaceLists : public IPolygonAggregator {
  public:
    /// Moves the surface by `origin`. `primitives` is the number of polygons to come; `progress` is called with the
    /// share of them that is compiled, in [0, 1], once per list.
    SurfaceLists(GLCoord3f const& origin, std::size_t primitives, std::function<void(double)> progress);

    void start() override;
    void fetch(GLObject& object, GLCoord3f const& offset) override;
    void fetch(GLObject& object) override;
    void finish() override;

    /// Returns the names of the lists in the order of the scan; they live as long as this.
    [[nodiscard]] std::vector<unsigned int> names() const;

  private:
    void startNextList();

    GLCoord3f _origin;
    std::vector<DisplayList> _lists;
    GLPolygonConsumer _consumer;
    double _primitives;
    std::function<void(double)> _progress;
    std::size_t _before = 0;
    std::size_t _inList = 0;
};

} // namespace tamo::picture
