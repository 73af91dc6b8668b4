// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "HexBytes.h"

#include <array>

namespace tamo::volume {

namespace {

constexpr int kBlank = -1;
constexpr int kOther = -2;

// What each character stands for: the value of a digit, or one of the above.
constexpr std::array<signed char, 256> makeDigits() {
    std::array<signed char, 256> digits{};
    for (std::size_t c = 0; c < digits.size(); ++c) {
        digits[c] = static_cast<signed char>(c >= '0' && c <= '9'                   ? c - '0'
                                             : c >= 'a' && c <= 'f'                 ? c - 'a' + 10
                                             : c >= 'A' && c <= 'F'                 ? c - 'A' + 10
                                             : c == ' ' || (c >= '\t' && c <= '\r') ? kBlank
                                                                                    : kOther);
    }
    return digits;
}

constexpr std::array<signed char, 256> kDigits = makeDigits();

} // namespace

std::uint64_t HexBytes::unpack(unsigned char* target, std::uint64_t bytes) {
    std::uint64_t done = 0;
    while (done < bytes && !_isDamaged && !_isAtEnd) {
        if (_next == _last) {
            std::size_t const got = refill(nullptr, 0);
            _next = input();
            _last = _next + got;
            _isAtEnd = got == 0;
        }
        for (; _next != _last && done < bytes && !_isDamaged; ++_next) {
            int const digit = kDigits[*_next];
            if (digit >= 0 && _pending < 0) {
                _pending = digit;
            } else if (digit >= 0) {
                target[done++] = static_cast<unsigned char>(_pending << 4 | digit);
                _pending = -1;
            } else {
                _isDamaged = digit == kOther;
            }
        }
    }
    return done;
}

} // namespace tamo::volume
