// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "picture/PictureError.h"

#include <gtest/gtest.h>

namespace {

using tamo::picture::PictureError;
using tamo::picture::PictureMemoryError;

TEST(PictureError, KeepsItsText) { EXPECT_STREQ(PictureError("expected a display").what(), "expected a display"); }

TEST(PictureError, OfMemoryIsCaughtAsOneOfAnyKind) {
    EXPECT_THROW(throw PictureMemoryError("expected memory"), PictureError);
    EXPECT_THROW(throw PictureError("expected a display"), std::runtime_error);
}

} // namespace
