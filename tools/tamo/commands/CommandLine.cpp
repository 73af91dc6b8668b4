// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CommandLine.h"

#include "../options/OptionValues.h"
#include "../terminal/UserError.h"
#include "../volume/ScalarType.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace tamo::tool {

namespace {

// The texts of the options, empty where one is not given: they are judged here, in one voice, and not by the parser.
struct Texts {
    std::string volume;
    std::string dims;
    std::string type;
    std::string header;
    bool isBigEndian = false;
    std::string spacing;

    std::string output;
    std::string min;
    std::string max;
    std::string neighborhood = "N14II";
    std::string step = "1";
    std::string box;
    std::string size = "1200x900";
    std::string view = "-35,15";
    bool isVerbose = false;

    std::string configurations;
};

constexpr char const* kFormats = "Volumes: NIfTI (.nii, .nii.gz), MetaImage (.mha, .mhd), NRRD (.nrrd, .nhdr),\n"
                                 "multi-page TIFF (.tif, .tiff), VTK image data (.vti), a folder of PNG, TIFF or\n"
                                 "DICOM slices, and bare voxels with --dims and --type.\n";

constexpr char const* kExamples = "\nExample:\n"
                                  "  tamo info brain.nii.gz\n"
                                  "  tamo render brain.nii.gz -o brain.png --min 90\n";

constexpr char const* kAtlasExamples = "\nExamples:\n"
                                       "  tamo atlas --neighborhood N26 -o n26.png\n"
                                       "  tamo atlas --neighborhood N6,N14I --configurations 3,129 -o pair.png\n";

constexpr char const* kRenderExamples =
    "\nExamples:\n"
    "  tamo render brain.nii.gz -o brain.png --min 90\n"
    "  tamo render brain.nii.gz -o both.png --neighborhood N6,N26 --box 60,60,60,90,90,90\n"
    "  tamo render labels.nii.gz -o region.png --min 37 --max 37 --view 90,0\n"
    "  tamo render scan.raw -o scan.png --dims 512,512,300 --type uint16 --spacing 0.4,0.4,1\n";

void addVolumeOptions(CLI::App& app, Texts& texts) {
    app.add_option("volume", texts.volume, "File or folder of the volume")->required()->type_name("VOLUME");
    app.add_option("--dims", texts.dims, "Bare voxels: their number along x, y and z, x fastest")->type_name("X,Y,Z");
    app.add_option("--type", texts.type,
                   "Bare voxels: uint8, int8, uint16, int16, uint32, int32, uint64, int64, float32 or float64")
        ->type_name("TYPE");
    app.add_option("--header", texts.header, "Bare voxels: bytes before the first one (default 0)")->type_name("BYTES");
    app.add_flag("--big-endian", texts.isBigEndian, "Bare voxels: the most significant byte comes first");
    app.add_option("--spacing", texts.spacing, "Distance between voxels, in place of the file's")->type_name("X,Y,Z");
}

void addRenderOptions(CLI::App& app, Texts& texts) {
    app.add_option("-o,--output", texts.output, "The picture to write")->required()->type_name("PICTURE.png");
    app.add_option("--min", texts.min,
                   "Smallest value of the foreground (default: by Otsu's method, or any with --max)")
        ->type_name("V");
    app.add_option("--max", texts.max, "Largest value of the foreground, itself included (default: any)")
        ->type_name("V");
    app.add_option(
           "--neighborhood", texts.neighborhood,
           "Adjacency system: N6, N8, N12, N14I, N14II or N26; several, with commas between them, are drawn side "
           "by side")
        ->type_name("NAME,...")
        ->capture_default_str();
    app.add_option("--step", texts.step, "Use every K-th voxel along each axis")->type_name("K")->capture_default_str();
    app.add_option("--box", texts.box, "First and last voxel of the box to draw, both included (default: all)")
        ->type_name("X0,Y0,Z0,X1,Y1,Z1");
    app.add_option("--size", texts.size, "Pixels of the picture")->type_name("WxH")->capture_default_str();
    app.add_option("--view", texts.view,
                   "Degrees. Azimuth 0 looks from the end of the y axis (the front), 90 from that of x (the right "
                   "side); elevation 90 looks from above")
        ->type_name("AZIMUTH,ELEVATION")
        ->capture_default_str();
    app.add_flag("--verbose", texts.isVerbose, "Print wall time and peak memory of each stage");
}

// Returns what the options of an atlas are where they are not given.
Texts atlasDefaults() {
    Texts texts;
    texts.size = "2400x2400";
    texts.view = "156,10";
    return texts;
}

void addAtlasOptions(CLI::App& app, Texts& texts) {
    app.add_option("-o,--output", texts.output, "The picture to write")->required()->type_name("PICTURE.png");
    app.add_option(
           "--neighborhood", texts.neighborhood,
           "Adjacency system: N6, N8, N12, N14I, N14II or N26; several, with commas between them, have a column "
           "each")
        ->type_name("NAME,...")
        ->capture_default_str();
    app.add_option("--configurations", texts.configurations, "Numbers from 0 to 255 of those to draw (default: all)")
        ->type_name("N,...");
    app.add_option("--size", texts.size, "Pixels of the picture")->type_name("WxH")->capture_default_str();
    app.add_option("--view", texts.view, "Degrees, as of tamo render; 180 looks along the y axis, x leading right")
        ->type_name("AZIMUTH,ELEVATION")
        ->capture_default_str();
}

template <typename T> std::array<T, 3> triple(std::vector<T> const& values) {
    return {values[0], values[1], values[2]};
}

// Refuses empty values of all options of the commands: what a script has left unset does not stand for the default.
void refuseEmptyValues(CLI::App& app) {
    for (CLI::App* const command : app.get_subcommands(nullptr)) {
        for (CLI::Option* const option : command->get_options()) {
            option->check([](std::string const& text) { return text.empty() ? "expected a value, found none" : ""; });
        }
    }
}

// Says in one line what is wrong with the arguments.
std::string messageOf(CLI::ParseError const& error) {
    std::string const text = error.what();
    // The parser counts arguments here; all options of this program take one value, once.
    return error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ArgumentMismatch)
               ? text.substr(0, text.find(':')) + ": expected once, with one value"
               : text;
}

