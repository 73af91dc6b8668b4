// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo {

/// The number of a cell's corners, and what `nextCorner` returns where there is no further one.
constexpr unsigned int kCornerCount = 8;

/// Returns the lowest corner of the set `corners` that is not below `from`, or `kCornerCount`.
constexpr unsigned int nextCorner(unsigned int corners, unsigned int from) {
    while (from < kCornerCount && (corners >> from & 1U) == 0) {
        ++from;
    }
    return from;
}

/// The two corners of a link.
struct LinkEnds {
    unsigned int lower;
    unsigned int higher;
};

/// Returns the corners of `link`, the byte with their two bits set.
constexpr LinkEnds endsOf(unsigned char link) {
    unsigned int const lower = nextCorner(link, 0);
    return {lower, nextCorner(link, lower + 1)};
}

} // namespace tamo
