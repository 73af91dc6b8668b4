// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/oracle/PlainPolygon.h"

#include <array>
#include <optional>
#include <vector>

namespace tamo::test {

/// The slow, obvious form of a polygon descriptor. Touching a vertex that is not there throws `std::out_of_range`.
class PlainDescriptor {
  public:
    explicit PlainDescriptor(std::vector<Plain3> const& points) : _points(&points) {}

    [[nodiscard]] unsigned int size() const { return static_cast<unsigned int>(links.size()); }
    [[nodiscard]] Plain3 position(unsigned int k) const { return _points->at(links.at(k)); }
    [[nodiscard]] Plain3 normal(unsigned int k) const { return normals.at(slots.at(k)); }

    void add(unsigned int link, Plain3 normal);
    void remove(unsigned int link);
    void exchange(unsigned int i, unsigned int j);
    void arrange(unsigned int first, unsigned int second, bool close, std::optional<Plain3> given = std::nullopt);
    [[nodiscard]] PlainPolygon polygon() const;

    std::vector<unsigned int> links;
    std::vector<unsigned int> slots;
    std::array<Plain3, 26> normals{};
    bool hasCentre = false;
    bool fan = false;
    bool strip = false;
    bool closed = false;
    bool ccw = false;
    Plain3 centre;
    Plain3 meanNormal;

  private:
    void measureCentre();
    [[nodiscard]] double turnTo(unsigned int vertex, unsigned int reference, Plain3 axis) const;
    void sortBehind(unsigned int start, Plain3 axis);

    std::vector<Plain3> const* _points;
};

} // namespace tamo::test
