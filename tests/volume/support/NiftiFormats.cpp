// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NiftiBytes.h"
#include "TestFormats.h"
#include "gzipped.h"

#include "support/files/fileContent.h"

namespace {

namespace fs = std::filesystem;

std::string voxelsOf(Phantom const& phantom, bool isBigEndian) {
    auto const bytes = voxelBytes(phantom, isBigEndian);
    return {bytes.begin(), bytes.end()};
}

NiftiBytes headerOf(Phantom const& phantom, int version, bool isBigEndian) {
    return {version, isBigEndian, {phantom.size[0], phantom.size[1], phantom.size[2]}};
}

std::string singleFile(Phantom const& phantom, int version, bool isBigEndian) {
    NiftiBytes header = headerOf(phantom, version, isBigEndian);
    header.setSform(1, sformOf(phantom));
    return header.bytes(4) + voxelsOf(phantom, isBigEndian);
}

TestFormat single(std::string const& name, int version, bool isBigEndian) {
    return {name, "a.nii", [=](Phantom const& phantom, fs::path const& folder) {
                writeFile(folder / "a.nii", singleFile(phantom, version, isBigEndian));
            }};
}

void writeGzip(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.nii.gz", gzipped(singleFile(phantom, 1, /*isBigEndian=*/false)));
}

NiftiBytes pairHeader(Phantom const& phantom, int version) {
    NiftiBytes header = headerOf(phantom, version, /*isBigEndian=*/false);
    header.setMagic("ni");
    header.setVoxelOffset(0);
    header.setSform(1, sformOf(phantom));
    return header;
}

void writePair(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.hdr", pairHeader(phantom, 1).bytes());
    writeFile(folder / "a.img", voxelsOf(phantom, /*isBigEndian=*/false));
}

void writeGzipPair(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.hdr.gz", gzipped(pairHeader(phantom, 2).bytes()));
    writeFile(folder / "a.img.gz", gzipped(voxelsOf(phantom, /*isBigEndian=*/false)));
}

void writeQform(Phantom const& phantom, fs::path const& folder) {
    NiftiBytes header = headerOf(phantom, 1, /*isBigEndian=*/false);
    auto rotation = sformOf(phantom);
    std::array<double, 3> const offset{rotation[0][3], rotation[1][3], rotation[2][3]};
    for (auto& row : rotation) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            row[axis] /= phantom.spacing[axis];
        }
    }
    header.setQform(1, quaternionOf(rotation), offset);
    writeFile(folder / "a.nii", header.bytes(4) + voxelsOf(phantom, /*isBigEndian=*/false));
}

void writeAnalyze(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.hdr", headerOf(phantom, 0, /*isBigEndian=*/true).bytes());
    writeFile(folder / "a.img", voxelsOf(phantom, /*isBigEndian=*/true));
}

} // namespace

std::vector<TestFormat> niftiFormats() {
    TestFormat analyze{"Analyze", "a.hdr", writeAnalyze};
    analyze.hasOrigin = false;
    analyze.hasAxes = false;
    return {single("Nifti", 1, /*isBigEndian=*/false),
            single("NiftiBigEndian", 1, /*isBigEndian=*/true),
            single("Nifti2", 2, /*isBigEndian=*/false),
            single("Nifti2BigEndian", 2, /*isBigEndian=*/true),
            {"NiftiGzip", "a.nii.gz", writeGzip},
            {"NiftiPair", "a.hdr", writePair},
            {"NiftiGzipPair", "a.img.gz", writeGzipPair},
            {"NiftiQform", "a.nii", writeQform},
            analyze};
}
