// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SurfaceLists.h"

#include "terminal/Progress.h"
#include "terminal/QuietLibraries.h"
#include "terminal/UserError.h"

#include <tamo/surface/GLPolygonConsumer.h>
#include <tamo/surface/TAMO.h>

#include <GL/gl.h>

#include <string>

namespace tamo::tool {

namespace {

// Hands the surface on to the library's own receiver, moved by `origin` and a list after another, and shows how much
// of it has passed.
class ListCompiler : public IPolygonAggregator {
  public:
    ListCompiler(Size3 const& origin, std::size_t primitives, Progress& progress)
        : _origin(static_cast<float>(origin[0]), static_cast<float>(origin[1]), static_cast<float>(origin[2])),
          _lists{glGenLists(1)}, _consumer(static_cast<int>(_lists.front())),
          _primitives(static_cast<double>(primitives)), _progress(progress) {}

    void start() override { _consumer.start(); }
    void finish() override { _consumer.finish(); }
    void fetch(GLObject& object) override { _consumer.fetch(object); }
    void fetch(GLObject& object, GLCoord3f const& offset) override {
        // Drawing a list cannot be watched: this many polygons take less than a tenth of a second.
        constexpr std::size_t kListPrimitives = 1 << 16;
        if (_inList >= kListPrimitives) {
            startNextList();
        }
        _consumer.fetch(object, GLCoord3f(offset.x + _origin.x, offset.y + _origin.y, offset.z + _origin.z));
        _inList += object.size();
    }

    [[nodiscard]] std::vector<unsigned int> const& lists() const { return _lists; }

  private:
    void startNextList() {
        _before += _inList;
        _inList = 0;
        _progress.update(static_cast<double>(_before) / _primitives);
        glEndList();
        _lists.push_back(glGenLists(1));
        _consumer.setList(static_cast<int>(_lists.back()));
    }

    GLCoord3f _origin;
    std::vector<unsigned int> _lists;
    GLPolygonConsumer _consumer;
    double _primitives;
    Progress& _progress;
    std::size_t _before = 0;
    std::size_t _inList = 0;
};

} // namespace

std::vector<unsigned int> compileSurface(Scan const& scan, GLObjectList const& objects, GLDataInfo const& info) {
    Progress progress("scanning");
    progress.update(0);
    ListCompiler compiler(scan.binary.first, info.primitives(), progress);
    bool const isScanned = [&] {
        // The scan has a line of its own for this, which names neither file nor option.
        QuietLibraries const quiet;
        return wrapGlobal(scan.binary.voxels.data(), scan.binary.increments(), scan.step, {0, 0, 0}, scan.extent(),
                          objects, compiler);
    }();
    if (!isScanned) {
        // All else that a scan refuses has been refused when it was counted.
        throw UserError("--step " + std::to_string(scan.step) +
                        ": expected memory for the polygons of this step's cells, found too little");
    }
    return compiler.lists();
}

} // namespace tamo::tool
