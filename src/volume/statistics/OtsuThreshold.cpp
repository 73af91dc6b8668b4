// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "OtsuThreshold.h"

#include "forEachRow.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tamo::volume {

namespace {

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

double computeOtsuThreshold(Volume const& volume, ValueRange range, Progress const& progress) {
    constexpr std::size_t kBins = 256;
    // All in halves, which changes no digit: the range may be longer than the largest double.
    double const first = range.min / 2;
    double const width = (range.max / 2 - first) / kBins;
    if (!(width > 0)) {
        return range.max;
    }
    VolumeHeader const& header = volume.header;
    std::int64_t const rowVoxels = volume.size()[0];
    std::vector<double> histogram(kBins);
    visitStoredType(volume, [&](auto type) {
        forEachRow<decltype(type)>(
            volume,
            [&](auto const* row, std::int64_t, std::int64_t) {
                std::for_each_n(row, rowVoxels, [&](auto stored) {
                    double const value = header.slope * static_cast<double>(stored) + header.intercept;
                    if (std::isfinite(value)) {
                        // Clamped before it is cut to a whole number, which not every double has.
                        double const bin = std::clamp((value / 2 - first) / width, 0.0, kBins - 1.0);
                        histogram[static_cast<std::size_t>(bin)] += 1;
                    }
                });
            },
            progress);
    });
    return 2 * (first + width * static_cast<double>(splitHistogram(histogram) + 1));
}

} // namespace tamo::volume
