// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/TamoException.h>
#include <tamo/surface/TAMO.h>

#include <cstring>

namespace {

class CellCount : public IPolygonAggregator {
  public:
    void fetch(GLObject&, GLCoord3f const&) override { ++cells; }
    void fetch(GLObject&) override {}

    int cells = 0;
};

// One voxel is a corner of eight cells, under a system of either builder.
bool scansOneVoxel(Neighborhood::NHConfig config) {
    unsigned char const voxel = 1;
    GLObjectList list;
    GLObjectListForNeighborhood(config, list);
    CellCount count;
    return wrapGlobal(&voxel, {1, 1, 1}, 1, {0, 0, 0}, {1, 1, 1}, list, count) && count.cells == 8;
}

bool catchesException() {
    try {
        return Neighborhood().getConn(28) == 0;
    } catch (TamoException const& exception) {
        return std::strcmp(exception.what(), "Neighborhood::getConn invalid Index") == 0;
    }
}

} // namespace

// Uses what could hold a library in memory: both builders, a receiver of the caller's, an exception.
extern "C" bool useLibrary() {
    return scansOneVoxel(Neighborhood::N6) && scansOneVoxel(Neighborhood::N14II) && catchesException();
}
