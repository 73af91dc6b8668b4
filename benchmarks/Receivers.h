// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/surface/IPolygonAggregator.h>

#include <cstdint>
#include <vector>

namespace tamo::bench {

/// Counts the cells and does nothing else: what a scan costs on its own.
class CountingReceiver : public IPolygonAggregator {
  public:
    void fetch(GLObject& /*object*/, GLCoord3f const& /*offset*/) override { ++cells; }
    void fetch(GLObject& /*object*/) override {}

    std::uint64_t cells = 0;
};

/// Keeps where each cell lies and what it looks like.
class CollectingReceiver : public IPolygonAggregator {
  public:
    struct Cell {
        GLObject* object;
        GLCoord3f position;
    };

    void start() override { cells.clear(); }
    void fetch(GLObject& object, GLCoord3f const& offset) override { cells.push_back({&object, offset}); }
    void fetch(GLObject& /*object*/) override {}

    std::vector<Cell> cells;
};

} // namespace tamo::bench
