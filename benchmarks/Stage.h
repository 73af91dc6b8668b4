// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "BenchVolume.h"

#include <tamo/surface/TAMO.h>

#include <functional>
#include <memory>
#include <string>

namespace tamo::bench {

/// What a volume shows, whatever its size and layout.
struct Pattern {
    char const* name;
    std::function<Cube(int side)> make;
    /// Whether targets are set for this pattern in all layouts.
    bool isTarget;
};

/// The volume that the running benchmark needs: made when a benchmark first asks for it, then kept for those that
/// follow, so that one large volume at a time is in memory.
class Stage {
  public:
    BenchVolume const& volume(Pattern const& pattern, int side, Layout const& layout) {
        std::string const cubeName = pattern.name + ('/' + std::to_string(side));
        if (cubeName != _cubeName) {
            _volume = nullptr;
            _volumeName.clear();
            _cube = pattern.make(side);
            _cubeName = cubeName;
        }
        if (layout.name != _volumeName) {
            _volume = nullptr;
            _volume = std::make_unique<BenchVolume>(_cube, layout);
            _volumeName = layout.name;
        }
        return *_volume;
    }

    /// Returns the list that scans use.
    GLObjectList const& objects() {
        if (_objects.size() == 0) {
            GLObjectListForNeighborhood(Neighborhood::N14II, _objects);
        }
        return _objects;
    }

    /// Returns the same with a polygon for empty and for full cells, so that a count has to count those as well.
    GLObjectList const& objectsForAllCells() {
        if (_objectsForAllCells.size() == 0) {
            GLObjectListForNeighborhood(Neighborhood::N14II, _objectsForAllCells);
            for (std::size_t const slot : {std::size_t{0}, std::size_t{255}}) {
                _objectsForAllCells[slot]->push_back(std::make_unique<GLPolygon>(3U).release());
            }
        }
        return _objectsForAllCells;
    }

  private:
    std::string _cubeName;
    Cube _cube{};
    std::string _volumeName;
    std::unique_ptr<BenchVolume> _volume;
    GLObjectList _objects;
    GLObjectList _objectsForAllCells;
};

} // namespace tamo::bench
