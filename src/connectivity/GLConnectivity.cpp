// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../neighborhood/CornerBits.h"
#include "../objects/Configurations.h"
#include "../objects/appendOwned.h"

#include <tamo/connectivity/GLConnectivity.h>
#include <tamo/neighborhood/GLUnitCube.h>

#include <array>
#include <cstddef>
#include <memory>
#include <utility>

// Part of the exported interface; vertex comparisons are exact, so that nothing here has a use for it.
float const GLConnectivity::epsilon = 1e-16F;

using tamo::appendOwned;

namespace {

// Gathers the midpoints of one polyhedron's foreground-background corner pairs.
class PolyhedronCut {
  public:
    PolyhedronCut(GLUnitCube const& cube, GLTesselation const& tesselation, unsigned int polyhedron,
                  unsigned int configuration) {
        unsigned int const corners = tesselation.polyhSize(static_cast<int>(polyhedron));
        auto const cornerAt = [&](unsigned int place) {
            return static_cast<unsigned int>(tesselation.getNook(polyhedron, place));
        };
        // No corner past the cell's eight is foreground; cutting a link to one stops at the cube's bounds.
        auto const isForeground = [configuration](unsigned int corner) {
            return corner < tamo::kCornerCount && (configuration >> corner & 1U) != 0;
        };
        for (unsigned int a = 0; a < corners; ++a) {
            if (!isForeground(cornerAt(a))) {
                continue;
            }
            for (unsigned int b = 0; b < corners; ++b) {
                if (!isForeground(cornerAt(b))) {
                    add(cube.vertex(cornerAt(a)), cube.vertex(cornerAt(b)));
                }
            }
        }
    }

    // Returns the polygon of the cuts, or null where there are fewer than three; adds its unit direction to `total`.
    [[nodiscard]] std::unique_ptr<GLPolygon> makePolygon(GLVec3f& total) {
        if (_count < 3) {
            return nullptr;
        }
        auto polygon = std::make_unique<GLPolygon>(_count);
        for (unsigned int i = 0; i < _count; ++i) {
            polygon->vertex(i) = _positions[i];
        }
        _direction.normalize();
        total += _direction;
        std::array<float, 3> reference = {_direction.x, _direction.y, _direction.z};
        polygon->sortCCW(GLAccess3f(reference.data()));
        polygon->setNormals();
        polygon->color() = GLVec3f(1.0F, 0.0F, 0.0F);
        return polygon;
    }

  private:
    void add(GLConstAccess3f const& foreground, GLConstAccess3f const& background) {
        _positions[_count] = (foreground + background) * 0.5F;
        _direction += background - foreground;
        ++_count;
    }

    static constexpr std::size_t kMostCuts = 8;

    std::array<GLVec3f, kMostCuts> _positions;
    unsigned int _count = 0;
    // Points from the foreground to the background: the polygon's outward side.
    GLVec3f _direction;
};

} // namespace

bool GLConnectivity::wrapLocal(GLTesselation const& tesselation, GLObjectList* list, bool reduce) {
    GLUnitCube const cube;
    list->clear();
    list->reserve(tamo::kConfigurationCount);
    appendOwned(*list, std::make_unique<GLObject>());
    for (unsigned int configuration = 1; configuration < tamo::kFullCell; ++configuration) {
        auto object = std::make_unique<GLObject>();
        GLVec3f total;
        for (unsigned int i = 0; i < static_cast<unsigned int>(tesselation.size()); ++i) {
            if (auto polygon = PolyhedronCut(cube, tesselation, i, configuration).makePolygon(total)) {
                appendOwned(*object, std::move(polygon));
            }
        }
        if (reduce && object->size() >= 2) {
            reducePolygons(object.get(), 3, true);
            total.normalize();
            std::array<float, 3> direction = {total.x, total.y, total.z};
            makeTriangleFan(object.get(), GLAccess3f(direction.data()));
            reducePolygons(object.get(), 3, false);
        }
        appendOwned(*list, std::move(object));
    }
    appendOwned(*list, std::make_unique<GLObject>());
    return true;
}
