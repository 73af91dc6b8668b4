// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/PlainAdjacency.h"

#include <algorithm>
#include <cstdlib>

namespace tamo::test {

namespace {

bool contains(std::vector<unsigned int> const& list, unsigned int value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

unsigned int coordinate(unsigned int corner, unsigned int axis) { return corner / (1U << axis) % 2; }

// Returns the squared length between two corners: the number of axes along which they differ.
unsigned int squaredDistance(unsigned int a, unsigned int b) {
    unsigned int sum = 0;
    for (unsigned int axis = 0; axis < 3; ++axis) {
        sum += coordinate(a, axis) != coordinate(b, axis) ? 1U : 0U;
    }
    return sum;
}

bool haveSameMiddle(CornerPair const& p, CornerPair const& q) {
    for (unsigned int axis = 0; axis < 3; ++axis) {
        if (coordinate(p[0], axis) + coordinate(p[1], axis) != coordinate(q[0], axis) + coordinate(q[1], axis)) {
            return false;
        }
    }
    return true;
}

} // namespace

std::array<CornerPair, 28> const& plainLinks() {
    static std::array<CornerPair, 28> const links = {{
        {0, 1}, {1, 3}, {2, 3}, {0, 2}, {0, 4}, {1, 5},
        {3, 7}, {2, 6}, {4, 5}, {4, 6}, {5, 7}, {6, 7}, // edges
        {1, 2}, {0, 3}, {5, 6}, {4, 7}, {2, 7}, {3, 6},
        {1, 4}, {0, 5}, {1, 7}, {3, 5}, {0, 6}, {2, 4}, // face diagonals
        {0, 7}, {1, 6}, {2, 5}, {3, 4},                 // space diagonals
    }};
    return links;
}

unsigned int plainLinkType(unsigned int link) {
    CornerPair const& pair = plainLinks().at(link);
    return 1U << (squaredDistance(pair[0], pair[1]) - 1);
}

Plain3 plainCorner(unsigned int corner) {
    return {static_cast<float>(coordinate(corner, 0)), static_cast<float>(coordinate(corner, 1)),
            static_cast<float>(coordinate(corner, 2))};
}

unsigned int plainMask(unsigned int link) {
    CornerPair const& pair = plainLinks().at(link);
    return (1U << pair[0]) + (1U << pair[1]);
}

PlainAdjacency::PlainAdjacency(unsigned int config) {
    std::vector<CornerPair> wanted;
    for (unsigned int type : {1U, 2U, 4U}) {
        for (unsigned int link = 0; link < 28; ++link) {
            if ((config & type) != 0 && plainLinkType(link) == type) {
                wanted.push_back(plainLinks().at(link));
            }
        }
    }
    if ((config & 8U) != 0) {
        wanted.insert(wanted.end(), {{0, 7}, {0, 6}, {1, 7}, {0, 5}, {2, 7}, {0, 3}, {4, 7}});
    }
    if ((config & 16U) != 0) {
        wanted.insert(wanted.end(), {{0, 7}, {2, 4}, {3, 5}, {0, 5}, {2, 7}, {0, 3}, {4, 7}});
    }
    isComplete = std::all_of(wanted.begin(), wanted.end(), [this](CornerPair const& pair) { return connect(pair); });
    for (unsigned int link = 0; link < 28; ++link) {
        bool const isCrossed = std::any_of(foreground.begin(), foreground.end(), [link](unsigned int f) {
            return f != link && haveSameMiddle(plainLinks().at(f), plainLinks().at(link));
        });
        if (!isCrossed) {
            background.push_back(link);
        }
    }
}

bool PlainAdjacency::connect(CornerPair const& pair) {
    auto const& links = plainLinks();
    auto const number = static_cast<unsigned int>(std::find(links.begin(), links.end(), pair) - links.begin());
    if (contains(foreground, number)) {
        return false;
    }
    foreground.push_back(number);
    return true;
}

bool PlainAdjacency::isForeground(unsigned int link) const { return contains(foreground, link); }
bool PlainAdjacency::isBackground(unsigned int link) const { return contains(background, link); }

std::vector<unsigned int> plainComponents(unsigned int corners, std::vector<unsigned int> const& links) {
    std::vector<unsigned int> components;
    for (unsigned int seed = 0; seed < 8; ++seed) {
        if ((corners & 1U << seed) == 0) {
            continue;
        }
        unsigned int piece = 1U << seed;
        for (int round = 0; round < 8; ++round) {
            for (unsigned int const link : links) {
                unsigned int const mask = plainMask(link);
                if ((mask & piece) != 0 && (mask & corners) == mask) {
                    piece |= mask;
                }
            }
        }
        components.push_back(piece);
        corners &= ~piece;
    }
    return components;
}

namespace {

// Returns how often each squared distance, 1 to 3, occurs between two corners of the set.
std::array<int, 4> distanceCounts(std::vector<unsigned int> const& corners) {
    std::array<int, 4> counts{};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            ++counts.at(squaredDistance(corners[i], corners[j]));
        }
    }
    return counts;
}

// Returns whether the set consists of corner 0, one or more corners on its face diagonals and one neighbour of it, as
// do the shapes that share the code of three corners on face diagonals.
bool isDiagonalTripleWithNeighbour(std::vector<unsigned int> const& corners) {
    std::vector<unsigned int> even;
    std::vector<unsigned int> neighbours;
    for (unsigned int const corner : corners) {
        unsigned int const distance = squaredDistance(corner, 0);
        (distance % 2 == 0 ? even : neighbours).push_back(corner);
        if (distance == 3) {
            return false;
        }
    }
    if (!contains(corners, 0) || neighbours.size() != 1) {
        return false;
    }
    // Of three corners, the neighbour touches corner 0 and one more; touching all three it would be their middle.
    auto const touched = std::count_if(
        even.begin(), even.end(), [&](unsigned int corner) { return squaredDistance(corner, neighbours[0]) == 1; });
    return even.size() == 4 || (even.size() == 3 && touched == 2);
}

// Returns whether four corners form a path along three edges, one edge along each axis.
bool isBentPath(std::vector<unsigned int> const& corners) {
    return corners.size() == 4 && distanceCounts(corners) == std::array<int, 4>{0, 3, 2, 1};
}

unsigned int codeOfShape(std::vector<unsigned int> const& corners) {
    std::array<int, 4> const counts = distanceCounts(corners);
    switch (corners.size()) {
    case 1:
        return 8;
    case 2:
        return counts[1] == 1 ? 1 : counts[2] == 1 ? 2 : 4;
    case 3:
        if (counts == std::array<int, 4>{0, 2, 1, 0}) {
            return 16;
        }
        if (counts == std::array<int, 4>{0, 1, 1, 1}) {
            return 32;
        }
        return contains(corners, 0) ? 128 : 0;
    default:
        // Of two paths that fill the cell together, the one without corner 7 counts as the other's complement.
        if (isBentPath(corners)) {
            return contains(corners, 7) ? 64 : 0;
        }
        return isDiagonalTripleWithNeighbour(corners) ? 128 : 0;
    }
}

std::vector<unsigned int> cornersOf(unsigned int mask) {
    std::vector<unsigned int> corners;
    for (unsigned int corner = 0; corner < 8; ++corner) {
        if ((mask >> corner) % 2 == 1) {
            corners.push_back(corner);
        }
    }
    return corners;
}

} // namespace

unsigned int plainCaseWord(unsigned int corners) {
    unsigned int const code = codeOfShape(cornersOf(corners));
    if (code != 0) {
        return code;
    }
    unsigned int const complement = codeOfShape(cornersOf(255 - corners));
    return complement == 0 ? 0 : complement + 0x800;
}

} // namespace tamo::test
