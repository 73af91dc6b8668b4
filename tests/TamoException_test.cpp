// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/TamoException.h>

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <type_traits>
#include <utility>

static_assert(std::is_base_of_v<std::exception, TamoException>);
static_assert(noexcept(std::declval<TamoException const&>().what()));

namespace {

TEST(TamoException, KeepsACopyOfItsMessage) {
    std::string message = "which link";
    TamoException const exception(message);
    message = "changed afterwards";
    EXPECT_STREQ(exception.what(), "which link");
    TamoException copy("other");
    copy = exception;
    EXPECT_STREQ(copy.what(), "which link");
}

TEST(TamoException, IsCaughtAsAStandardException) {
    try {
        throw TamoException("text");
    } catch (std::exception const& exception) {
        EXPECT_STREQ(exception.what(), "text");
    }
}

} // namespace