RawLayout rawLayout(Texts const& texts) {
    if (texts.dims.empty() || texts.type.empty()) {
        throw UserError(std::string(texts.dims.empty() ? "--dims" : "--type") +
                        ": expected with bare voxels, together with " + (texts.dims.empty() ? "--type" : "--dims"));
    }
    RawLayout layout;
    layout.size = triple(parseWholes("--dims", texts.dims, ',', 3, 1, "three whole numbers of at least 1: X,Y,Z"));
    auto const type = std::find_if(kScalarTypes.begin(), kScalarTypes.end(),
                                   [&texts](ScalarType const& candidate) { return candidate.name == texts.type; });
    if (type == kScalarTypes.end()) {
        throw UserError("--type " + texts.type +
                        ": expected uint8, int8, uint16, int16, uint32, int32, uint64, int64, float32 or float64");
    }
    layout.vtkType = type->vtkType;
    layout.isBigEndian = texts.isBigEndian;
    layout.headerBytes = texts.header.empty() ? 0 : static_cast<std::uint64_t>(parseWhole("--header", texts.header, 0));
    return layout;
}

VolumeSource volumeSource(Texts const& texts) {
    VolumeSource source;
    source.path = texts.volume;
    if (!texts.dims.empty() || !texts.type.empty() || !texts.header.empty() || texts.isBigEndian) {
        source.raw = rawLayout(texts);
    }
    if (!texts.spacing.empty()) {
        std::string const expected = "three positive numbers: X,Y,Z";
        source.spacing = triple(parseNumbers("--spacing", texts.spacing, ',', 3, expected));
        if (*std::min_element(source.spacing->begin(), source.spacing->end()) <= 0) {
            throw UserError("--spacing " + texts.spacing + ": expected " + expected);
        }
    }
    return source;
}

Box parseBox(std::string const& text) {
    std::string const expected = "six whole numbers X0,Y0,Z0,X1,Y1,Z1, the first voxel and the last";
    auto const v = parseWholes("--box", text, ',', 6, 0, expected);
    Box const box{{v[0], v[1], v[2]}, {v[3], v[4], v[5]}};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (box.first[axis] > box.last[axis]) {
            throw UserError("--box " + text + ": expected " + expected + ", which must not lie before it");
        }
    }
    return box;
}

