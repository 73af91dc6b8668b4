// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include TAMO_CIMAGE_ADAPTER
#include "CellScan.h"

#include <tamo/surface/TAMO.h>

#include <array>

bool getGLDataInfo(unsigned char const* data, GLtVec3<int> const& increments, unsigned int step,
                   GLtVec3<int> const& origin, GLtVec3<int> const& extent, GLObjectList const& objects,
                   GLDataInfo& info) {
    if (!tamo::isScannable(data, step, extent, objects)) {
        return false;
    }
    std::array<std::uint64_t, 256> histogram{};
    tamo::forEachCell(tamo::makeSampleGrid(data, increments, step, origin, extent),
                      [&histogram](unsigned char configuration, std::int64_t, std::int64_t, std::int64_t) {
                          ++histogram[configuration];
                      });

    // In one assignment: the caller may have taken origin and extent from the record itself.
    info = GLDataInfo(origin, extent, step, 0, 0, 0);
    for (unsigned int c = 0; c < histogram.size(); ++c) {
        for (GLPolygon const* polygon : *objects[c]) {
            // n - 2 wraps in 32 bits: a polygon of fewer than two vertices shows in the totals instead of hiding.
            unsigned int const triangles = polygon->size() - 2;
            info.primitives() += histogram[c];
            info.triangles() += std::size_t{triangles} * histogram[c];
        }
    }
    info.vertices() = info.triangles() + 2 * info.primitives();
    return true;
}

bool getGLDataInfo(Kade::CImage const& image, unsigned int step, GLObjectList const& objects, GLDataInfo& info) {
    return getGLDataInfo(imageFirstVoxel(image), imageIncrements(image), step, {0, 0, 0}, imageSize(image), objects,
                         info);
}
