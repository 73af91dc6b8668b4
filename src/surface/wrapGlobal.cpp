// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include TAMO_CIMAGE_ADAPTER
#include "../scan/CellScan.h"
#include "../scan/PlainScan.h"
#include "../scan/SmallScan.h"
#include "ScanArguments.h"

#include <tamo/surface/TAMO.h>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <memory>
#include <new>
#include <string>

namespace {

namespace scan = tamo::scan;

// Returns the list scaled to the size of the cells, or null, with a message, where it cannot be had.
std::unique_ptr<GLObjectList> makeScaledList(GLObjectList const& objects, unsigned int step) {
    std::unique_ptr<GLObjectList> scaled;
    try {
        scaled = std::make_unique<GLObjectList>(objects, static_cast<float>(step));
    } catch (std::bad_alloc const&) {
        scaled = nullptr;
    }
    if (scaled && scaled->size() != objects.size()) {
        // As text, which is decimal whatever the stream is set to.
        std::string const size = std::to_string(scaled->size());
        scaled.reset();
        std::cerr << "cList size mismatch: size=" << size << std::endl;
        return nullptr;
    }
    // A null slot is an object that could not be allocated: the copy as a whole has failed.
    if (!scaled || std::find(scaled->begin(), scaled->end(), nullptr) != scaled->end()) {
        scaled.reset();
        std::cerr << "wrapGlobal alloc error" << std::endl;
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
    float _positions[scan::SmallScan::kLongest];
};

// Takes the cut cells of a scan and hands their objects and positions to the caller's receiver.
template <typename Positions> class CellDelivery {
  public:
    // The positions are those along x, y and z; they are not copied.
    CellDelivery(GLObjectList const& objects, Positions const& x, Positions const& y, Positions const& z,
                 IPolygonAggregator& aggregator)
        : _slots(&*objects.begin()), _xPositions(x), _yPositions(y), _zPositions(z), _aggregator(aggregator) {}

    void beginColumn(std::int64_t x, std::int64_t y) {
        _x = _xPositions(x);
        _y = _yPositions(y);
    }

    void takeCell(unsigned char configuration, std::int64_t z) {
        _aggregator.fetch(*_slots[configuration], GLCoord3f(_x, _y, _zPositions(z)));
    }

  private:
    GLObject* const* _slots;
    Positions const& _xPositions;
    Positions const& _yPositions;
    Positions const& _zPositions;
    IPolygonAggregator& _aggregator;
    float _x = 0.0F;
    float _y = 0.0F;
};

void scanCells(scan::SampleGrid const& grid, GLtVec3<AxisPositions> const& positions, GLObjectList const& objects,
               IPolygonAggregator& aggregator) {
    if (scan::SmallScan::fits(grid)) {
        PositionTable const x(positions.x, grid.count.x);
        PositionTable const y(positions.y, grid.count.y);
        PositionTable const z(positions.z, grid.count.z);
        CellDelivery<PositionTable> delivery(objects, x, y, z, aggregator);
        scan::SmallScan(grid).handTo(delivery);
        return;
    }
    CellDelivery<AxisPositions> delivery(objects, positions.x, positions.y, positions.z, aggregator);
    scan::ReadPlan const plan = scan::makeReadPlan(grid);
    scan::WorkSpace space(grid, plan);
    if (space.isTaken() && scan::CellScan::suits(grid)) {
        scan::CellScan(grid, plan, space).handTo(delivery);
    } else {
        scan::PlainScan(grid).handTo(delivery);
    }
}

} // namespace

bool wrapGlobal(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                IPolygonAggregator& aggregator) {
    // Receivers may keep what they get until `finish`: the scaled objects live that long.
    std::unique_ptr<GLObjectList> scaled;
    GLObjectList const* list = nullptr;
    aggregator.start();
    if (tamo::isScannable(data, step, extent, objects)) {
        if (step != 1) {
            scaled = makeScaledList(objects, step);
        }
        list = step != 1 ? scaled.get() : &objects;
    }
    if (list != nullptr) {
        GLtVec3<AxisPositions> const positions = {AxisPositions(step, origin.x), AxisPositions(step, origin.y),
                                                  AxisPositions(step, origin.z)};
        scanCells(scan::makeSampleGrid(data, increments, step, origin, extent), positions, *list, aggregator);
    }
    aggregator.finish();
    return list != nullptr;
}

bool wrapGlobal(Kade::CImage const& image, unsigned int step, GLObjectList const& objects,
                IPolygonAggregator& aggregator) {
    auto const increments = tamo::scanIncrements(imageIncrements(image));
    if (!increments) {
        aggregator.start();
        aggregator.finish();
        return false;
    }
    return wrapGlobal(imageFirstVoxel(image), *increments, step, {0, 0, 0}, imageSize(image), objects, aggregator);
}
