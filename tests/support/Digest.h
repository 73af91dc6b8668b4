// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/objects/GLObjectList.h>

#include <cstdint>
#include <cstring>

namespace tamo::test {

/// Sums up a sequence of values in 64 bits; the order matters. The hash is FNV-1a, value by value, low byte first.
class Digest {
  public:
    void add(std::uint32_t value) {
        for (unsigned int shift = 0; shift < 32; shift += 8) {
            _hash = (_hash ^ (value >> shift & 0xffU)) * 0x100000001b3ULL;
        }
    }

    void add(float value) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        add(bits);
    }

    /// Adds vertex count, flags, colour and all vertex records.
    void add(GLPolygon const& polygon) {
        add(polygon.size());
        add(static_cast<std::uint32_t>(polygon.type()));
        add((polygon.isFan() ? 1U : 0U) | (polygon.isStrip() ? 2U : 0U) | (polygon.isClosed() ? 4U : 0U) |
            (polygon.isCCW() ? 8U : 0U));
        add(polygon.color().x);
        add(polygon.color().y);
        add(polygon.color().z);
        for (unsigned int i = 0; i < 6 * polygon.size(); ++i) {
            add(polygon.vData(0)[i]);
        }
    }

    void add(GLObjectList const& list) {
        add(list.size());
        for (GLObject const* object : list) {
            add(object->size());
            for (GLPolygon const* polygon : *object) {
                add(*polygon);
            }
        }
    }

    [[nodiscard]] std::uint64_t value() const { return _hash; }

  private:
    std::uint64_t _hash = 0xcbf29ce484222325ULL;
};

} // namespace tamo::test
