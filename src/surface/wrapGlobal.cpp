// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include TAMO_CIMAGE_ADAPTER
#include "CellScan.h"

#include <tamo/surface/TAMO.h>

#include <algorithm>
#include <iostream>
#include <memory>
#include <new>
#include <optional>

namespace {

constexpr char const* kAllocError = "wrapGlobal alloc error";

/// Calls `start` at once and `finish` once the scan is over or refused.
class AggregatorSession {
  public:
    explicit AggregatorSession(IPolygonAggregator& aggregator) : _aggregator(aggregator) { _aggregator.start(); }

    bool finish(bool result) {
        _aggregator.finish();
        return result;
    }

  private:
    IPolygonAggregator& _aggregator;
};

/// Returns the list scaled to the size of the cells, or null, with a message, where it cannot be had.
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

} // namespace

bool wrapGlobal(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                IPolygonAggregator& aggregator) {
    AggregatorSession session(aggregator);
    if (!tamo::isScannable(data, step, extent, objects)) {
        return session.finish(false);
    }
    std::unique_ptr<GLObjectList> scaled;
    if (step != 1) {
        scaled = makeScaledList(objects, step);
        if (!scaled) {
            return session.finish(false);
        }
    }
    tamo::SampleGrid const grid = tamo::makeSampleGrid(data, increments, step, origin, extent);
    std::optional<tamo::CellScan> scan;
    try {
        scan.emplace(grid);
    } catch (std::bad_alloc const&) {
        std::cerr << kAllocError << std::endl;
        return session.finish(false);
    }

    GLObject* const* const slots = &*(scaled ? *scaled : objects).begin();
    // Cell coordinate and origin become floats apart from each other: far from the origin the sum rounds differently.
    auto const position = [step](std::int64_t cell, int start) {
        return static_cast<float>(cell * static_cast<std::int64_t>(step)) + static_cast<float>(start);
    };
    scan->visitInOrder([&](std::int64_t x, std::int64_t y) {
        return
            [&, px = position(x, origin.x), py = position(y, origin.y)](unsigned char configuration, std::int64_t z) {
                aggregator.fetch(*slots[configuration], GLCoord3f(px, py, position(z, origin.z)));
            };
    });
    return session.finish(true);
}

bool wrapGlobal(Kade::CImage const& image, unsigned int step, GLObjectList const& objects,
                IPolygonAggregator& aggregator) {
    return wrapGlobal(imageFirstVoxel(image), imageIncrements(image), step, {0, 0, 0}, imageSize(image), objects,
                      aggregator);
}
