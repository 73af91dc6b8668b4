// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <Kade/CImage.h>

#include <tamo/surface/TAMO.h>

#include <algorithm>

namespace {

// Keeps the range of cell positions, which tells where along each axis the library found the voxel.
class CellRange : public IPolygonAggregator {
  public:
    void fetch(GLObject&, GLCoord3f const& offset) override {
        low = {std::min(low.x, offset.x), std::min(low.y, offset.y), std::min(low.z, offset.z)};
        high = {std::max(high.x, offset.x), std::max(high.y, offset.y), std::max(high.z, offset.z)};
    }
    void fetch(GLObject&) override {}

    GLCoord3f low{99, 99, 99};
    GLCoord3f high{-99, -99, -99};
};

} // namespace

int main() {
    Kade::CImage image(5, 7, 9);
    image.paint(1, 2, 4);
    GLObjectList list;
    GLObjectListForNeighborhood(Neighborhood::N14II, list);
    GLDataInfo info;
    CellRange range;
    bool const done = getGLDataInfo(image, 1, list, info) && wrapGlobal(image, 1, list, range);
    // Eight cells meet at the voxel; 24 of their tetrahedra touch it.
    bool const right = info.triangles() == 24 && info.size() == GLtVec3<int>{5, 7, 9} &&
                       range.low == GLCoord3f{0, 1, 3} && range.high == GLCoord3f{1, 2, 4};
    return done && right ? 0 : 1;
}
