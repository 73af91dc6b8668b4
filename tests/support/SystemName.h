// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/neighborhood/Neighborhood.h>

#include <gtest/gtest.h>

#include <string>

namespace tamo::test {

/// Returns the name of an adjacency system, for readable tests.
inline std::string systemName(Neighborhood::NHConfig config) {
    switch (config) {
    case Neighborhood::N6:
        return "N6";
    case Neighborhood::N8:
        return "N8";
    case Neighborhood::N12:
        return "N12";
    case Neighborhood::N26:
        return "N26";
    case Neighborhood::N14I:
        return "N14I";
    case Neighborhood::N14II:
        return "N14II";
    }
    return "Tables" + std::to_string(config);
}

/// Names the instances of a test over adjacency systems.
inline std::string nameOfSystem(testing::TestParamInfo<Neighborhood::NHConfig> const& system) {
    return systemName(system.param);
}

} // namespace tamo::test
