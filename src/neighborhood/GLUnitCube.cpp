// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/neighborhood/GLUnitCube.h>

#include <utility>

namespace {

template <std::size_t... I> std::array<GLAccess3f, sizeof...(I)> viewsOf(float* positions, std::index_sequence<I...>) {
    return {GLAccess3f(positions + 3 * I)...};
}

} // namespace

GLUnitCube::GLUnitCube() : _positions(), _accessors(viewsOf(_positions.data(), std::make_index_sequence<8>())) {
    for (unsigned int i = 0; i < _accessors.size(); ++i) {
        _accessors[i] =
            GLVec3f(static_cast<float>(i & 1U), static_cast<float>((i >> 1U) & 1U), static_cast<float>((i >> 2U) & 1U));
    }
}

GLConstAccess3f const& GLUnitCube::vertex(unsigned int i) const { return _accessors[i]; }
