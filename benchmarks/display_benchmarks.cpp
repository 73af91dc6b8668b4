// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "BenchVolume.h"
#include "Receivers.h"
#include "registrations.h"

#include "picture/OffscreenContext.h"

#include <tamo/surface/GLPolygonConsumer.h>

#include <benchmark/benchmark.h>

#include <GL/gl.h>

#include <memory>

namespace tamo::bench {

namespace {

// Half the resolution of the demo's brain, some million polygons: all of them would take gigabytes of display list.
constexpr int kSide = 256;

// Moves polygons as the consumer does and stops short of OpenGL: what the library itself spends.
class MovingReceiver : public IPolygonAggregator {
  public:
    void fetch(GLObject& object, GLCoord3f const& offset) override {
        for (GLPolygon const* polygon : object) {
            GLPolygon const moved(*polygon, offset);
            benchmark::DoNotOptimize(moved.vData(0));
            ++polygons;
        }
    }
    void fetch(GLObject& /*object*/) override {}

    std::uint64_t polygons = 0;
};

// Keeps all polygons, moved to their places, ready for OpenGL.
class PreparingReceiver : public IPolygonAggregator {
  public:
    void fetch(GLObject& object, GLCoord3f const& offset) override {
        for (GLPolygon const* polygon : object) {
            GLPolygon const moved(*polygon, offset);
            _starts.push_back(_floats.size());
            _modes.push_back(static_cast<GLenum>(moved.type()));
            _floats.insert(_floats.end(), moved.vData(0), moved.vData(0) + std::size_t{6} * moved.size());
        }
    }
    void fetch(GLObject& /*object*/) override {}

    // Makes the calls of OpenGL that the consumer makes.
    void draw() const {
        for (std::size_t i = 0; i < _starts.size(); ++i) {
            std::size_t const end = i + 1 < _starts.size() ? _starts[i + 1] : _floats.size();
            glInterleavedArrays(GL_N3F_V3F, 0, _floats.data() + _starts[i]);
            glDrawArrays(_modes[i], 0, static_cast<GLsizei>((end - _starts[i]) / 6));
        }
    }

  private:
    std::vector<float> _floats;
    std::vector<std::size_t> _starts;
    std::vector<GLenum> _modes;
};

// A brain, its list, and a context to draw it in; made when a benchmark first needs it.
class Scene {
  public:
    explicit Scene(std::string const& brainFile)
        : _context(512, 512), _volume(makeBrain(kSide, brainFile), {"x", {0, 1, 2}}), name(glGenLists(1)) {
        GLObjectListForNeighborhood(Neighborhood::N14II, _objects);
        glOrtho(0, kSide, 0, kSide, -kSide, kSide);
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_LIGHTING);
        glEnable(GL_LIGHT0);
    }

    void scan(IPolygonAggregator& receiver) const {
        plain::ScanArguments const a = _volume.arguments(1);
        wrapGlobal(a.data, a.increments, a.step, a.origin, a.extent, _objects, receiver);
    }

    void compile() const {
        GLPolygonConsumer consumer(static_cast<int>(name));
        scan(consumer);
    }

  private:
    picture::OffscreenContext _context;
    BenchVolume _volume;
    GLObjectList _objects;

  public:
    GLuint const name;
};

Scene const& scene(std::string const& brainFile) {
    static Scene const only(brainFile);
    return only;
}

void compile(benchmark::State& state, Scene const& brain) {
    for (auto _ : state) {
        brain.compile();
    }
}

void compilePrepared(benchmark::State& state, Scene const& brain) {
    PreparingReceiver prepared;
    brain.scan(prepared);
    for (auto _ : state) {
        glNewList(brain.name, GL_COMPILE);
        glEnableClientState(GL_VERTEX_ARRAY);
        glEnableClientState(GL_NORMAL_ARRAY);
        prepared.draw();
        glEndList();
    }
}

void moveOnly(benchmark::State& state, Scene const& brain) {
    MovingReceiver receiver;
    for (auto _ : state) {
        receiver.polygons = 0;
        brain.scan(receiver);
    }
    state.counters["polygons"] = static_cast<double>(receiver.polygons);
}

void draw(benchmark::State& state, Scene const& brain) {
    brain.compile();
    for (auto _ : state) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glCallList(brain.name);
        glFinish();
    }
}

} // namespace

void registerDisplayLists(std::string const& brainFile) {
    auto const add = [&brainFile](char const* what, void (*run)(benchmark::State&, Scene const&)) {
        benchmark::RegisterBenchmark((std::string("display/") + what).c_str(),
                                     [run, brainFile](benchmark::State& state) { run(state, scene(brainFile)); })
            ->Unit(benchmark::kMicrosecond)
            ->Iterations(1)
            // OpenGL without a graphics card draws in threads of its own.
            ->MeasureProcessCPUTime()
            ->Repetitions(5)
            ->ReportAggregatesOnly();
    };
    if (brainFile.empty()) {
        return;
    }
    add("move", moveOnly);
    add("compile", compile);
    add("compilePrepared", compilePrepared);
    add("draw", draw);
}

} // namespace tamo::bench
