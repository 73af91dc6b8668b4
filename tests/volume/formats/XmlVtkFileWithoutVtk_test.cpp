// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

namespace {

TEST(XmlVtkFile, IsRefusedByABuildWithoutVtkInALineThatSaysSo) {
    TemporaryFolder const folder;
    writeFile(folder / "a.vti", "<VTKFile type=\"ImageData\"></VTKFile>\n");
    EXPECT_NE(refusalOf(folder / "a.vti")
                  .find("a.vti: expected a format that this build reads, found VTK's XML; build "
                        "with TAMO_WITH_VTK=ON"),
              std::string::npos);
}

} // namespace
