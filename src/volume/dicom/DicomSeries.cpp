// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomSeries.h"

#include "../bytes/parseNumber.h"
#include "../chooseOne.h"

#include <algorithm>
#include <utility>

namespace tamo::volume {

namespace {

// Returns a series number, and for a text that is none 0.
std::int64_t orderOf(SeriesInfo const& info) {
    std::int64_t number = 0;
    return parseNumber(info.number, number) ? number : 0;
}

std::vector<SeriesInfo> listSeries(std::vector<DicomImage> const& images) {
    std::vector<SeriesInfo> series;
    for (DicomImage const& image : images) {
        auto found = std::find_if(series.begin(), series.end(),
                                  [&image](SeriesInfo const& info) { return info.uid == image.seriesUid; });
        if (found == series.end()) {
            series.push_back({image.seriesNumber, image.seriesUid, image.seriesDescription, 0});
            found = series.end() - 1;
        }
        found->slices += static_cast<std::int64_t>(image.frames.size());
    }
    // By number; what has none comes as 0.
    std::sort(series.begin(), series.end(), [](SeriesInfo const& a, SeriesInfo const& b) {
        return std::make_pair(orderOf(a), a.uid) < std::make_pair(orderOf(b), b.uid);
    });
    return series;
}

} // namespace

ChosenSeries pickSeries(VolumeSource const& source, std::vector<DicomImage> images) {
    ChosenSeries result;
    result.series = listSeries(images);
    result.chosen = chooseSeries(source, result.series);
    std::string const& uid = result.series[result.chosen].uid;
    std::copy_if(std::make_move_iterator(images.begin()), std::make_move_iterator(images.end()),
                 std::back_inserter(result.images), [&uid](DicomImage const& image) { return image.seriesUid == uid; });
    return result;
}

} // namespace tamo::volume
