// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/TAMO.h>

#include <iostream>

// Loaded before the library, this stands for a scan that cannot allocate its scaled list, as the header describes it.
bool wrapGlobal(unsigned char const*, GLtVec3<int> const&, unsigned int, GLtVec3<int> const&, GLtVec3<int> const&,
                GLObjectList const&, IPolygonAggregator& aggregator) {
    aggregator.start();
    std::cerr << "wrapGlobal alloc error" << std::endl;
    aggregator.finish();
    return false;
}
