// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "registrations.h"

#include <tamo/TamoException.h>
#include <tamo/surface/TAMO.h>

#include <benchmark/benchmark.h>

#include <iostream>

namespace tamo::bench {

namespace {

struct System {
    char const* name;
    Neighborhood::NHConfig config;
};

constexpr System kSystems[] = {{"N6", Neighborhood::N6},       {"N8", Neighborhood::N8},
                               {"N12", Neighborhood::N12},     {"N14I", Neighborhood::N14I},
                               {"N14II", Neighborhood::N14II}, {"N26", Neighborhood::N26}};

bool isServed(Neighborhood::NHConfig config) {
    GLObjectList list;
    try {
        GLObjectListForNeighborhood(config, list);
    } catch (TamoException const&) {
        return false;
    }
    return true;
}

} // namespace

void registerLists() {
    for (System const& system : kSystems) {
        if (!isServed(system.config)) {
            std::cerr << "list/" << system.name << ": left out, the library does not serve this system\n";
            continue;
        }
        auto const body = [config = system.config](benchmark::State& state) {
            for (auto _ : state) {
                GLObjectList list;
                GLObjectListForNeighborhood(config, list);
            }
        };
        benchmark::RegisterBenchmark((std::string("list/") + system.name).c_str(), body)
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.05)
            ->Repetitions(9)
            ->ReportAggregatesOnly();
    }
}

} // namespace tamo::bench
