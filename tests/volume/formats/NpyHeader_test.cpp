// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/formats/NpyHeader.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"
#include "volume/support/NpyBytes.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using tamo::volume::NpyHeader;

// Nothing for a header that is refused.
std::optional<NpyHeader> headerOf(std::string const& bytes) {
    TemporaryFolder const folder;
    writeFile(folder / "a.npy", bytes);
    try {
        return tamo::volume::readNpyHeader(folder / "a.npy");
    } catch (tamo::volume::Error const&) {
        return {};
    }
}

TEST(NpyHeader, IsReadAsNumPyWritesIt) {
    for (int const version : {1, 2, 3}) {
        std::string const bytes = npyHeader(version, npyDictionary("<i2", /*isFortranOrder=*/true, "(4, 3, 2)"));
        auto const header = headerOf(bytes + "values");
        ASSERT_TRUE(header);
        EXPECT_EQ(header->descr, "<i2");
        EXPECT_TRUE(header->isFortranOrder);
        EXPECT_EQ(header->shape, (std::vector<std::int64_t>{4, 3, 2}));
        EXPECT_EQ(header->start, bytes.size());
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            EXPECT_FALSE(headerOf(bytes.substr(0, length))) << length;
        }
    }
}

TEST(NpyHeader, MayHaveItsItemsInAnyOrderAndQuotes) {
    auto const header = headerOf(npyHeader(1, R"({"shape":(5L,),'descr' : '|u1', "fortran_order" :False})"));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->shape, (std::vector<std::int64_t>{5}));
    EXPECT_EQ(header->descr, "|u1");
    EXPECT_FALSE(header->isFortranOrder);
    ASSERT_TRUE(headerOf(npyHeader(1, npyDictionary("<i2", false, "()"))));
    EXPECT_TRUE(headerOf(npyHeader(1, npyDictionary("<i2", false, "()")))->shape.empty());
}

TEST(NpyHeader, NamesNoTypeForOneOfSeveralFields) {
    auto const header = headerOf(npyHeader(
        1, R"({'descr': [('a]', '<i4'), ('b', [('c', '<f4', (2,))])], 'fortran_order': False, 'shape': (3,)})"));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->descr, "");
    EXPECT_EQ(header->shape.size(), 1);
}

TEST(NpyHeader, IsRefusedForAllElse) {
    std::string const descr = "'descr': '<i2', ";
    std::string const order = "'fortran_order': False, ";
    std::string const shape = "'shape': (2, 2, 2), ";
    for (std::string const& dictionary :
         {std::string(), std::string("{}"), "{" + descr + order + "}", "{" + descr + shape + "}",
          "{" + order + shape + "}", "{" + descr + order + shape + descr + "}",
          "{" + descr + order + shape + "'more': 1}", "{" + descr + order + shape + "} + 1", descr + order + shape,
          "{" + descr + order + shape, "{'descr': '', " + order + shape + "}", "{'descr': 2, " + order + shape + "}",
          "{'descr': '<i\\x32', " + order + shape + "}", "{'descr': '<i2\n', " + order + shape + "}",
          "{'descr': [('a', '<i4'), " + order + shape + "}", "{" + descr + "'fortran_order': 0, " + shape + "}"}) {
        EXPECT_FALSE(headerOf(npyHeader(1, dictionary))) << dictionary;
    }
    ASSERT_TRUE(headerOf(npyHeader(1, "{" + descr + order + shape + "}")));
}

TEST(NpyHeader, IsRefusedWithAShapeThatIsNone) {
    for (char const* const shape : {"(2)", "(2, 2, -2)", "(2, 2, 2", "2, 2, 2", "[2, 2, 2]", "(2, , 2)", "(2 2)", "(,)",
                                    "(2.0, 2)", "(0x2, 2)", "(99999999999999999999, 2)", "(2, 'a')"}) {
        EXPECT_FALSE(headerOf(npyHeader(1, npyDictionary("<i2", /*isFortranOrder=*/false, shape)))) << shape;
    }
}

TEST(NpyHeader, IsRefusedForOtherVersionsAndLengths) {
    std::string const bytes = npyHeader(2, npyDictionary("<i2", /*isFortranOrder=*/false, "(2, 2, 2)"));
    for (auto const& [at, value] : std::initializer_list<std::pair<std::size_t, char>>{
             {0, 'x'}, {5, 'x'}, {6, '\0'}, {6, '\4'}, {7, '\1'}, {8, '\0'}, {10, '\1'}, {11, '\x7F'}}) {
        std::string changed = bytes;
        changed[at] = value;
        EXPECT_FALSE(headerOf(changed)) << at;
    }
    // A header that is as long as it says.
    EXPECT_FALSE(headerOf(npyHeader(2, npyDictionary("<i2", false, "(2, 2, 2)") + std::string(1 << 16, ' '))));
}

} // namespace
