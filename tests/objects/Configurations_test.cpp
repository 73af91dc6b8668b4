// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../../src/objects/Configurations.h"

#include <gtest/gtest.h>

namespace {

TEST(Configurations, NumberAllSubsetsOfEightCorners) {
    static_assert(tamo::kFullCell == 0xff);
    static_assert(tamo::kConfigurationCount == 1U << 8);
    SUCCEED();
}

} // namespace
