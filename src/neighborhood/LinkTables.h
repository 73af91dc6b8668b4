// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/neighborhood/Neighborhood.h>

#include <algorithm>
#include <array>

namespace tamo {

/// One of the tables of links, with the bit that stands for it in a configuration of tables.
struct LinkTable {
    unsigned int bit;
    unsigned char const* first;
    unsigned char const* last;

    [[nodiscard]] unsigned char const* begin() const { return first; }
    [[nodiscard]] unsigned char const* end() const { return last; }
    [[nodiscard]] bool contains(unsigned char link) const { return std::find(first, last, link) != last; }
};

/// Says which bit stands for which table; a friend of the class that keeps the tables to itself.
struct LinkTables {
    /// Returns the tables in the order of their bits, in which they are connected.
    static std::array<LinkTable, 5> all() {
        using N = Neighborhood;
        return {{{1, N::_edge, N::_edge + N::_edgeSize},
                 {2, N::_fDiag, N::_fDiag + N::_fDiagSize},
                 {4, N::_sDiag, N::_sDiag + N::_sDiagSize},
                 {8, N::_n14iDiag, N::_n14iDiag + N::_n14iDiagSize},
                 {16, N::_n14iiDiag, N::_n14iiDiag + N::_n14iiDiagSize}}};
    }

    /// Returns the type of a link: 1 for an edge, 2 for a face diagonal, 4 for a space diagonal. These are the bits of
    /// the first three tables, which hold every link once; the last two choose among their links.
    static unsigned int typeOf(unsigned char link) {
        auto const tables = all();
        return std::find_if(tables.begin(), tables.end(), [link](auto const& table) { return table.contains(link); })
            ->bit;
    }
};

} // namespace tamo
