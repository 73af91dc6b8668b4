// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VoxelStatistics.h"

#include "../terminal/UserError.h"
#include "ScalarType.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <limits>
#include <sstream>
#include <vector>

namespace tamo::tool {

namespace {

// Calls `visit` with every voxel's stored number.
template <typename Visit> void forEachVoxel(Volume const& volume, Visit&& visit) {
    visitScalarType(volume.image->GetScalarType(), [&](auto const* null) {
        auto const* const first = reinterpret_cast<decltype(null)>(rowAddress(*volume.image, 0, 0));
        std::for_each_n(first, volume.image->GetNumberOfPoints(), visit);
    });
}

// Returns the number of the bin that the lower class ends with.
std::size_t splitHistogram(std::vector<double> const& histogram) {
    double total = 0;
    double sum = 0;
    for (std::size_t i = 0; i < histogram.size(); ++i) {
        total += histogram[i];
        sum += static_cast<double>(i) * histogram[i];
    }
    double lower = 0;
    double lowerSum = 0;
    double best = 0;
    std::size_t firstBest = 0;
    std::size_t lastBest = 0;
    for (std::size_t i = 0; i + 1 < histogram.size(); ++i) {
        lower += histogram[i];
        lowerSum += static_cast<double>(i) * histogram[i];
        double const upper = total - lower;
        if (lower == 0 || upper == 0) {
            continue;
        }
        double const distance = lowerSum / lower - (sum - lowerSum) / upper;
        double const between = lower * upper * distance * distance;
        // Across a gap of the histogram every split is as good: the middle one keeps clear of both classes.
        if (between > best) {
            best = between;
            firstBest = i;
        }
        if (between == best) {
            lastBest = i;
        }
    }
    return (firstBest + lastBest) / 2;
}

} // namespace

ValueRange computeValueRange(Volume const& volume, std::string const& path) {
    double min = std::numeric_limits<double>::infinity();
    double max = -min;
    forEachVoxel(volume, [&min, &max](auto stored) {
        auto const value = static_cast<double>(stored);
        if (std::isfinite(value)) {
            min = std::min(min, value);
            max = std::max(max, value);
        }
    });
    if (min > max) {
        throw UserError(path + ": expected at least one voxel with a finite value");
    }
    double const first = volume.slope * min + volume.intercept;
    double const second = volume.slope * max + volume.intercept;
    return {std::min(first, second), std::max(first, second)};
}

double computeOtsuThreshold(Volume const& volume, ValueRange range) {
    constexpr std::size_t kBins = 256;
    double const width = (range.max - range.min) / kBins;
    if (!(width > 0)) {
        return range.max;
    }
    std::vector<double> histogram(kBins);
    forEachVoxel(volume, [&](auto stored) {
        double const value = volume.slope * static_cast<double>(stored) + volume.intercept;
        if (std::isfinite(value)) {
            auto const bin = static_cast<std::size_t>(std::max(0.0, (value - range.min) / width));
            histogram[std::min(bin, kBins - 1)] += 1;
        }
    });
    return range.min + width * static_cast<double>(splitHistogram(histogram) + 1);
}

std::string numberText(double value) {
    constexpr double kExact = 1e15;
    std::ostringstream text;
    bool const isWhole = value == std::floor(value) && std::abs(value) < kExact;
    text << std::setprecision(isWhole ? 15 : 9) << value;
    return text.str();
}

} // namespace tamo::tool
