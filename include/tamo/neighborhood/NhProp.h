// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/geometry/GLVec3f.h>
#include <tamo/neighborhood/Neighborhood.h>

#include <vector>

/// Adds to an adjacency system what the case-based builder needs of each link: type, membership, midpoint, directions.
///
/// Call `setupProp` after every `setupNeighborhood`. The getters throw a plain C string, not an exception, where the
/// index is not that of a link: "NhProp::getVInfo: invald index:" and likewise under their own names.
class TAMO_EXPORT NhProp : public Neighborhood {
  public:
    /// The bits of a link's information word. The three types have the bits of their tables in `NHConfig`.
    enum InfoBit : unsigned int {
        kEdgeInfo = 0x001,
        kFaceDiagonalInfo = 0x002,
        kSpaceDiagonalInfo = 0x004,
        kTypeInfo = 0x007,
        kForegroundInfo = 0x100,
        kBackgroundInfo = 0x200,
        kBothInfo = 0x300,
    };

    /// Makes 28 links without an adjacency; every property is 0.
    NhProp();
    NhProp(NhProp const&) = default;
    NhProp& operator=(NhProp const&) = default;
    virtual ~NhProp();

    /// Computes the properties of all links from the current adjacency; returns true.
    bool setupProp();

    /// Returns the lower corner number of link i. Throws `char const*`.
    [[nodiscard]] unsigned char getP0ofConn(unsigned int i) const;
    /// Returns the information word of link i: one type bit, and a bit for each of foreground and background whose
    /// links include it. Throws `char const*`.
    [[nodiscard]] unsigned int getVInfo(unsigned int i) const;
    /// Returns the unit direction along link i, from its lower to its higher corner where `up`, else back. Throws
    /// `char const*`.
    [[nodiscard]] GLVec3f const& getNormal(unsigned int i, bool up) const;

  protected:
    /// Midpoints of the links, in unit-cell coordinates.
    std::vector<GLVec3f> _mid;

  private:
    std::vector<GLVec3f> _dirUp;
    std::vector<GLVec3f> _dirDown;
    std::vector<unsigned int> _vInfo;
    std::vector<unsigned char> _p0;
    std::vector<unsigned char> _p1;
};
