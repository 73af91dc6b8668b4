// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/ScalarType.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace tamo::volume;

TEST(ScalarType, HasTheNameAndTheSizeOfItsNumbers) {
    for (ScalarTypeInfo const& info : kScalarTypes) {
        std::string const name(info.name);
        EXPECT_EQ(nameOf(info.type), name);
        visitScalarType(info.type, [&](auto const* null) {
            using T = std::remove_cv_t<std::remove_pointer_t<decltype(null)>>;
            EXPECT_EQ(bytesOf(info.type), static_cast<int>(sizeof(T))) << name;
            std::string const kind = std::is_floating_point_v<T> ? "float" : std::is_signed_v<T> ? "int" : "uint";
            EXPECT_EQ(name, kind + std::to_string(8 * sizeof(T)));
        });
    }
}

TEST(ScalarType, IsFoundByTheOrderOfTheTable) {
    for (std::size_t i = 0; i < kScalarTypes.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(kScalarTypes[i].type), i);
    }
}

} // namespace
