// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "registrations.h"

#include <benchmark/benchmark.h>

#include <exception>
#include <iostream>

// Runs the benchmarks; the one argument besides Google Benchmark's own is the file of a brain (NIfTI-1).
int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc > 2) {
        std::cerr << argv[2] << ": expected one file of a brain and options of Google Benchmark\n";
        return 2;
    }
    std::string const brainFile = argc == 2 ? argv[1] : "";
    try {
        tamo::bench::registerLists();
        tamo::bench::registerReads(brainFile);
        tamo::bench::registerScans(brainFile);
        tamo::bench::registerDisplayLists(brainFile);
        benchmark::RunSpecifiedBenchmarks();
    } catch (std::exception const& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
    return 0;
}
