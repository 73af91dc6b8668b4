// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../objects/Configurations.h"
#include "CornerBits.h"

#include <tamo/neighborhood/Neighborhood.h>

#include <array>
#include <cstddef>

namespace {

// Finds the pieces of the corner set `corners` under the links numbered in `list`.
unsigned int findComponents(unsigned int corners, std::vector<unsigned char> const& links,
                            std::vector<unsigned int> const& list, std::vector<unsigned char>& objects) {
    std::array<unsigned int, tamo::kCornerCount> slots{};
    std::size_t used = 0;
    for (unsigned int v = 0; v < slots.size(); ++v) {
        unsigned int const corner = 1U << v;
        if ((corners & corner) == 0) {
            continue;
        }
        unsigned int star = corner;
        for (unsigned int const i : list) {
            if ((links[i] & corner) != 0 && (links[i] & ~corners) == 0) {
                star |= links[i];
            }
        }
        slots[used++] = star;
    }

    // The slots behind i are disjoint by the time i is treated, so one pass joins everything.
    for (std::size_t i = slots.size() - 1; i-- > 0;) {
        for (std::size_t j = slots.size() - 1; j > i; --j) {
            if ((slots[i] & slots[j]) != 0) {
                slots[i] |= slots[j];
                slots[j] = 0;
            }
        }
    }

    objects.clear();
    for (unsigned int const slot : slots) {
        if (slot != 0) {
            objects.push_back(static_cast<unsigned char>(slot));
        }
    }
    return static_cast<unsigned int>(objects.size());
}

} // namespace

unsigned int Neighborhood::getFgObjects(unsigned char conf, std::vector<unsigned char>& objects) const {
    return findComponents(conf, _conn, _fgConn, objects);
}

unsigned int Neighborhood::getBgObjects(unsigned char conf, std::vector<unsigned char>& objects) const {
    return findComponents(tamo::kFullCell - conf, _conn, _bgConn, objects);
}
