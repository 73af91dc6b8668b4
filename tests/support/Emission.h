// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLCoord3f.h>

#include <ostream>
#include <vector>

namespace tamo::test {

/// One cell as a receiver sees it.
struct Emission {
    unsigned int configuration;
    GLCoord3f position;

    friend bool operator==(Emission const& a, Emission const& b) {
        return a.configuration == b.configuration && a.position == b.position;
    }
    friend std::ostream& operator<<(std::ostream& out, Emission const& e) {
        return out << e.configuration << " at (" << e.position.x << ", " << e.position.y << ", " << e.position.z << ")";
    }
};

using Emissions = std::vector<Emission>;

} // namespace tamo::test
