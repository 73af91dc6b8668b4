// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomSeries.h"

#include "support/files/TemporaryFolder.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using tamo::volume::VolumeSource;

struct Series {
    std::string number;
    std::string description;
    int slices;
};

// Series i has UID 1.2.i.
void writeSeries(fs::path const& folder, std::vector<Series> const& all) {
    int i = 0;
    for (Series const& series : all) {
        std::string const uid = "1.2." + std::to_string(++i);
        fs::create_directory(folder / uid);
        writeDicomSlices(makePhantom(4, 3, series.slices), folder / uid, EXS_LittleEndianExplicit,
                         [&](DcmDataset& dataset, int) {
                             setElement(dataset, DCM_SeriesInstanceUID, uid);
                             setElement(dataset, DCM_SeriesNumber, series.number);
                             setElement(dataset, DCM_SeriesDescription, series.description);
                         });
    }
}

TEST(DicomSeries, AreListedWhereThereAreSeveral) {
    TemporaryFolder const folder;
    writeSeries(folder.path(), {{"12", "localizer", 2}, {"3", "T1 axial", 4}});
    EXPECT_EQ(refusalOf(folder.path()), folder.path().string() +
                                            ": expected one series, found 2 series: 3 \"T1 axial\" (4 slices), 12 "
                                            "\"localizer\" (2 slices); choose one with --series");
}

TEST(DicomSeries, AreChosenByNumberOrUid) {
    TemporaryFolder const folder;
    writeSeries(folder.path(), {{"12", "localizer", 2}, {"3", "T1 axial", 4}});
    VolumeSource source;
    source.path = folder.path();
    for (std::string const series : {"12", "1.2.1"}) {
        source.series = series;
        auto const volume = readWhole(source);
        EXPECT_EQ(volume.header.size[2], 2);
        ASSERT_EQ(volume.header.series.size(), 2U);
        EXPECT_EQ(volume.header.series[volume.header.chosenSeries].description, "localizer");
        EXPECT_EQ(volume.header.series[volume.header.chosenSeries].slices, 2);
    }
    source.series = "4";
    EXPECT_NE(refusalOf(source).find("expected series 4, found 2 series: 3 "), std::string::npos);
}

TEST(DicomSeries, AreNamedByTheirUidsWhereNumbersAreNotUnique) {
    TemporaryFolder const folder;
    writeSeries(folder.path(), {{"3", "a", 2}, {"3", "b", 2}, {"", "c", 2}});
    EXPECT_NE(refusalOf(folder.path()).find("1.2.3 \"c\" (2 slices), 1.2.1 \"a\" (2 slices), 1.2.2 \"b\" (2 slices)"),
              std::string::npos)
        << refusalOf(folder.path());
    VolumeSource source;
    source.path = folder.path();
    source.series = "3";
    EXPECT_NE(refusalOf(source).find("expected one series"), std::string::npos);
}

TEST(DicomSeries, AreListedUpToTwenty) {
    TemporaryFolder const folder;
    std::vector<Series> all;
    for (int i = 1; i <= 23; ++i) {
        all.push_back({std::to_string(i), "", 1});
    }
    writeSeries(folder.path(), all);
    std::string const line = refusalOf(folder.path());
    EXPECT_NE(line.find("20 \"\" (1 slice) and 3 more; choose"), std::string::npos) << line;
    EXPECT_EQ(line.find("21 \"\""), std::string::npos);
}

} // namespace
