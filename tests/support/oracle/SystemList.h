// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/surface/TAMO.h>

namespace tamo::test {

/// Owns the list of one system, as `GLObjectListForNeighborhood` makes it.
class SystemList {
  public:
    explicit SystemList(Neighborhood::NHConfig config) { GLObjectListForNeighborhood(config, _list); }

    [[nodiscard]] GLObjectList const& list() const { return _list; }
    [[nodiscard]] GLObject const& operator[](unsigned int configuration) const { return *_list[configuration]; }

  private:
    GLObjectList _list;
};

/// The systems whose lists differ: the others share that of N14II.
constexpr Neighborhood::NHConfig kSurfaceSystems[] = {Neighborhood::N6, Neighborhood::N26, Neighborhood::N14I,
                                                      Neighborhood::N14II};

/// Returns the system whose foreground links are the background links of `config`, one of kSurfaceSystems.
constexpr Neighborhood::NHConfig dualOf(Neighborhood::NHConfig config) {
    return config == Neighborhood::N6 ? Neighborhood::N26 : config == Neighborhood::N26 ? Neighborhood::N6 : config;
}

} // namespace tamo::test
