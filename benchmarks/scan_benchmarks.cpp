// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "MemoryPass.h"
#include "Receivers.h"
#include "Stage.h"
#include "registrations.h"

#include "../src/scan/SlabWalk.h"
#include "../src/scan/WorkSpace.h"

#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

namespace tamo::bench {

namespace {

constexpr int kLargest = 512;

constexpr Layout kContiguous[] = {{"x", {0, 1, 2}}, {"y", {1, 0, 2}}, {"z", {2, 1, 0}}};
// Layouts that a caller may have as well: parts of a larger volume, colours beside each other, all of it mirrored.
constexpr Layout kOdd[] = {{"y_z_x", {1, 2, 0}},         {"x_z_y", {0, 2, 1}},         {"z_x_y", {2, 0, 1}},
                           {"x_gaps", {0, 1, 2}, 1, 27}, {"y_gaps", {1, 0, 2}, 1, 27}, {"z_gaps", {2, 1, 0}, 1, 27},
                           {"x_back", {0, 1, 2}, -1},    {"y_back", {1, 0, 2}, -1},    {"z_back", {2, 1, 0}, -1},
                           {"x_by_2", {0, 1, 2}, 2},     {"y_by_2", {1, 0, 2}, 2},     {"z_by_2", {2, 1, 0}, 2},
                           {"x_by_3", {0, 1, 2}, 3},     {"y_by_3", {1, 0, 2}, 3},     {"z_by_3", {2, 1, 0}, 3},
                           {"x_by_4", {0, 1, 2}, 4},     {"y_by_4", {1, 0, 2}, 4},     {"z_by_4", {2, 1, 0}, 4},
                           {"x_by_7", {0, 1, 2}, 7},     {"y_by_7", {1, 0, 2}, 7},     {"z_by_7", {2, 1, 0}, 7}};
// Sheets of a few voxels across the densest axis. The ball does not reach into them: they have no cut cells.
constexpr Layout kThin[] = {{"x_thin_8", {0, 1, 2}, 1, 0, {8, 0, 0}}, {"y_thin_8", {1, 0, 2}, 1, 0, {0, 8, 0}},
                            {"z_thin_8", {2, 1, 0}, 1, 0, {0, 0, 8}}, {"x_thin_7", {0, 1, 2}, 1, 0, {7, 0, 0}},
                            {"y_thin_7", {1, 0, 2}, 1, 0, {0, 7, 0}}, {"z_thin_7", {2, 1, 0}, 1, 0, {0, 0, 7}}};
// Images, and a few of them on each other.
constexpr Layout kFlat[] = {{"x_flat_1", {0, 1, 2}, 1, 0, {0, 0, 1}},
                            {"x_flat_2", {0, 1, 2}, 1, 0, {0, 0, 2}},
                            {"x_flat_8", {0, 1, 2}, 1, 0, {0, 0, 8}}};

Stage& stage() {
    static Stage only;
    return only;
}

void wrap(plain::ScanArguments const& a, IPolygonAggregator& receiver) {
    wrapGlobal(a.data, a.increments, a.step, a.origin, a.extent, stage().objects(), receiver);
}

void wrapPlainly(plain::ScanArguments const& a, IPolygonAggregator& receiver) {
    plain::wrapGlobal(a, stage().objects(), receiver);
}

unsigned int stepsAlong(int extent, unsigned int step) { return static_cast<unsigned int>(extent) / step; }

void tellSamples(benchmark::State& state, plain::ScanArguments const& a) {
    auto const along = [&a](int extent) { return static_cast<double>(stepsAlong(extent, a.step)); };
    state.counters["samples"] = along(a.extent.x) * along(a.extent.y) * along(a.extent.z);
}

// Not what small and thin volumes take, which are scanned without.
void tellWorkSpace(benchmark::State& state, plain::ScanArguments const& a) {
    scan::SampleGrid const grid = scan::makeSampleGrid(a.data, a.increments, a.step, a.origin, a.extent);
    state.counters["workspace"] = static_cast<double>(scan::WorkSpace::bytesFor(grid, scan::makeReadPlan(grid)));
}

void count(benchmark::State& state, plain::ScanArguments const& a,
           void (*scan)(plain::ScanArguments const&, IPolygonAggregator&)) {
    CountingReceiver receiver;
    for (auto _ : state) {
        receiver.cells = 0;
        scan(a, receiver);
    }
    auto const along = [&a](int extent) { return static_cast<double>(stepsAlong(extent, a.step) + 1); };
    state.counters["cells"] = static_cast<double>(receiver.cells);
    state.counters["share"] =
        static_cast<double>(receiver.cells) / (along(a.extent.x) * along(a.extent.y) * along(a.extent.z));
    tellSamples(state, a);
}

void collect(benchmark::State& state, plain::ScanArguments const& a,
             void (*scan)(plain::ScanArguments const&, IPolygonAggregator&)) {
    CollectingReceiver receiver;
    for (auto _ : state) {
        scan(a, receiver);
        benchmark::DoNotOptimize(receiver.cells.data());
    }
}

void info(benchmark::State& state, plain::ScanArguments const& a, GLObjectList const& objects) {
    GLDataInfo info;
    for (auto _ : state) {
        getGLDataInfo(a.data, a.increments, a.step, a.origin, a.extent, objects, info);
        benchmark::DoNotOptimize(info.primitives());
    }
    tellSamples(state, a);
}

void infoPlainly(benchmark::State& state, plain::ScanArguments const& a) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(plain::getGLDataInfo(a, stage().objects()).primitives());
    }
}

