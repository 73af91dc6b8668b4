// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TestFormats.h"

#include "gzipped.h"
#include "headerWords.h"
#include "packed.h"
#include "support/files/fileContent.h"

namespace {

namespace fs = std::filesystem;

using Vector = std::array<double, 3>;

std::string vectorText(Vector const& v) { return "(" + joined(v, ",") + ")"; }

// Returns the directions, each as long as the spacing, in a space whose axes have signs.
std::string directionsOf(Phantom const& phantom, Vector const& signs) {
    std::string text;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        Vector step = phantom.axes[axis];
        for (std::size_t i = 0; i < 3; ++i) {
            step[i] *= signs[i] * phantom.spacing[axis];
        }
        text += " " + vectorText(step);
    }
    return text;
}

std::string geometryOf(Phantom const& phantom) {
    return "space: left-posterior-superior\nspace directions:" + directionsOf(phantom, {1, 1, 1}) +
           "\nspace origin: " + vectorText(phantom.origin) + "\n";
}

std::string headerOf(Phantom const& phantom, std::string const& geometry, std::string const& encoding) {
    return "NRRD0005\n# a phantom\ntype: short\ndimension: 3\nsizes: " + joined(phantom.size, " ") + "\n" + geometry +
           "encoding: " + encoding + "\nendian: little\n";
}

TestFormat attached(std::string const& name, std::string const& encoding, std::string (*pack)(Phantom const&)) {
    return {name, "a.nrrd", [=](Phantom const& phantom, fs::path const& folder) {
                writeFile(folder / "a.nrrd", headerOf(phantom, geometryOf(phantom), encoding) + "\n" + pack(phantom));
            }};
}

std::string raw(Phantom const& phantom) { return bytesOf(phantom); }
std::string gzip(Phantom const& phantom) { return gzipped(bytesOf(phantom)); }
std::string bzip2(Phantom const& phantom) { return bzipped(bytesOf(phantom)); }
std::string hex(Phantom const& phantom) { return hexDigits(bytesOf(phantom)); }

void writeBigEndian(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.nrrd",
              "NRRD0001\r\nencoding: raw\r\nendian: big\r\ndimension: 3\r\ntype: int16_t\r\nsizes: " +
                  joined(phantom.size, " ") + "\r\nspacings: " + joined(phantom.spacing, " ") + "\r\n\r\n" +
                  bytesOf(phantom, /*isBigEndian=*/true));
}

void writeRas(Phantom const& phantom, fs::path const& folder) {
    Vector const origin{-phantom.origin[0], -phantom.origin[1], phantom.origin[2]};
    std::string const geometry = "space: RAS\nspace directions:" + directionsOf(phantom, {-1, -1, 1}) +
                                 "\nspace origin: " + vectorText(origin) + "\n";
    writeFile(folder / "a.nrrd", headerOf(phantom, geometry, "raw") + "\n" + bytesOf(phantom));
}

void writeDetached(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.nhdr", headerOf(phantom, geometryOf(phantom), "raw") + "byte skip: -1\ndata file: a.raw\n");
    writeFile(folder / "a.raw", bytesOf(phantom));
}

// Writes each slice into a file of its own, behind a line and a byte, and returns their names, one per line.
std::string writeSlices(Phantom const& phantom, fs::path const& folder) {
    std::string names;
    for (int z = 0; z < phantom.size[2]; ++z) {
        std::string const name = "s" + std::string(z < 10 ? "00" : "0") + std::to_string(z) + ".raw";
        writeFile(folder / name, "a line\nx" + partOf(bytesOf(phantom), z, phantom.size[2]));
        names += name + "\n";
    }
    return names;
}

constexpr char const* kSkip = "line skip: 1\nbyte skip: 1\n";

void writeList(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.nhdr", headerOf(phantom, geometryOf(phantom), "raw") + kSkip + "data file: LIST\n" +
                                     writeSlices(phantom, folder));
}

void writePattern(Phantom const& phantom, fs::path const& folder) {
    writeSlices(phantom, folder);
    writeFile(folder / "a.nhdr", headerOf(phantom, geometryOf(phantom), "raw") + kSkip + "data file: s%03d.raw 0 " +
                                     std::to_string(phantom.size[2] - 1) + " 1\n");
}

// A segmentation with one layer.
void writeSegments(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.seg.nrrd",
              "NRRD0004\ntype: short\ndimension: 4\nspace: left-posterior-superior\nsizes: 1 " +
                  joined(phantom.size, " ") + "\nspace directions: none" + directionsOf(phantom, {1, 1, 1}) +
                  "\nkinds: list domain domain domain\nendian: little\nencoding: gzip\nspace origin: " +
                  vectorText(phantom.origin) + "\nSegment0_Name:=bone\nSegment0_LabelValue:=1\nSegment0_Layer:=0\n\n" +
                  gzip(phantom));
}

} // namespace

std::vector<TestFormat> nrrdFormats() {
    TestFormat text = attached("NrrdText", "ascii", numbersOf);
    text.hasLooseEnd = true;
    TestFormat bigEndian{"NrrdBigEndian", "a.nrrd", writeBigEndian};
    bigEndian.hasOrigin = false;
    bigEndian.hasAxes = false;
    return {attached("Nrrd", "raw", raw),
            attached("NrrdGzip", "gzip", gzip),
            attached("NrrdBzip2", "bzip2", bzip2),
            attached("NrrdHex", "hex", hex),
            text,
            bigEndian,
            {"NrrdRas", "a.nrrd", writeRas},
            {"NrrdDetached", "a.nhdr", writeDetached},
            {"NrrdList", "a.nhdr", writeList},
            {"NrrdPattern", "a.nhdr", writePattern},
            {"NrrdSegments", "a.seg.nrrd", writeSegments}};
}
