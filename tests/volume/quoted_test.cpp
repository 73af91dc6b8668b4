// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/quoted.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::quoted;

TEST(Quoted, IsOneShortLine) {
    EXPECT_EQ(quoted("a\nb\x7F"), "\"a?b?\"");
    EXPECT_EQ(quoted(std::string(60, 'x')), '"' + std::string(60, 'x') + '"');
    EXPECT_EQ(quoted(std::string(61, 'x')), '"' + std::string(60, 'x') + "...\"");
}

TEST(Quoted, IsUtf8WhateverTheFileHolds) {
    EXPECT_EQ(quoted("\xC2\xB5m \xE2\x82\xAC \xF0\x9F\x90\x98"), "\"\xC2\xB5m \xE2\x82\xAC \xF0\x9F\x90\x98\"");
    EXPECT_EQ(quoted("\xB5m \xC3"), "\"?m ?\"");
    for (char const* const none :
         {"\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF", "\xE2\x82"}) {
        EXPECT_EQ(quoted(none), '"' + std::string(std::string(none).size(), '?') + '"');
    }
    // No character is cut in two.
    EXPECT_EQ(quoted(std::string(59, 'x') + "\xC2\xB5"), '"' + std::string(59, 'x') + "...\"");
}

} // namespace
