// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeInput.h"

#include "volume/Error.h"
#include "volume/openVolume.h"
#include "volume/statistics/OtsuThreshold.h"
#include "volume/statistics/VoxelKind.h"

#include <cstdlib>
#include <cstring>

using namespace tamo::volume;

static void require(bool isTrue) { isTrue ? void() : std::abort(); }

// Looks at the voxels as one who has not said what is foreground.
static void look(Volume const& volume) {
    VoxelStatistics const statistics = computeStatistics(volume, {});
    findVoxelKind(volume, statistics, {});
    if (statistics.range) {
        require(computeOtsuThreshold(volume, *statistics.range, {}) <= statistics.range->max);
    }
}

static void compare(Volume const& whole, Volume const& part) {
    auto const [x, y, z] = part.box.first;
    auto const rowBytes = static_cast<std::size_t>(part.increments[1]);
    for (std::int64_t k = 0; k < part.size()[2]; ++k) {
        for (std::int64_t j = 0; j < part.size()[1]; ++j) {
            unsigned char const* const row = whole.row(y + j, z + k) + x * whole.increments[0];
            require(std::memcmp(row, part.row(j, k), rowBytes) == 0);
        }
    }
}

// Writes the input as the files of a volume, and stops the program where opening or reading it does anything but give
// voxels or throw an Error of one line, or where a box has other voxels than the whole.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* bytes, std::size_t count) {
    if (count < 2) {
        return 0;
    }
    TemporaryFolder const folder;
    VolumeSource const source = writeInput({reinterpret_cast<char const*>(bytes), count}, folder);
    try {
        auto const file = openVolume(source, {});
        Size3 const& size = file->header().size;
        constexpr std::int64_t kMostVoxels = 1 << 24;
        if (voxelCount(size) > kMostVoxels) {
            return 0;
        }
        Volume const whole = file->read(wholeOf(size), {});
        compare(whole,
                file->read({{size[0] / 2, size[1] / 3, size[2] / 2}, {size[0] - 1, size[1] / 2, size[2] - 1}}, {}));
        look(whole);
    } catch (Error const& error) {
        require(std::string(error.what()).find('\n') == std::string::npos);
    }
    return 0;
}
