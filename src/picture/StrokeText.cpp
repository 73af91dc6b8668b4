// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "StrokeText.h"

#include <GL/gl.h>

#include <cstddef>

namespace tamo::picture {

namespace {

constexpr double kHeight = 6;
constexpr double kGlyphWidth = 4;
constexpr double kAdvance = 6;

// Returns the strokes of a letter: lines from point to point, a point being two digits, x 0 to 4 and y 0 to 6; a space
// lifts the pen.
char const* strokesOf(char letter) {
    constexpr char const* kDigits[] = {"103041453616050110",   "152620 1030", "05163645440040",
                                       "064624344341301001",   "30360242",    "460604344341301001",
                                       "46260401103041423303", "064610",      "13040516364544331302011030414233",
                                       "00204245361605041343"};
    constexpr char const* kHexDigits[] = {"0004264440 0242",  "00063645443303 3342413000",
                                          "4536160501103041", "00062644422000",
                                          "40000646 0333",    "000646 0333"};
    if (letter >= '0' && letter <= '9') {
        return kDigits[letter - '0'];
    }
    if (letter >= 'A' && letter <= 'F') {
        return kHexDigits[letter - 'A'];
    }
    return letter == 'I' ? "1030 1636 2620" : letter == 'N' ? "00064046" : letter == 'x' ? "0044 0440" : "";
}

} // namespace

double strokeTextWidth(std::string const& text) {
    return (kAdvance * static_cast<double>(text.size()) - (kAdvance - kGlyphWidth)) / kHeight;
}

void drawStrokeText(std::string const& text, Vector3 const& lowerLeft, Vector3 const& right, Vector3 const& up) {
    double left = 0;
    for (char const letter : text) {
        glBegin(GL_LINE_STRIP);
        for (char const* stroke = strokesOf(letter); *stroke != '\0'; ++stroke) {
            if (*stroke == ' ') {
                glEnd();
                glBegin(GL_LINE_STRIP);
                continue;
            }
            double const x = (left + (stroke[0] - '0')) / kHeight;
            ++stroke;
            double const y = (stroke[0] - '0') / kHeight;
            glVertex3d(lowerLeft[0] + x * right[0] + y * up[0], lowerLeft[1] + x * right[1] + y * up[1],
                       lowerLeft[2] + x * right[2] + y * up[2]);
        }
        glEnd();
        left += kAdvance;
    }
}

} // namespace tamo::picture
