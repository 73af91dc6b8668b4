// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "RenderCommand.h"

#include "../terminal/Progress.h"
#include "../terminal/QuietLibraries.h"
#include "../terminal/StageTimer.h"
#include "../terminal/UsageError.h"
#include "../terminal/UserError.h"
#include "../terminal/numberText.h"
#include "OutputFile.h"
#include "PngEncoder.h"
#include "Scan.h"
#include "VolumeInput.h"

#include "picture/Camera.h"
#include "picture/OffscreenContext.h"
#include "picture/Panel.h"
#include "picture/PictureError.h"
#include "picture/SurfaceLists.h"
#include "picture/SurfacePicture.h"

#include <tamo/surface/TAMO.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tamo::tool {

namespace {

constexpr char const* kExamples =
    "\nExamples:\n"
    "  tamo render brain.nii.gz -o brain.png --min 90\n"
    "  tamo render brain.nii.gz -o both.png --adjacency N6,N26 --box 60,60,60,90,90,90\n"
    "  tamo render labels.nii.gz -o region.png --min 37 --max 37 --view 90,0\n"
    "  tamo render scan.raw -o scan.png --dims 512,512,300 --type uint16 --spacing 0.4,0.4,1\n";

// Holds what the options ask for.
struct RenderOptions {
    volume::VolumeSource source;
    std::filesystem::path output;
    ForegroundWish wish;
    // At least one; each has a panel of the picture.
    std::vector<NamedSystem> systems;
    ScanRegion region;
    picture::PictureSize size{};
    picture::View view{};
};

// Reads the box and prints what the file says of it.
volume::Volume readBox(RenderOptions const& options, volume::VolumeFile const& file) {
    volume::VolumeHeader const& header = file.header();
    volume::Volume volume = readInput(file, options.region.boxIn(header.size));
    std::cout << "volume      " << volume::text(header.size, " x ") << ", " << nameOf(header.type) << ", spacing "
              << spacingText(header.geometry) << "\n";
    return volume;
}

// The value of the segment that the user names.
ForegroundWish wishOf(RenderOptions const& options, volume::VolumeHeader const& header) {
    for (volume::LabelName const& label : header.labels) {
        if (!options.source.segment.empty() && label.name == options.source.segment && label.frame == header.frame) {
            return {label.value, label.value, {}};
        }
    }
    return options.wish;
}

Scan threshold(RenderOptions const& options, volume::Volume const& volume) {
    std::string const path = options.source.path.string();
    volume::VoxelStatistics const found = lookThrough(volume);
    printNotes(volume.header.notes, std::cout);
    printWhatIsNotFinite(found);
    ForegroundChoice const choice = [&] {
        Progress progress("choosing");
        return chooseForeground(volume, found, wishOf(options, volume.header), path, progress.callback());
    }();
    if (found.range) {
        std::cout << "values      " << text(choice.foreground) << " of " << numberText(found.range->min) << " .. "
                  << numberText(found.range->max) << (choice.reason.empty() ? "" : ", " + choice.reason) << "\n";
    }
    Progress progress("threshold");
    Scan scan{makeBinaryVolume(volume, choice.foreground, progress.callback()),
              static_cast<unsigned int>(options.region.step)};
    if (scan.binary.foreground == 0) {
        throw UserError(path + ": expected voxels with values " + text(choice.foreground) +
                        " (--min, --max), found none");
    }
    return scan;
}

GLDataInfo count(NamedSystem const& system, RenderOptions const& options, Scan const& scan,
                 GLObjectList const& objects) {
    Progress progress("counting");
    progress.announce();
    GLDataInfo info;
    getGLDataInfo(scan.binary.voxels.data(), scan.binary.increments(), scan.step, {0, 0, 0}, scan.binary.extent(),
                  objects, info);
    if (info.primitives() == 0) {
        throw UserError("--step " + std::to_string(options.region.step) +
                        ": expected a step that meets the foreground");
    }
    std::cout << "surface     " << system.name << ", step " << options.region.step << ": " << info.primitives()
              << " primitives, " << info.triangles() << " triangles, " << info.vertices() << " vertices\n";
    return info;
}

// Compiles the surface of a scan into `lists`.
void compileSurface(Scan const& scan, GLObjectList const& objects, picture::SurfaceLists& lists) {
    bool const isScanned = [&] {
        // The scan has a line of its own for this, which names neither file nor option.
        QuietLibraries const quiet;
        return wrapGlobal(scan.binary.voxels.data(), scan.binary.increments(), scan.step, {0, 0, 0},
                          scan.binary.extent(), objects, lists);
    }();
    if (!isScanned) {
        // All else that a scan refuses has been refused when it was counted.
        throw UserError("--step " + std::to_string(scan.step) +
                        ": expected memory for the polygons of this step's cells, found too little");
    }
}

picture::CameraFraming frameForeground(BinaryVolume const& binary, volume::GridGeometry const& geometry,
                                       picture::View view) {
    // A view is told by a patient's right, front and top.
    std::array<Vector3, 3> axes = geometry.axes;
    std::transform(axes.begin(), axes.end(), axes.begin(), volume::flippedToLps);
    picture::CameraFraming framing(axes, geometry.spacing, view);
    visitRowEnds(binary, [&framing](Vector3 const& voxel) { framing.include(voxel); });
    return framing;
}

// Draws the surface of every system into its panel.
class PanelPainter {
  public:
    PanelPainter(RenderOptions const& options, Scan const& scan, volume::GridGeometry const& geometry, int samples)
        : _options(options), _scan(scan), _geometry(geometry), _samples(samples), _picture(options.size) {}

