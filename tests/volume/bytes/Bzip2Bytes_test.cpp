// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/Bzip2Bytes.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/packed.h"

#include <gtest/gtest.h>

namespace {

std::string expanded(std::filesystem::path const& path, std::size_t skipped, std::size_t bytes, bool& isWhole) {
    tamo::volume::Bzip2Bytes source(path, 0);
    std::string text(bytes, '\0');
    isWhole =
        source.skip(skipped) && source.read(reinterpret_cast<unsigned char*>(text.data()), bytes) && source.finish();
    return text;
}

TEST(Bzip2Bytes, ExpandSeveralStreamsOneBehindAnotherWhereverTheyMeet) {
    TemporaryFolder const folder;
    std::string const second = noise(5000);
    bool isMeeting = false;
    // Among the packed lengths are those that end about the reader's buffer of 65536 bytes.
    for (std::size_t length = 64500; length < 65400; length += 7) {
        std::string const first = noise(length);
        std::string const packed = bzipped(first);
        isMeeting = isMeeting || (packed.size() > 65532 && packed.size() < 65540);
        writeFile(folder / "a.bz2", packed + bzipped(second));
        bool isWhole = false;
        ASSERT_EQ(expanded(folder / "a.bz2", 10, length + 4990, isWhole), first.substr(10) + second) << length;
        ASSERT_TRUE(isWhole) << length;
    }
    EXPECT_TRUE(isMeeting);
}

TEST(Bzip2Bytes, MayBeFollowedByAnythingElse) {
    TemporaryFolder const folder;
    writeFile(folder / "a", bzipped("volume") + "BZ");
    bool isWhole = false;
    EXPECT_EQ(expanded(folder / "a", 0, 6, isWhole), "volume");
    EXPECT_TRUE(isWhole);
}

TEST(Bzip2Bytes, AreIncompleteWhereverTheyEnd) {
    TemporaryFolder const folder;
    std::string const packed = bzipped(noise(1000));
    for (std::size_t length = 0; length < packed.size(); length += length + 5 < packed.size() ? 5 : 1) {
        writeFile(folder / "a", packed.substr(0, length));
        bool isWhole = true;
        expanded(folder / "a", 0, 1000, isWhole);
        EXPECT_FALSE(isWhole) << length;
    }
}

TEST(Bzip2Bytes, AreDamagedWhereABitIsWrong) {
    TemporaryFolder const folder;
    std::string const packed = bzipped(noise(1000));
    for (std::size_t at = 0; at < packed.size(); at += 13) {
        std::string changed = packed;
        changed[at] = static_cast<char>(changed[at] ^ 4);
        writeFile(folder / "a", changed);
        bool isWhole = true;
        expanded(folder / "a", 0, 1000, isWhole);
        EXPECT_FALSE(isWhole) << at;
    }
}

TEST(Bzip2Bytes, EndWhereTheyDo) {
    TemporaryFolder const folder;
    writeFile(folder / "a", bzipped(noise(1000)));
    bool isWhole = true;
    expanded(folder / "a", 0, 1001, isWhole);
    EXPECT_FALSE(isWhole);
}

} // namespace
