// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/surface/IPolygonAggregator.h>

IPolygonAggregator::~IPolygonAggregator() = default;

void IPolygonAggregator::start() {}

void IPolygonAggregator::finish() {}
