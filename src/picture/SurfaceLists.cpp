// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "SurfaceLists.h"

#include <GL/gl.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tamo::picture {

SurfaceLists::SurfaceLists(GLCoord3f const& origin, std::size_t primitives, std::function<void(double)> progress)
    : _origin(origin), _lists(1), _consumer(static_cast<int>(_lists.front().name())),
      _primitives(static_cast<double>(primitives)), _progress(std::move(progress)) {}

void SurfaceLists::start() { _consumer.start(); }

void SurfaceLists::finish() { _consumer.finish(); }

void SurfaceLists::fetch(GLObject& object) { _consumer.fetch(object); }

void SurfaceLists::fetch(GLObject& object, GLCoord3f const& offset) {
    // Drawing a list cannot be watched: this many polygons take less than a tenth of a second.
    constexpr std::size_t kListPrimitives = 1 << 16;
    if (_inList >= kListPrimitives) {
        startNextList();
    }
    _consumer.fetch(object, GLCoord3f(offset.x + _origin.x, offset.y + _origin.y, offset.z + _origin.z));
    _inList += object.size();
}

void SurfaceLists::startNextList() {
    _before += _inList;
    _inList = 0;
    _progress(static_cast<double>(_before) / _primitives);
    glEndList();
    _lists.emplace_back();
    _consumer.setList(static_cast<int>(_lists.back().name()));
}

std::vector<unsigned int> SurfaceLists::names() const {
    std::vector<unsigned int> names;
    std::transform(_lists.begin(), _lists.end(), std::back_inserter(names),
                   [](DisplayList const& list) { return list.name(); });
    return names;
}

} // namespace tamo::picture
