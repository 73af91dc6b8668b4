// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomDirectory.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/DicomWriter.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using tamo::volume::readDicomDirectory;

TEST(DicomDirectory, ListsFilesRelativeToWhereItStands) {
    TemporaryFolder const folder;
    fs::create_directories(folder / "A" / "B");
    writeFile(folder / "A" / "B" / "C1", "");
    writeFile(folder / "d1", "");
    writeDicomDirectory(folder / "DICOMDIR", {"A\\B\\C1", "D1"});
    std::vector<fs::path> const expected{folder / "A" / "B" / "C1", folder / "d1"};
    EXPECT_EQ(readDicomDirectory(folder / "DICOMDIR"), expected);
}

TEST(DicomDirectory, NamesTheFileThatIsMissing) {
    TemporaryFolder const folder;
    writeDicomDirectory(folder / "DICOMDIR", {"A\\B"});
    EXPECT_EQ(refusalOf(folder / "DICOMDIR"),
              (folder / "DICOMDIR").string() + ": expected the files that it lists, found no A/B; copy the whole disc");
}

TEST(DicomDirectory, LeadsNowhereElse) {
    TemporaryFolder const folder;
    fs::create_directory(folder / "disc");
    writeFile(folder / "secret", "");
    writeDicomDirectory(folder / "disc" / "DICOMDIR", {"..\\secret"});
    EXPECT_NE(refusalOf(folder / "disc" / "DICOMDIR").find("expected names of files beside it"), std::string::npos);
}

TEST(DicomDirectory, IsNoOtherFile) {
    TemporaryFolder const folder;
    writeDicomSlices(makePhantom(4, 3, 1), folder.path(), EXS_LittleEndianExplicit);
    EXPECT_FALSE(readDicomDirectory(folder / "IM0000.dcm").has_value());
}

} // namespace
