// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Orientation.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace tamo::volume {

namespace {

// Along x, y and z of LPS: the side that lies ahead, and the one behind.
constexpr std::array<std::array<char, 2>, 3> kSides{{{'L', 'R'}, {'P', 'A'}, {'S', 'I'}}};

} // namespace

std::optional<std::array<Vector3, 3>> parseOrientation(std::string const& letters) {
    if (letters.size() != 3) {
        return {};
    }
    std::array<Vector3, 3> axes{};
    std::array<bool, 3> isTaken{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        auto const letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letters[axis])));
        auto const sides = std::find_if(kSides.begin(), kSides.end(), [letter](std::array<char, 2> const& pair) {
            return pair[0] == letter || pair[1] == letter;
        });
        auto const i = static_cast<std::size_t>(sides - kSides.begin());
        if (i == kSides.size() || isTaken[i]) {
            return {};
        }
        isTaken[i] = true;
        axes[axis][i] = letter == (*sides)[0] ? 1 : -1;
    }
    return axes;
}

std::string orientationLetters(std::array<Vector3, 3> const& axes) {
    // Of the six ways to give each axis a coordinate of its own, the one along which they lead furthest.
    std::array<std::size_t, 3> order{0, 1, 2};
    std::array<std::size_t, 3> best = order;
    double furthest = -1;
    do {
        double distance = 0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            distance += std::abs(axes[axis][order[axis]]);
        }
        if (distance > furthest) {
            furthest = distance;
            best = order;
        }
    } while (std::next_permutation(order.begin(), order.end()));
    std::string letters;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        letters += kSides[best[axis]][axes[axis][best[axis]] < 0 ? 1 : 0];
    }
    return letters;
}

} // namespace tamo::volume
