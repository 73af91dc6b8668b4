// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/quoted.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::quoted;

TEST(Quoted, IsOneShortLine) {
    EXPECT_EQ(quoted("a\nb\x7F"), "\"a b \"");
    EXPECT_EQ(quoted(std::string(60, 'x')), '"' + std::string(60, 'x') + '"');
    EXPECT_EQ(quoted(std::string(61, 'x')), '"' + std::string(60, 'x') + "...\"");
}

} // namespace
