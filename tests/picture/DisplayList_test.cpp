// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/DisplayList.h"

#include "picture/OffscreenContext.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <utility>

namespace {

using tamo::picture::DisplayList;

TEST(DisplayList, HasANameOfItsOwnWhileItLives) {
    tamo::picture::OffscreenContext const context(8, 8);
    unsigned int name = 0;
    {
        DisplayList const list;
        DisplayList const other;
        name = list.name();
        EXPECT_NE(name, other.name());
        EXPECT_EQ(glIsList(name), GL_TRUE);
    }
    EXPECT_EQ(glIsList(name), GL_FALSE);
}

TEST(DisplayList, IsKeptByWhatItIsMovedTo) {
    tamo::picture::OffscreenContext const context(8, 8);
    DisplayList first;
    unsigned int const name = first.name();
    {
        DisplayList const second(std::move(first));
        EXPECT_EQ(second.name(), name);
        EXPECT_EQ(glIsList(name), GL_TRUE);
    }
    EXPECT_EQ(glIsList(name), GL_FALSE);
}

} // namespace