picture::PictureSize parseSize(std::string const& text) {
    auto const size = parseWholes("--size", text, 'x', 2, 1, "WxH, two whole numbers of at least 1");
    if (std::max(size[0], size[1]) > picture::kMaxPictureSide) {
        throw UserError("--size " + text + ": expected at most " + std::to_string(picture::kMaxPictureSide) +
                        " pixels a side");
    }
    return {size[0], size[1]};
}

picture::View parseView(std::string const& text) {
    std::string const expected = "AZIMUTH,ELEVATION, two numbers of degrees, the second from -90 to 90";
    auto const view = parseNumbers("--view", text, ',', 2, expected);
    if (std::abs(view[1]) > 90) {
        throw UserError("--view " + text + ": expected " + expected);
    }
    return {view[0], view[1]};
}

RenderOptions renderOptions(Texts const& texts) {
    RenderOptions options;
    options.source = volumeSource(texts);
    options.output = texts.output;
    if (!texts.min.empty()) {
        options.min = parseNumber("--min", texts.min);
    }
    if (!texts.max.empty()) {
        options.max = parseNumber("--max", texts.max);
    }
    if (options.min && options.max && *options.min > *options.max) {
        throw UserError("--min " + texts.min + ": expected at most --max " + texts.max);
    }
    options.systems = parseSystems(texts.neighborhood);
    options.step = parseWhole("--step", texts.step, 1);
    if (!texts.box.empty()) {
        options.box = parseBox(texts.box);
    }
    options.size = parseSize(texts.size);
    options.view = parseView(texts.view);
    options.isVerbose = texts.isVerbose;
    return options;
}

std::vector<int> parseConfigurations(std::string const& text) {
    std::string const expected = "whole numbers from 0 to 255 with commas between them";
    auto const count = static_cast<std::size_t>(std::count(text.begin(), text.end(), ',')) + 1;
    std::vector<int> configurations = parseWholes("--configurations", text, ',', count, 0, expected);
    if (*std::max_element(configurations.begin(), configurations.end()) > 255) {
        throw UserError("--configurations " + text + ": expected " + expected);
    }
    return configurations;
}

AtlasOptions atlasOptions(Texts const& texts) {
    AtlasOptions options;
    options.output = texts.output;
    options.systems = parseSystems(texts.neighborhood);
    if (!texts.configurations.empty()) {
        options.configurations = parseConfigurations(texts.configurations);
    } else if (options.systems.size() > 1) {
        throw UserError("--neighborhood " + texts.neighborhood +
                        ": expected a single system, or --configurations for several");
    }
    options.size = parseSize(texts.size);
    options.view = parseView(texts.view);
    return options;
}

} // namespace

Request parseCommandLine(int argumentCount, char const* const* arguments) {
    Texts texts;
    Texts atlasTexts = atlasDefaults();
    CLI::App app(std::string("Shows volumes and draws the surfaces of their foreground.\n") + kFormats, "tamo");
    app.set_version_flag("--version", "tamo " TAMO_VERSION);
    app.footer(std::string(kExamples) + "\nSee also: tamo info --help, tamo render --help, tamo atlas --help");
    app.require_subcommand(1);
    CLI::App* const info = app.add_subcommand("info", "Print dimensions, type, spacing, value range and bytes");
    addVolumeOptions(*info, texts);
    info->footer(std::string("\n") + kFormats + "\nExample:\n  tamo info brain.nii.gz");
    CLI::App* const render = app.add_subcommand("render", "Draw the surface of the foreground into a PNG picture");
    addVolumeOptions(*render, texts);
    addRenderOptions(*render, texts);
    render->footer(std::string("\n") + kFormats + kRenderExamples);
    CLI::App* const atlas = app.add_subcommand("atlas", "Draw the cell configurations with their polygons into a PNG");
    addAtlasOptions(*atlas, atlasTexts);
    atlas->footer(kAtlasExamples);
    try {
        refuseEmptyValues(app);
        app.parse(argumentCount, arguments);
    } catch (CLI::Success const& asked) {
        app.exit(asked);
        return {};
    } catch (CLI::ParseError const& error) {
        if (app.get_subcommands().empty()) {
            throw UserError("expected a command, info, render or atlas; see tamo --help");
        }
        throw UserError(messageOf(error) + "; see tamo --help");
    }
    if (info->parsed()) {
        return InfoOptions{volumeSource(texts)};
    }
    if (atlas->parsed()) {
        return atlasOptions(atlasTexts);
    }
    return renderOptions(texts);
}

} // namespace tamo::tool
