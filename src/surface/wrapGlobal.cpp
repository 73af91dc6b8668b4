// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include TAMO_CIMAGE_ADAPTER
#include "CellScan.h"
#include "SmallScan.h"

#include <tamo/surface/TAMO.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <new>
#include <optional>

namespace {

constexpr char const* kAllocError = "wrapGlobal alloc error";

// Returns the list scaled to the size of the cells, or null, with a message, where it cannot be had.
std::unique_ptr<GLObjectList> makeScaledList(GLObjectList const& objects, unsigned int step) {
    std::unique_ptr<GLObjectList> scaled;
    try {
        scaled = std::make_unique<GLObjectList>(objects, static_cast<float>(step));
    } catch (std::bad_alloc const&) {
        scaled = nullptr;
    }
    if (scaled && scaled->size() != objects.size()) {
        std::cerr << "cList size mismatch: size=" << scaled->size() << std::endl;
        return nullptr;
    }
    // A null slot is an object that could not be allocated: the copy as a whole has failed.
    if (!scaled || std::find(scaled->begin(), scaled->end(), nullptr) != scaled->end()) {
        std::cerr << kAllocError << std::endl;
        return nullptr;
    }
    return scaled;
}

// Where cells lie along one axis.
class AxisPositions {
  public:
    AxisPositions(unsigned int step, int start) : _step(step), _start(static_cast<float>(start)) {}

    float operator()(std::int64_t cell) const {
        // Cell coordinate and origin become floats apart from each other: far from the origin the sum rounds
        // differently.
        return static_cast<float>(cell * _step) + _start;
    }

  private:
    std::int64_t _step;
    float _start;
};

// The same, computed once for all cells of a small grid: those of its columns meet the same positions again and again.
class PositionTable {
  public:
    PositionTable(AxisPositions const& positions, std::int64_t samples) {
        for (std::int64_t cell = -1; cell < samples; ++cell) {
            _positions[cell + 1] = positions(cell);
        }
    }

    float operator()(std::int64_t cell) const { return _positions[cell + 1]; }

  private:
    float _positions[tamo::SmallScan::kLongest];
};

// Returns what a scan calls with each column; it hands the column's cells to the receiver.
template <typename Positions>
auto handOver(GLObject* const* slots, Positions const& x, Positions const& y, Positions const& z,
              IPolygonAggregator& aggregator) {
    return [&, slots](std::int64_t cellX, std::int64_t cellY) {
        return [&, slots, px = x(cellX), py = y(cellY)](unsigned char configuration, std::int64_t cellZ) {
            aggregator.fetch(*slots[configuration], GLCoord3f(px, py, z(cellZ)));
        };
    };
}

bool scanCells(tamo::SampleGrid const& grid, unsigned int step, GLtVec3<int> const& origin, GLObjectList const& objects,
               IPolygonAggregator& aggregator) {
    GLObject* const* const slots = &*objects.begin();
    AxisPositions const x(step, origin.x);
    AxisPositions const y(step, origin.y);
    AxisPositions const z(step, origin.z);
    if (tamo::SmallScan::fits(grid)) {
        PositionTable const xTable(x, grid.count.x);
        PositionTable const yTable(y, grid.count.y);
        PositionTable const zTable(z, grid.count.z);
        tamo::SmallScan(grid).visitInOrder(handOver(slots, xTable, yTable, zTable, aggregator));
        return true;
    }
    std::optional<tamo::CellScan> scan;
    try {
        scan.emplace(grid);
    } catch (std::bad_alloc const&) {
        std::cerr << kAllocError << std::endl;
        return false;
    }
    scan->visitInOrder(handOver(slots, x, y, z, aggregator));
    return true;
}

} // namespace

bool wrapGlobal(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                IPolygonAggregator& aggregator) {
    // Receivers may keep what they get until `finish`: so long the scaled objects live.
    std::unique_ptr<GLObjectList> scaled;
    bool result = false;
    aggregator.start();
    if (tamo::isScannable(data, step, extent, objects)) {
        if (step != 1) {
            scaled = makeScaledList(objects, step);
        }
        GLObjectList const* const list = step != 1 ? scaled.get() : &objects;
        result = list != nullptr && scanCells(tamo::makeSampleGrid(data, increments, step, origin, extent), step,
                                              origin, *list, aggregator);
    }
    aggregator.finish();
    return result;
}

bool wrapGlobal(Kade::CImage const& image, unsigned int step, GLObjectList const& objects,
                IPolygonAggregator& aggregator) {
    return wrapGlobal(imageFirstVoxel(image), imageIncrements(image), step, {0, 0, 0}, imageSize(image), objects,
                      aggregator);
}
