// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "registrations.h"

#include "support/files/TemporaryFolder.h"

#include "volume/openVolume.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>
#include <zlib.h>

#include <fstream>
#include <functional>
#include <memory>
#include <vector>

namespace tamo::bench {

namespace {

using volume::Box;
using volume::VolumeSource;

constexpr std::int64_t kSide = 512;
constexpr std::size_t kRawBytes = 2 * kSide * kSide * kSide;

// A file of bare numbers of 16 bits, made when it is first asked for.
std::filesystem::path rawFile() {
    static TemporaryFolder const folder;
    static std::filesystem::path const path = [] {
        std::filesystem::path made = folder / "bare";
        std::vector<char> slice(2 * kSide * kSide);
        std::ofstream file(made, std::ios::binary);
        for (std::int64_t z = 0; z < kSide; ++z) {
            std::fill(slice.begin(), slice.end(), static_cast<char>(z));
            file.write(slice.data(), static_cast<std::streamsize>(slice.size()));
        }
        return made;
    }();
    return path;
}

VolumeSource rawSource(bool isBigEndian) {
    VolumeSource source;
    source.path = rawFile();
    source.raw = {{kSide, kSide, kSide}, volume::ScalarType::UInt16, isBigEndian, 0};
    return source;
}

void readBox(VolumeSource const& source, std::function<Box(volume::Size3 const&)> const& boxIn) {
    auto const file = volume::openVolume(source, {});
    benchmark::DoNotOptimize(file->read(boxIn(file->header().size), {}).voxels);
}

// What any reader has to do: get fresh memory and let the system fill it, in one call.
void readPlainly() {
    std::unique_ptr<unsigned char[]> const memory(new unsigned char[kRawBytes]);
    int const file = open(rawFile().c_str(), O_RDONLY | O_CLOEXEC);
    std::size_t done = 0;
    ssize_t part = 1;
    while (part > 0 && done < kRawBytes) {
        part = read(file, memory.get() + done, kRawBytes - done);
        done += part > 0 ? static_cast<std::size_t>(part) : 0;
    }
    close(file);
    benchmark::DoNotOptimize(memory.get());
}

// What any reader of a gzip file has to do: let zlib expand it, in large pieces.
void expandPlainly(std::string const& path) {
    std::vector<unsigned char> piece(std::size_t{1} << 20U);
    gzFile const file = gzopen(path.c_str(), "rb");
    gzbuffer(file, static_cast<unsigned int>(piece.size()));
    while (gzread(file, piece.data(), static_cast<unsigned int>(piece.size())) > 0) {
        benchmark::DoNotOptimize(piece.data());
    }
    gzclose(file);
}

void add(std::string const& name, std::function<void()> const& work) {
    benchmark::RegisterBenchmark(("file/" + name).c_str(),
                                 [work](benchmark::State& state) {
                                     for (auto _ : state) {
                                         work();
                                     }
                                 })
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.2)
        ->Repetitions(5)
        ->ReportAggregatesOnly();
}

} // namespace

void registerReads(std::string const& brainFile) {
    add("raw/plain", readPlainly);
    add("raw/library", [] { readBox(rawSource(/*isBigEndian=*/false), volume::wholeOf); });
    add("foreign/library", [] { readBox(rawSource(/*isBigEndian=*/true), volume::wholeOf); });
    add("box/library", [] {
        readBox(rawSource(/*isBigEndian=*/false), [](volume::Size3 const&) {
            return Box{{200, 200, 200}, {299, 299, 299}};
        });
    });
    if (!brainFile.empty()) {
        VolumeSource brain;
        brain.path = brainFile;
        add("brain/plain", [brainFile] { expandPlainly(brainFile); });
        add("brain/library", [brain] { readBox(brain, volume::wholeOf); });
    }
}

} // namespace tamo::bench
