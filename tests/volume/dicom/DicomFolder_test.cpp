// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomFolder.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// Names without an ending, as scanners give them.
void writeBareNames(fs::path const& folder) {
    writeDicomSlices(makePhantom(4, 3, 4), folder, EXS_LittleEndianExplicit);
    for (int z = 0; z < 4; ++z) {
        fs::rename(folder / ("IM000" + std::to_string(z) + ".dcm"), folder / ("IM000" + std::to_string(z)));
    }
}

TEST(DicomFolder, LeavesOutStraysWithANote) {
    TemporaryFolder const folder;
    writeBareNames(folder.path());
    writeFile(folder / "notes.txt", "on the patient");
    writeFile(folder / "._IM0001.dcm", "of a Macintosh");
    auto const header = readWhole(folder.path()).header;
    EXPECT_EQ(header.size[2], 4);
    ASSERT_EQ(header.notes.size(), 1U);
    EXPECT_NE(header.notes[0].find("2 files are no DICOM files and were left out: "), std::string::npos);
    EXPECT_NE(header.notes[0].find("notes.txt"), std::string::npos);
}

TEST(DicomFolder, LeavesOutFilesWithoutPixelsWithANote) {
    TemporaryFolder const folder;
    writeBareNames(folder.path());
    DcmDataset report;
    setElement(report, DCM_SOPClassUID, UID_BasicTextSRStorage);
    setElement(report, DCM_SOPInstanceUID, "1.2.3");
    saveDicom(report, folder / "SR1", EXS_LittleEndianExplicit);
    auto const header = readWhole(folder.path()).header;
    ASSERT_EQ(header.notes.size(), 1U);
    EXPECT_EQ(header.notes[0], "1 file holds no pixels and was left out: SR1");
}

TEST(DicomFolder, RefusesFilesThatSeemToHaveBeenSlices) {
    std::string const page(500, 'x');
    for (std::string const name : {"IM0007", "other.dcm", "OTHER.IMA", "im12"}) {
        TemporaryFolder const folder;
        writeBareNames(folder.path());
        writeFile(folder / name, page);
        std::string const line = refusalOf(folder.path());
        EXPECT_EQ(line.find((folder / name).string() + ": expected a DICOM slice like those beside it"), 0U) << line;
    }
}

TEST(DicomFolder, RefusesALinkToASliceThatIsLost) {
    TemporaryFolder const folder;
    writeBareNames(folder.path());
    fs::create_symlink("nothing", folder / "latest");
    EXPECT_NE(readWhole(folder.path()).header.notes.at(0).find("latest"), std::string::npos);
    fs::create_symlink("nothing", folder / "IM0004");
    EXPECT_NE(refusalOf(folder.path()).find("IM0004: expected a DICOM slice"), std::string::npos);
}

TEST(DicomFolder, RefusesTheStartOfASlice) {
    TemporaryFolder const folder;
    writeBareNames(folder.path());
    writeFile(folder / "copy", readFile(folder / "IM0000").substr(0, 100));
    EXPECT_NE(refusalOf(folder.path()).find("copy: expected a DICOM slice"), std::string::npos);
    // Past its class, short of its pixels, at the end of an element: the file is no report.
    std::string const whole = readFile(folder / "IM0000");
    fs::remove(folder / "copy");
    writeFile(folder / "IM0000", whole.substr(0, whole.find(std::string("\x28\0\x10\0US", 6))));
    EXPECT_NE(refusalOf(folder.path()).find("IM0000: expected pixels, found none"), std::string::npos)
        << refusalOf(folder.path());
}

TEST(DicomFolder, NamesAFileThatCannotBeRead) {
    TemporaryFolder const folder;
    writeBareNames(folder.path());
    // Permissions do not bind every user; a file that is gone cannot be read by anyone.
    try {
        static_cast<void>(tamo::volume::readDicomFolder(folder.path(), {folder / "IM0000", folder / "gone"}, {}));
        FAIL();
    } catch (tamo::volume::Error const& error) {
        EXPECT_EQ(error.path(), folder / "gone");
        EXPECT_NE(error.reason().find("expected a file that can be read: No such file"), std::string::npos);
    }
}

TEST(DicomFolder, StopsWhereProgressAsksForIt) {
    TemporaryFolder const folder;
    writeBareNames(folder.path());
    int calls = 0;
    EXPECT_THROW(tamo::volume::readDicomFolder(folder.path(), {folder / "IM0000", folder / "IM0001"},
                                               [&calls](double) { return ++calls < 2; }),
                 tamo::volume::Cancelled);
}

} // namespace
