// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/plainCells.h"

#include <tamo/surface/TAMO.h>

#include <array>
#include <cstdint>

namespace tamo::plain {

/// Does what the library's `wrapGlobal` does, cell by cell.
inline void wrapGlobal(ScanArguments const& arguments, GLObjectList const& objects, IPolygonAggregator& aggregator) {
    aggregator.start();
    GLObjectList const scaled =
        arguments.step == 1 ? GLObjectList() : GLObjectList(objects, static_cast<float>(arguments.step));
    GLObject* const* const slots = &*(arguments.step == 1 ? objects : scaled).begin();
    auto const position = [&](std::int64_t cell, int start) {
        return static_cast<float>(cell * std::int64_t{arguments.step}) + static_cast<float>(start);
    };
    GLtVec3<int> const& origin = arguments.origin;
    forEachCell(
        SampleGrid(arguments), [&](unsigned char configuration, std::int64_t x, std::int64_t y, std::int64_t z) {
            if (configuration != 0 && configuration != 255) {
                aggregator.fetch(*slots[configuration],
                                 GLCoord3f(position(x, origin.x), position(y, origin.y), position(z, origin.z)));
            }
        });
    aggregator.finish();
}

using Histogram = std::array<std::uint64_t, 256>;

/// Counts all cells by their configuration.
inline Histogram countCells(ScanArguments const& arguments) {
    Histogram histogram{};
    forEachCell(SampleGrid(arguments), [&histogram](unsigned char configuration, std::int64_t, std::int64_t,
                                                    std::int64_t) { ++histogram[configuration]; });
    return histogram;
}

/// Does what the library's `getGLDataInfo` does, cell by cell.
inline GLDataInfo getGLDataInfo(ScanArguments const& arguments, GLObjectList const& objects) {
    Histogram const histogram = countCells(arguments);
    GLDataInfo info(arguments.origin, arguments.extent, arguments.step, 0, 0, 0);
    for (unsigned int c = 0; c < histogram.size(); ++c) {
        for (GLPolygon const* polygon : *objects[c]) {
            info.primitives() += histogram[c];
            info.triangles() += std::size_t{polygon->size() - 2U} * histogram[c];
        }
    }
    info.vertices() = info.triangles() + 2 * info.primitives();
    return info;
}

} // namespace tamo::plain
