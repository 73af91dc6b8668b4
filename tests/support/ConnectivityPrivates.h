// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/connectivity/GLConnectivity.h>

#include <memory>

namespace tamo::test {

// The private members of GLConnectivity, under their own names.

unsigned int makeTriangleFan(GLObject& object);
unsigned int reducePolygons(GLObject& object, unsigned int n, bool sameNormal);
std::unique_ptr<GLPolygon> combinePolygons(GLPolygon& p, GLPolygon& q, unsigned int n, bool sameNormal);
float epsilonOfConnectivity();

} // namespace tamo::test