    void draw(std::size_t i, GLObjectList const& objects, GLDataInfo const& info, StageTimer& timer) {
        auto const lists = timer.run("scan", [&] { return compile(objects, info); });
        timer.run("draw", [&] { drawPanel(i, lists->names()); });
    }

    [[nodiscard]] picture::Picture const& picture() const { return _picture; }

  private:
    [[nodiscard]] std::unique_ptr<picture::SurfaceLists> compile(GLObjectList const& objects,
                                                                 GLDataInfo const& info) const {
        Progress progress("scanning");
        progress.update(0);
        volume::Size3 const& first = _scan.binary.box.first;
        GLCoord3f const origin(static_cast<float>(first[0]), static_cast<float>(first[1]),
                               static_cast<float>(first[2]));
        auto lists = std::make_unique<picture::SurfaceLists>(origin, info.primitives(), progress.callback());
        compileSurface(_scan, objects, *lists);
        return lists;
    }

    void drawPanel(std::size_t i, std::vector<unsigned int> lists) {
        picture::Panel const panel = picture::panelOf(_options.size, i, _options.systems.size());
        std::optional<picture::DisplayList> label;
        if (_options.systems.size() > 1) {
            label.emplace(picture::compileLabel(_options.systems[i].name, panel.size, _samples));
            lists.push_back(label->name());
        }
        picture::CameraFraming const framing = frameForeground(_scan.binary, _geometry, _options.view);
        // The surface cuts the links between samples at their middle, so it reaches half a cell beyond a voxel.
        picture::Camera const camera = framing.place(panel.size, 0.5 * _scan.step);
        Progress progress("drawing");
        try {
            _picture.place(picture::drawSurface(lists, camera, panel.size, _samples, progress.callback()), panel.left);
        } catch (picture::PictureMemoryError const& error) {
            throw UserError(std::string(error.what()) + "; try a larger --step");
        }
    }

    RenderOptions const& _options;
    Scan const& _scan;
    volume::GridGeometry const& _geometry;
    int _samples;
    picture::Picture _picture;
};

} // namespace

RenderCommand::RenderCommand(CLI::App& program)
    : Command(program, "render", "Draw the surface of the foreground into a PNG picture"), _volume(options()),
      _output(options()), _range(options()), _adjacency(options(), "are drawn side by side"), _scan(options()),
      _picture(options(),
               {"1200x900", "-35,15",
                "Degrees. Azimuth 0 looks at a patient's front, 90 at the right side; elevation 90 looks from "
                "above"}) {
    options().addFlag("--verbose", _isVerbose, "Print wall time and peak memory of each stage");
    options().setFooter("\n" + volumeFormatsHelp() + kExamples);
}

void RenderCommand::run() const {
    RenderOptions const options{_volume.read(), _output.read(),      _range.read(),      _adjacency.read(),
                                _scan.read(),   _picture.readSize(), _picture.readView()};
    if (static_cast<std::size_t>(options.size.width) < options.systems.size()) {
        throw UsageError("--size " + std::to_string(options.size.width) + "x" + std::to_string(options.size.height) +
                         ": expected at least one pixel of width per adjacency system");
    }
    if (options.source.raw) {
        volume::Size3 const& size = options.source.raw->size;
        if (auto const fault = options.region.faultIn(size, "--dims " + volume::text(size, ","))) {
            throw UsageError(*fault);
        }
    }
    int const samples = picture::chooseSamples(options.size);
    StageTimer timer;
    OutputFile file(options.output);

    // A machine without OpenGL should not show only once the volume is read.
    picture::OffscreenContext const context(options.size.width * samples, options.size.height * samples);
    std::size_t const systems = options.systems.size();
    std::vector<GLObjectList> objects(systems);
    timer.run("object list", [&] {
        for (std::size_t i = 0; i < systems; ++i) {
            GLObjectListForNeighborhood(options.systems[i].config, objects[i]);
        }
    });
    auto const volumeFile = timer.run("open", [&] { return openInput(options.source); });
    if (auto const fault = options.region.faultIn(volumeFile->header().size, options.source.path.string())) {
        throw UserError(*fault);
    }
    // Of the voxels only the foreground is kept.
    Scan const scan = [&] {
        volume::Volume const volume = timer.run("read", [&] { return readBox(options, *volumeFile); });
        return timer.run("threshold", [&] { return threshold(options, volume); });
    }();
    std::cout << "foreground  " << scan.binary.foreground << " voxels\n";
    std::vector<GLDataInfo> infos(systems);
    timer.run("count", [&] {
        for (std::size_t i = 0; i < systems; ++i) {
            infos[i] = count(options.systems[i], options, scan, objects[i]);
        }
    });

    PanelPainter painter(options, scan, volumeFile->header().geometry, samples);
    for (std::size_t i = 0; i < systems; ++i) {
        painter.draw(i, objects[i], infos[i], timer);
    }
    timer.run("write", [&] { file.write(encodePng(painter.picture())); });
    std::cout << "picture     " << options.output.string() << ", " << options.size.width << " x " << options.size.height
              << "\n";
    if (_isVerbose) {
        timer.print(std::cout);
    }
}

std::string RenderCommand::memoryMessage() const {
    return "not enough memory for this volume; a larger --step makes a smaller surface";
}

} // namespace tamo::tool
