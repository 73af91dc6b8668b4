// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/chooseOne.h"

#include "volume/Error.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using tamo::volume::chooseOne;
using tamo::volume::chooseSeries;
using tamo::volume::Error;
using tamo::volume::SeriesInfo;
using tamo::volume::VolumeSource;

template <typename Act> std::string refusal(Act const& act) {
    try {
        act();
    } catch (Error const& error) {
        return error.reason();
    }
    return {};
}

TEST(ChooseOne, TakesTheOnlyOneAndTheOneThatIsWanted) {
    EXPECT_EQ(chooseOne("a", "channel", 1, std::nullopt), 0);
    EXPECT_EQ(chooseOne("a", "channel", 1, 0), 0);
    EXPECT_EQ(chooseOne("a", "channel", 3, 2), 2);
}

TEST(ChooseOne, SaysWhatThereIsToChooseFrom) {
    EXPECT_EQ(refusal([] { chooseOne("a", "channel", 2, std::nullopt); }),
              "expected one channel, found 2 channels; choose one with --channel 0 or 1");
    EXPECT_EQ(refusal([] { chooseOne("a", "frame", 5, 5); }),
              "expected a frame 5, found 5 frames; choose one with --frame 0 to 4");
    EXPECT_EQ(refusal([] { chooseOne("a", "frame", 1, -1); }), "expected a frame -1, found 1 frame; leave out --frame");
}

TEST(ChooseSeries, GoesByNumberOrUid) {
    std::vector<SeriesInfo> const series{{"0", "Image:0", "left", 3}, {"1", "Image:1", "right", 4}};
    VolumeSource source;
    EXPECT_EQ(
        refusal([&] { chooseSeries(source, series); }),
        "expected one series, found 2 series: 0 \"left\" (3 slices), 1 \"right\" (4 slices); choose one with --series");
    source.series = "1";
    EXPECT_EQ(chooseSeries(source, series), 1U);
    source.series = "Image:0";
    EXPECT_EQ(chooseSeries(source, series), 0U);
    source.series = "2";
    EXPECT_NE(refusal([&] { chooseSeries(source, series); }), "");
    source.series.clear();
    EXPECT_EQ(chooseSeries(source, {series[1]}), 0U);
}

} // namespace
