// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/TamoException.h>
#include <tamo/neighborhood/GLUnitCube.h>

#include <memory>
#include <vector>

namespace tamo {
struct LinkTables;
} // namespace tamo

/// Describes one adjacency system of the unit cell: which of its 28 links join foreground corners, which background.
///
/// A link is a pair of the cell's eight corners, written as the byte with those two bits set. Links 0 to 11 are the
/// edges, 12 to 23 the face diagonals, 24 to 27 the space diagonals. A background link is one that crosses no
/// foreground link. Call `setupNeighborhood` before asking for either. Copies share the constant corner table. Const
/// members may be called from several threads at once. Copying may throw `std::bad_alloc`.
class TAMO_EXPORT Neighborhood {
  public:
    /// Names an adjacency system as the set of link tables that join foreground corners: 1 edges, 2 face diagonals,
    /// 4 space diagonals, 8 and 16 two sets of six face diagonals and the space diagonal 0-7. Any other union of these
    /// bits may be cast to this type; it has no name.
    enum NHConfig : unsigned int {
        N6 = 1,
        N8 = 4,
        N12 = 6,
        N26 = 7,
        N14I = 9,
        N14II = 17,
    };

    /// Makes a system without foreground and background links.
    Neighborhood();
    Neighborhood(Neighborhood const&) = default;
    Neighborhood& operator=(Neighborhood const&) = default;
    ~Neighborhood() = default;

    /// Rebuilds the foreground, background and shared links for `config`; returns true. Bits above 16 are ignored; no
    /// bit at all gives no foreground link.
    ///
    /// Throws `TamoException` "GLConn::connect ERROR:connection already defined" where two tables of `config` have a
    /// link in common. The foreground then holds the links connected before that one, in order, and the background
    /// every link that crosses none of them; `getName`, `getConnIdxSize` and `getConnIdx` still answer for the system
    /// set up before. A copied system may throw
    /// `std::bad_alloc` here, and then has to be set up anew.
    bool setupNeighborhood(NHConfig config);
    /// Empties the foreground: every link is then a background link. `getName`, `getConnIdxSize` and `getConnIdx` still
    /// answer for the system last set up. A copied system may throw `std::bad_alloc` here.
    void clear();

    /// Returns "N6", "N8", "N12", "N14I", "N14II", "N26" or "invalid", for what the last successful `setupNeighborhood`
    /// was given.
    [[nodiscard]] char const* getName() const;

    [[nodiscard]] unsigned int getConnSize() const;
    [[nodiscard]] unsigned int getFgConnSize() const;
    [[nodiscard]] unsigned int getBgConnSize() const;
    [[nodiscard]] unsigned int getConnIdxSize() const;

    // Each of these throws `TamoException` "Neighborhood::getConn invalid Index" where i is not below its list's size.

    /// Returns link i of the cell.
    [[nodiscard]] unsigned char getConn(unsigned int i) const;
    /// Returns the i-th foreground link, in the order of connection.
    [[nodiscard]] unsigned char getFgConn(unsigned int i) const;
    /// Returns the i-th background link, by ascending link number.
    [[nodiscard]] unsigned char getBgConn(unsigned int i) const;
    /// Returns the number (not the byte) of the i-th link that is both a foreground and a background link.
    [[nodiscard]] unsigned int getConnIdx(unsigned int i) const;

    /// Lists the connected pieces of the foreground of configuration `conf`, as corner bytes ordered by lowest corner.
    /// `objects` is cleared first. Returns the number of pieces. Throws `std::bad_alloc`.
    unsigned int getFgObjects(unsigned char conf, std::vector<unsigned char>& objects) const;
    /// Lists the connected pieces of the background, the clear bits of `conf`, under the background links, as above.
    unsigned int getBgObjects(unsigned char conf, std::vector<unsigned char>& objects) const;

    /// Prints configuration `conf` on standard output: corner 7 first, "*" foreground, "0" background, and a line end.
    void show(unsigned char conf) const;

  protected:
    static unsigned int const _edgeSize = 12;
    static unsigned int const _fDiagSize = 12;
    static unsigned int const _sDiagSize = 4;
    static unsigned char const _edge[_edgeSize];
    static unsigned char const _fDiag[_fDiagSize];
    static unsigned char const _sDiag[_sDiagSize];

    /// Returns link i, unchecked.
    unsigned char operator[](int i) const;
    /// Adds a foreground link and removes the background links that it crosses; returns true. Throws `TamoException`
    /// where `link` has not exactly two bits or is connected already.
    bool connect(unsigned char link);
    /// Returns whether the links numbered a and b are different and have the same midpoint.
    [[nodiscard]] bool isCrossing(unsigned char a, unsigned char b) const;

  private:
    friend struct tamo::LinkTables;

    static unsigned int const _n14iDiagSize = 7;
    static unsigned int const _n14iiDiagSize = 7;
    static unsigned char const _n14iDiag[_n14iDiagSize];
    static unsigned char const _n14iiDiag[_n14iiDiagSize];
    static char const* _nhNames[7];

    /// Rebuilds `_connIdx` from the two lists; returns its size.
    int setupConnect();

  protected:
    /// Numbers of the foreground links, in the order of connection.
    std::vector<unsigned int> _fgConn;
    /// Numbers of the background links, ascending.
    std::vector<unsigned int> _bgConn;
    /// The 28 links: edges, face diagonals, space diagonals.
    std::vector<unsigned char> _conn;
    /// Numbers of the links that are both, ascending; as of the last successful `setupNeighborhood`.
    std::vector<unsigned int> _connIdx;
    /// The corner positions, shared by all copies.
    std::shared_ptr<GLUnitCube const> _vertices;
    /// What the last successful `setupNeighborhood` was given; 0 after construction.
    NHConfig _config;
};