// Reads all slabs as a scan does, and looks at none of them.
void read(benchmark::State& state, plain::ScanArguments const& a) {
    scan::SampleGrid const grid = scan::makeSampleGrid(a.data, a.increments, a.step, a.origin, a.extent);
    scan::ReadPlan const plan = scan::makeReadPlan(grid);
    scan::WorkSpace space(grid, plan);
    for (auto _ : state) {
        for (scan::SlabWalk walk(grid, plan, space.ring()); walk.next();) {
            benchmark::DoNotOptimize(walk.slab());
        }
    }
}

// A group of benchmarks of one volume.
class Group {
  public:
    Group(Pattern pattern, int side, Layout const& layout)
        : _pattern(std::move(pattern)), _side(side), _layout(layout) {}

    void addMemoryPass() const {
        add("memory", 1, [](benchmark::State& state, BenchVolume const& volume, unsigned int) {
            for (auto _ : state) {
                benchmark::DoNotOptimize(sumVoxels(volume.bytes().data(), volume.bytes().size()));
            }
        });
    }
    void addScans(unsigned int step) const {
        // They are compared with each other, and differ by little.
        constexpr int kRepetitions = 9;
        addScan(
            "wrap", step,
            [](auto& state, auto const& a) {
                count(state, a, wrap);
                tellWorkSpace(state, a);
            },
            kRepetitions);
        addScan(
            "info", step, [](auto& state, auto const& a) { info(state, a, stage().objects()); }, kRepetitions);
    }
    void addCountOfAllCells() const {
        addScan("infoAll", 1, [](auto& state, auto const& a) { info(state, a, stage().objectsForAllCells()); });
    }
    void addReading() const { addScan("read", 1, read); }
    void addCollecting(unsigned int step) const {
        addScan("collect", step, [](auto& state, auto const& a) { collect(state, a, wrap); });
    }
    void addPlainScans(unsigned int step) const {
        addScan("wrapPlain", step, [](auto& state, auto const& a) { count(state, a, wrapPlainly); });
        addScan("infoPlain", step, infoPlainly);
    }
    void addPlainCollecting(unsigned int step) const {
        addScan("collectPlain", step, [](auto& state, auto const& a) { collect(state, a, wrapPlainly); });
    }

  private:
    static constexpr int kLeastRepetitions = 5;

