// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ReadPlan.h"

#include "BitTile.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

// All constants here were tuned with scripts/bench on volumes of 256 and 512 voxels a side, one byte per voxel, on a
// processor with 48 KiB of first and 1 MiB of second-level cache per core. They are counted in bytes of memory, not in
// samples, so that they hold for steps and spread samples as well.

namespace tamo::scan {

namespace {

// Finds the axis whose neighbours are nearest in memory, of those that are long enough for a run.
void chooseAxis(SampleGrid const& grid, ReadPlan& plan) {
    std::ptrdiff_t nearest = std::numeric_limits<std::ptrdiff_t>::max();
    auto const consider = [&](ReadPlan::Axis axis, std::int64_t count, std::ptrdiff_t stride) {
        if (count >= kTileSide && std::abs(stride) < nearest) {
            nearest = std::abs(stride);
            plan.axis = axis;
            plan.stride = stride;
        }
    };
    consider(ReadPlan::Axis::kX, grid.count.x, grid.stride.x);
    consider(ReadPlan::Axis::kY, grid.count.y, grid.stride.y);
    consider(ReadPlan::Axis::kZ, grid.count.z, grid.stride.z);
}

// Returns how many samples from `sample` on, `stride` apart, lie in its pair of lines.
std::int64_t samplesInPair(unsigned char const* sample, std::ptrdiff_t stride) {
    auto const place = static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(sample) % kLinePair);
    return (stride < 0 ? place : kLinePair - 1 - place) / std::max(std::abs(stride), std::ptrdiff_t{1}) + 1;
}

// Returns how many slabs of bits take half as much memory as the volume, eight at least: in a thin grid most of a
// slab's words are padding, and keeping many of them would cost more than it gains.
std::int64_t slabsInHalfVolume(SampleGrid const& grid) {
    // Rounded down row by row, as the product of three sides may pass 64 bits; that of two takes up to all of them.
    auto const wordsOfRow = static_cast<std::uint64_t>(tilesFor(grid.count.x) + 1);
    std::uint64_t const voxels = static_cast<std::uint64_t>(grid.count.x) * static_cast<std::uint64_t>(grid.count.y);
    auto const slabsInRows = static_cast<std::int64_t>(voxels / (2 * wordsOfRow));
    return std::max(slabsInRows / kTileSide * kTileSide, kTileSide);
}

void chooseSlabs(SampleGrid const& grid, ReadPlan& plan) {
    // Tuned on the ball of 512 voxels a side. With y densest a pair of lines crosses 128 slabs: reading them all at
    // once takes 3.3 memory passes, 64 slabs at once 4.7, 32 slabs 7.5 and 16 slabs 12, as each line is then fetched
    // again. With y next, rows of several slabs lie side by side: read together they are long enough for the hardware
    // to prefetch what follows.
    constexpr std::int64_t kPiece = 1024;
    std::int64_t const toNextSlab = std::max(std::abs(grid.stride.y), std::ptrdiff_t{1});
    std::int64_t const slabsInPiece = std::clamp(kPiece / toNextSlab / kTileSide * kTileSide, kTileSide, kLinePair);
    plan.slabsPerRead = 1;
    plan.slabsOfFirstRead = 1;
    if (plan.axis == ReadPlan::Axis::kY) {
        plan.slabsPerRead = slabsInPiece;
        // After the first read all start with a pair of lines, or near it, if rows do.
        plan.slabsOfFirstRead =
            std::abs(plan.stride) <= kLine ? samplesInPair(grid.first, plan.stride) : plan.slabsPerRead;
    } else if (std::abs(grid.stride.y) < std::max(std::abs(grid.stride.x), std::abs(grid.stride.z))) {
        plan.slabsPerRead = slabsInPiece;
        plan.slabsOfFirstRead = slabsInPiece;
    }
    plan.slabsPerRead = std::min({plan.slabsPerRead, slabsInHalfVolume(grid), grid.count.y});
    plan.slabsOfFirstRead = std::min(plan.slabsOfFirstRead, plan.slabsPerRead);
}

bool chooseWhetherToAsk(SampleGrid const& grid, ReadPlan const& plan) {
    std::int64_t const distance = std::abs(plan.stride);
    if (plan.axis == ReadPlan::Axis::kY) {
        // Rows that share a line are one piece of memory, which the hardware prefetches by itself. Samples more than a
        // line apart need few of the lines between the first and the last.
        bool const isOnePiece = std::min(std::abs(grid.stride.x), std::abs(grid.stride.z)) <= kLine;
        return distance <= kLine && !isOnePiece;
    }
    // A step leaves out rows and whole slabs, which ends the streams that the hardware follows. Contiguous samples do
    // without: with so little to read in a line, asking costs more than it gains.
    bool const isSpread = distance > 1 && distance * kTileSide <= kLine;
    // What is read between asking and use must not push out what was asked for: a second-level cache of 1 MiB.
    constexpr std::int64_t kMostAhead = 1 << 20;
    bool const isAlongX = plan.axis == ReadPlan::Axis::kX;
    std::int64_t const rows = plan.slabsPerRead > 1 ? kTileSide : isAlongX ? grid.count.z : grid.count.x;
    std::int64_t const samples = isAlongX ? grid.count.x : grid.count.z;
    return isSpread && rows <= kMostAhead / kLine && samples <= kMostAhead / (rows * distance);
}

} // namespace

ReadPlan makeReadPlan(SampleGrid const& grid) {
    ReadPlan plan{ReadPlan::Axis::kX, 0, 1, 1, false};
    chooseAxis(grid, plan);
    chooseSlabs(grid, plan);
    plan.asksAhead = chooseWhetherToAsk(grid, plan);
    return plan;
}

} // namespace tamo::scan
