// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/statistics/VoxelKind.h"

#include "volume/support/makeVolume.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

namespace {

using tamo::volume::Volume;
using tamo::volume::VoxelKind;

using Value = std::function<double(std::int64_t, std::int64_t, std::int64_t)>;

// A volume of 64^3 voxels, or the name of a file, and what its voxels are.
struct Case {
    char const* name;
    VoxelKind kind;
    Value value;
};

std::ostream& operator<<(std::ostream& out, Case const& one) { return out << one.name; }

// The same number from 0 to 1 for the same place.
double noiseAt(std::int64_t x, std::int64_t y, std::int64_t z) {
    auto hash = static_cast<std::uint32_t>(x * 73856093 ^ y * 19349663 ^ z * 83492791);
    hash = (hash ^ (hash >> 13U)) * 0x5BD1E995U;
    return ((hash ^ (hash >> 15U)) & 0xFFFFU) / 65536.0;
}

double distance(std::int64_t x, std::int64_t y, std::int64_t z) {
    return std::hypot(static_cast<double>(x) - 32, static_cast<double>(y) - 31, static_cast<double>(z) - 30);
}

// The number of the nearest of `count` seeds.
double nearestSeed(std::int64_t x, std::int64_t y, std::int64_t z, int count) {
    int nearest = 0;
    double least = 1e9;
    for (int i = 0; i < count; ++i) {
        double const d =
            std::hypot(static_cast<double>(x) - 64 * noiseAt(i, 1, 2), static_cast<double>(y) - 64 * noiseAt(i, 3, 4),
                       static_cast<double>(z) - 64 * noiseAt(i, 5, 6));
        if (d < least) {
            least = d;
            nearest = i;
        }
    }
    return nearest;
}

bool isBall(std::int64_t x, std::int64_t y, std::int64_t z) { return distance(x, y, z) < 20; }

std::vector<Case> madeCases() {
    return {
        {"BallOfOnes", VoxelKind::Mask, [](auto x, auto y, auto z) { return isBall(x, y, z) ? 1 : 0; }},
        {"MaskInNaN", VoxelKind::Mask,
         [](auto x, auto y, auto z) { return x == 0            ? std::nan("")
                                             : isBall(x, y, z) ? 7
                                                               : 3; }},
        {"NoiseOfTwoValues", VoxelKind::Mask, [](auto x, auto y, auto z) { return noiseAt(x, y, z) < 0.5 ? 3 : 9; }},
        {"MaskOfMinusOne", VoxelKind::Mask, [](auto x, auto y, auto z) { return isBall(x, y, z) ? 0 : -1; }},
        {"TwoMaterials", VoxelKind::Labels,
         [](auto x, auto y, auto z) { return isBall(x, y, z) ? (x < 32 ? 1 : 2) : 0; }},
        {"Shells", VoxelKind::Labels, [](auto x, auto y, auto z) { return std::floor(distance(x, y, z) / 8); }},
        {"SixtyGrains", VoxelKind::Labels, [](auto x, auto y, auto z) { return nearestSeed(x, y, z, 60); }},
        {"GrainsWithoutZero", VoxelKind::Labels, [](auto x, auto y, auto z) { return 5 + nearestSeed(x, y, z, 30); }},
        {"FewThinLabels", VoxelKind::Labels,
         [](auto x, auto y, auto z) {
             return std::abs(std::hypot(static_cast<double>(x - 32), static_cast<double>(y - 32)) - 15) < 2
                        ? 1.0 + std::floor(static_cast<double>(z) / 16)
                        : 0;
         }},
        {"NoisyBody", VoxelKind::Grey,
         [](auto x, auto y, auto z) { return std::floor((isBall(x, y, z) ? 180 : 20) + 9 * noiseAt(x, y, z)); }},
        {"NoisyBodyInBlackAir", VoxelKind::Grey,
         [](auto x, auto y, auto z) { return isBall(x, y, z) ? std::floor(100 + 80 * noiseAt(x, y, z)) : 0; }},
        {"Noise", VoxelKind::Grey, [](auto x, auto y, auto z) { return std::floor(256 * noiseAt(x, y, z)); }},
        {"Ramp", VoxelKind::Grey, [](auto x, auto, auto) { return static_cast<double>(x); }},
        {"SlowRamp", VoxelKind::Grey, [](auto x, auto, auto) { return std::floor(static_cast<double>(x) / 3); }},
        {"DistanceToTheCentre", VoxelKind::Grey,
         [](auto x, auto y, auto z) { return std::floor(distance(x, y, z) / 2); }},
        {"SmoothBody", VoxelKind::Grey,
         [](auto x, auto y, auto z) { return std::floor(200 * std::exp(-std::pow(distance(x, y, z) / 30, 2))); }},
        {"Fractions", VoxelKind::Grey,
         [](auto x, auto y, auto z) { return isBall(x, y, z) ? (x < 32 ? 0.25 : 0.5) : 0; }},
    };
}

VoxelKind kindOf(Volume const& volume) {
    return tamo::volume::findVoxelKind(volume, tamo::volume::computeStatistics(volume, {}), {});
}

class MadeVolume : public testing::TestWithParam<Case> {};

TEST_P(MadeVolume, IsKnownForWhatItIsInEveryType) {
    Value const& value = GetParam().value;
    EXPECT_EQ(kindOf(makeVolume<float>({64, 64, 64},
                                       [&](auto x, auto y, auto z) { return static_cast<float>(value(x, y, z)); })),
              GetParam().kind);
    for (char const* const floating : {"Fractions", "MaskInNaN"}) {
        if (GetParam().name == std::string(floating)) {
            return;
        }
    }
    EXPECT_EQ(kindOf(makeVolume<std::int16_t>(
                  {64, 64, 64}, [&](auto x, auto y, auto z) { return static_cast<std::int16_t>(value(x, y, z)); })),
              GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(All, MadeVolume, testing::ValuesIn(madeCases()),
                         [](auto const& instance) { return std::string(instance.param.name); });

// Brains and atlases of the package mricron-data. The atlases state that they are labels; their voxels have to tell as
// much, but for one that has more labels than a guess is made for.
struct RealCase {
    char const* name;
    VoxelKind kind;
    VoxelKind kindByVoxels;
};

std::ostream& operator<<(std::ostream& out, RealCase const& one) { return out << one.name; }

class RealVolume : public testing::TestWithParam<RealCase> {};

TEST_P(RealVolume, IsKnownForWhatItIs) {
    Volume volume = readWhole("/usr/share/mricron/templates/" + std::string(GetParam().name) + ".nii.gz");
    EXPECT_EQ(kindOf(volume), GetParam().kind);
    volume.header.isLabelMap = false;
    EXPECT_EQ(kindOf(volume), GetParam().kindByVoxels);
}

INSTANTIATE_TEST_SUITE_P(All, RealVolume,
                         testing::Values(RealCase{"aal", VoxelKind::Labels, VoxelKind::Labels},
                                         RealCase{"brodmann", VoxelKind::Labels, VoxelKind::Labels},
                                         RealCase{"inia19-NeuroMaps", VoxelKind::Labels, VoxelKind::Grey},
                                         RealCase{"JHU-WhiteMatter-labels-2mm", VoxelKind::Labels, VoxelKind::Labels},
                                         RealCase{"natbrainlab", VoxelKind::Labels, VoxelKind::Labels},
                                         RealCase{"ch2", VoxelKind::Grey, VoxelKind::Grey},
                                         RealCase{"ch2bet", VoxelKind::Grey, VoxelKind::Grey},
                                         RealCase{"ch2better", VoxelKind::Grey, VoxelKind::Grey},
                                         RealCase{"inia19-t1-brain", VoxelKind::Grey, VoxelKind::Grey}),
                         [](auto const& instance) {
                             std::string name = instance.param.name;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

} // namespace
