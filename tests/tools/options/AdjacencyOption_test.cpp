// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/fileContent.h"
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

class AdjacencyOption : public testing::Test {
  protected:
    // Draws two voxels that touch at an edge, (0, 0, 0) and (1, 0, 1), in a volume of 3 x 2 x 3.
    [[nodiscard]] ToolRun render(std::string const& systems) const {
        std::string bytes(18, '\0');
        bytes[0] = '\1';
        bytes[1 + 1 * 6] = '\1';
        writeFile(_folder / "a.raw", bytes);
        return runTool({"render", (_folder / "a.raw").string(), "--dims", "3,2,3", "--type", "uint8", "--min", "1",
                        "-o", (_folder / "a.png").string(), "--size", "60x20", "--adjacency", systems});
    }

    TemporaryFolder _folder;
};

TEST_F(AdjacencyOption, TakesNamesInEitherCaseAndTheAliases) {
    std::vector<std::pair<std::string, std::string>> const spellings{
        {"6", "N6"},        {"n6", "N6"},       {"26", "N26"},    {"n26", "N26"}, {"N14II", "N14II"},
        {"n14ii", "N14II"}, {"N14ii", "N14II"}, {"n14I", "N14I"}, {"n8", "N8"},   {"N12", "N12"}};
    for (auto const& [spelling, name] : spellings) {
        ToolRun const run = render(spelling);
        EXPECT_EQ(run.status, 0) << run.error;
        EXPECT_EQ(run.output, render(name).output);
        EXPECT_NE(run.output.find(" " + name + ", step 1"), std::string::npos) << run.output;
    }
}

TEST_F(AdjacencyOption, MixesNamesAndAliases) {
    EXPECT_EQ(render("6,n26,N14ii").output, render("N6,N26,N14II").output);
}

TEST_F(AdjacencyOption, RefusesOtherNamesWithWhatItFoundAndExpected) {
    for (std::string const name :
         {"N7", "N14", "17", "8", "NN6", "n 6", "N6,7", "N6;N26", "N6,", ",6", " 6", "n", "N"}) {
        ToolRun const run = render(name);
        EXPECT_TRUE(
            isUsageRefusal(run, "--adjacency " + name + ": expected N6 (or 6), N8, N12, N14I, N14II or N26 (or 26)"))
            << run.error;
    }
}

TEST_F(AdjacencyOption, ListsItsNamesInTheHelp) {
    std::string const help = runTool({"atlas", "--help"}).output;
    for (std::string const name : {"in any case", "N6 (or 6),", "N8,", "N12,", "N14I,", "N14II or", "N26 (or 26);"}) {
        EXPECT_NE(help.find(name), std::string::npos) << name << help;
    }
}

} // namespace
