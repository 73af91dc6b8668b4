// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include TAMO_CIMAGE_ADAPTER
#include "../scan/countCells.h"
#include "ScanArguments.h"

#include <tamo/surface/TAMO.h>

#include <cstddef>

namespace scan = tamo::scan;

bool getGLDataInfo(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                   GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                   GLDataInfo& info) {
    if (!tamo::isScannable(data, step, extent, objects)) {
        return false;
    }
    // The builders leave both slots empty, so that the cells that make up most of a volume need no counting.
    bool const isCutOnly = objects[0]->size() == 0 && objects[tamo::kFullCell]->size() == 0;
    scan::Histogram const histogram = scan::countCells(scan::makeSampleGrid(data, increments, step, origin, extent),
                                                       isCutOnly ? scan::CountedCells::kCut : scan::CountedCells::kAll);

    std::size_t primitives = 0;
    std::size_t triangles = 0;
    for (unsigned int c = 0; c < histogram.size(); ++c) {
        if (histogram[c] == 0) {
            continue;
        }
        std::size_t trianglesOfCell = 0;
        for (GLPolygon const* polygon : *objects[c]) {
            // n - 2 wraps in 32 bits: a polygon of fewer than two vertices shows in the totals instead of hiding.
            trianglesOfCell += polygon->size() - 2U;
        }
        primitives += objects[c]->size() * histogram[c];
        triangles += trianglesOfCell * histogram[c];
    }
    // In one assignment: the caller may have taken origin and extent from the record itself.
    info = GLDataInfo(origin, extent, step, 0, 0, 0);
    info.primitives() = primitives;
    info.triangles() = triangles;
    info.vertices() = triangles + 2 * primitives;
    return true;
}

bool getGLDataInfo(Kade::CImage const& image, unsigned int step, GLObjectList const& objects, GLDataInfo& info) {
    auto const increments = tamo::scanIncrements(imageIncrements(image));
    return increments &&
           getGLDataInfo(imageFirstVoxel(image), *increments, step, {0, 0, 0}, imageSize(image), objects, info);
}
