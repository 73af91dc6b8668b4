// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/TAMO.h>

#include <new>

// Loaded before the library, this stands for lists of polygons that cannot be allocated.
void GLObjectListForNeighborhood(Neighborhood::NHConfig, GLObjectList&) { throw std::bad_alloc(); }
