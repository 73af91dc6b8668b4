// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/FileBytes.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

using tamo::volume::FileBytes;

std::string readText(FileBytes& source, std::size_t bytes) {
    std::string text(bytes, '\0');
    bool const isRead = source.read(reinterpret_cast<unsigned char*>(text.data()), bytes);
    return isRead ? text : "missing";
}

TEST(FileBytes, AreThoseOfTheFileInTheirOrder) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "0123456789");
    FileBytes source(folder / "a", 2);
    EXPECT_EQ(readText(source, 3), "234");
    EXPECT_TRUE(source.skip(2));
    EXPECT_EQ(readText(source, 3), "789");
    EXPECT_EQ(readText(source, 1), "missing");
    EXPECT_TRUE(source.finish());
}

TEST(FileBytes, AreMissingBehindTheEnd) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "0123456789");
    for (std::uint64_t const start :
         {std::uint64_t{10}, std::uint64_t{1} << 40U, std::uint64_t{INT64_MAX}, UINT64_MAX}) {
        FileBytes source(folder / "a", start);
        EXPECT_EQ(readText(source, 1), "missing") << start;
        static_cast<void>(source.skip(UINT64_MAX));
        EXPECT_EQ(readText(source, 1), "missing") << start;
    }
}

TEST(FileBytes, AreMissingWhereThereIsNoFile) {
    TemporaryFolder const folder;
    FileBytes nothing(folder / "a", 0);
    EXPECT_EQ(readText(nothing, 1), "missing");
    FileBytes directory(folder.path(), 0);
    EXPECT_EQ(readText(directory, 1), "missing");
}

TEST(FileBytes, LieBehind4GiBAsWell) {
    TemporaryFolder const folder;
    // A file with a hole takes no room.
    std::ofstream(folder / "a", std::ios::binary).seekp(5000000000) << "abc";
    FileBytes source(folder / "a", 3000000000);
    EXPECT_TRUE(source.skip(2000000001));
    EXPECT_EQ(readText(source, 2), "bc");
}

} // namespace
