// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/ConnectivityPrivates.h"

#include "support/PrivateAccess.h"

#include <array>

namespace tamo::test {

struct FanTag {
    using Type = unsigned int (GLConnectivity::*)(GLObject*, GLAccess3f const&);
    friend Type access(FanTag);
};
template struct PrivateAccess<FanTag, &GLConnectivity::makeTriangleFan>;

struct ReduceTag {
    using Type = unsigned int (GLConnectivity::*)(GLObject*, unsigned int, bool);
    friend Type access(ReduceTag);
};
template struct PrivateAccess<ReduceTag, &GLConnectivity::reducePolygons>;

struct CombineTag {
    using Type = GLPolygon* (GLConnectivity::*)(GLPolygon*, GLPolygon*, unsigned int, bool);
    friend Type access(CombineTag);
};
template struct PrivateAccess<CombineTag, &GLConnectivity::combinePolygons>;

struct EpsilonTag {
    using Type = float const*;
    friend Type access(EpsilonTag);
};
template struct PrivateAccess<EpsilonTag, &GLConnectivity::epsilon>;

unsigned int makeTriangleFan(GLObject& object) {
    GLConnectivity connectivity;
    std::array<float, 3> unused = {0, 0, 0};
    return (connectivity.*access(FanTag()))(&object, GLAccess3f(unused.data()));
}

unsigned int reducePolygons(GLObject& object, unsigned int n, bool sameNormal) {
    GLConnectivity connectivity;
    return (connectivity.*access(ReduceTag()))(&object, n, sameNormal);
}

std::unique_ptr<GLPolygon> combinePolygons(GLPolygon& p, GLPolygon& q, unsigned int n, bool sameNormal) {
    GLConnectivity connectivity;
    return std::unique_ptr<GLPolygon>((connectivity.*access(CombineTag()))(&p, &q, n, sameNormal));
}

float epsilonOfConnectivity() { return *access(EpsilonTag()); }

} // namespace tamo::test
