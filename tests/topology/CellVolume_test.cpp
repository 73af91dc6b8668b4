// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/oracle/CellVolume.h"

#include "support/SystemName.h"
#include "support/oracle/DrawnSurface.h"
#include "support/oracle/SystemList.h"

#include <gtest/gtest.h>

namespace {

using namespace tamo::test;

class CellVolume : public testing::TestWithParam<Neighborhood::NHConfig> {
  protected:
    SystemList _objects{GetParam()};
};

TEST_P(CellVolume, EveryConfigurationKeepsAPartOfItsCell) {
    for (unsigned int configuration = 1; configuration < 255; ++configuration) {
        std::int64_t const volume = drawnVolume48(_objects[configuration], configuration);
        EXPECT_GT(volume, 0) << configuration;
        EXPECT_LT(volume, 48) << configuration;
    }
}

INSTANTIATE_TEST_SUITE_P(Systems, CellVolume, testing::ValuesIn(kSurfaceSystems), nameOfSystem);

class CellVolumeOfTetrahedra : public CellVolume {};

// A turned triangle spans across tetrahedra, so that the surface leaves theirs.
TEST_P(CellVolumeOfTetrahedra, IsTheirsButInTurnedConfigurations) {
    std::vector<unsigned int> others;
    for (unsigned int configuration = 0; configuration < 256; ++configuration) {
        std::int64_t const volume = drawnVolume48(_objects[configuration], configuration);
        if (volume != tetrahedraVolume48(GetParam(), configuration)) {
            others.push_back(configuration);
        }
    }
    EXPECT_EQ(others, turnedConfigurations(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Systems, CellVolumeOfTetrahedra, testing::Values(Neighborhood::N14I, Neighborhood::N14II),
                         nameOfSystem);

} // namespace