    template <typename Run>
    void addScan(char const* what, unsigned int step, Run const& run, int repetitions = kLeastRepetitions) const {
        auto const scan = [run](benchmark::State& state, BenchVolume const& volume, unsigned int byStep) {
            run(state, volume.arguments(byStep));
        };
        add(what, step, scan, repetitions);
    }

    template <typename Run>
    void add(std::string const& what, unsigned int step, Run const& run, int repetitions = kLeastRepetitions) const {
        std::string const name =
            what + '/' + _pattern.name + '/' + std::to_string(_side) + '/' + _layout.name + '/' + std::to_string(step);
        auto const body = [run, step, group = *this](benchmark::State& state) {
            run(state, stage().volume(group._pattern, group._side, group._layout), step);
        };
        // Small volumes are measured again and again until the clock can tell them apart.
        benchmark::RegisterBenchmark(name.c_str(), body)
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.02)
            ->Repetitions(repetitions)
            ->ReportAggregatesOnly();
    }

    Pattern _pattern;
    int _side;
    Layout _layout;
};

void registerSmallScans(std::vector<Pattern> const& patterns) {
    for (Pattern const& pattern : patterns) {
        for (int const side : {2, 3, 4, 8, 9, 10, 12, 16, 17, 32}) {
            Group const group(pattern, side, kContiguous[0]);
            group.addScans(1);
            group.addPlainScans(1);
        }
    }
}

void registerFlatScans(std::vector<Pattern> const& patterns) {
    for (Pattern const& pattern : patterns) {
        for (int const side : {32, 64, 256}) {
            for (Layout const& layout : kFlat) {
                Group const group(pattern, side, layout);
                group.addScans(1);
                group.addPlainScans(1);
            }
        }
    }
}

void registerFullScans(Pattern const& pattern, int side) {
    for (Layout const& layout : kContiguous) {
        bool const isFirstLayout = &layout == &kContiguous[0];
        Group const group(pattern, side, layout);
        group.addMemoryPass();
        group.addReading();
        group.addCountOfAllCells();
        for (unsigned int const step : {1U, 2U, 3U}) {
            group.addScans(step);
            group.addCollecting(step);
            // Plain walks of the largest volumes take a second each: those that the targets name are enough.
            if (side < kLargest || (step == 1 && (isFirstLayout || pattern.isTarget))) {
                group.addPlainScans(step);
            }
            if (side < kLargest || (step == 1 && isFirstLayout)) {
                group.addPlainCollecting(step);
            }
        }
    }
}

template <std::size_t Count> void registerOddScans(Pattern const& pattern, int side, Layout const (&layouts)[Count]) {
    for (Layout const& layout : layouts) {
        Group const group(pattern, side, layout);
        group.addMemoryPass();
        group.addScans(1);
    }
}

void registerLargeSteps(Pattern const& pattern) {
    for (Layout const& layout : kContiguous) {
        Group const group(pattern, kLargest, layout);
        for (unsigned int const step : {4U, 5U, 8U}) {
            group.addScans(step);
        }
    }
}

} // namespace

void registerScans(std::string const& brainFile) {
    std::vector<Pattern> patterns = {
        {"ball", makeBall, true}, {"gyroid", makeGyroid, true}, {"balls", makeBalls, false}};
    Pattern const full = {"full", makeFull, false};
    Pattern const noise = {"noise", makeNoise, false};
    registerSmallScans({patterns[0], patterns[1], full, noise});
    registerFlatScans({patterns[0], full, noise});
    registerOddScans(patterns[0], 256, kOdd);
    registerOddScans(patterns[0], kLargest, kThin);
    registerLargeSteps(patterns[0]);
    if (!brainFile.empty()) {
        patterns.push_back({"brain", [brainFile](int side) { return makeBrain(side, brainFile); }, false});
    }
    for (int const side : {64, 256, kLargest}) {
        for (Pattern const& pattern : patterns) {
            registerFullScans(pattern, side);
        }
    }
}

} // namespace tamo::bench
