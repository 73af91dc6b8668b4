// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/PackedBytes.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/bytes/HexBytes.h"

#include <gtest/gtest.h>

namespace {

// The bytes 0, 1, 2, ... of a file of pairs of digits.
constexpr std::size_t kBytes = 300000;

void writeCounted(std::filesystem::path const& path) {
    std::string text;
    for (std::size_t i = 0; i < kBytes; ++i) {
        text += "0123456789abcdef"[i / 16 % 16];
        text += "0123456789abcdef"[i % 16];
    }
    writeFile(path, text);
}

TEST(PackedBytes, AreTheSameInReadsOfAllLengths) {
    TemporaryFolder const folder;
    writeCounted(folder / "a");
    // About the length of the buffer, and short of it.
    for (std::size_t const length : {1000U, 65535U, 65536U, 65537U, 100000U}) {
        tamo::volume::HexBytes source(folder / "a", 0);
        std::size_t at = 0;
        while (at + 7 + length <= kBytes) {
            std::vector<unsigned char> bytes(length);
            ASSERT_TRUE(source.skip(7) && source.read(bytes.data(), length));
            at += 7;
            for (unsigned char const byte : bytes) {
                ASSERT_EQ(byte, at++ % 256) << length;
            }
        }
        EXPECT_TRUE(source.finish());
    }
}

TEST(PackedBytes, AreMissingBehindTheEndInReadsOfAllLengths) {
    TemporaryFolder const folder;
    writeCounted(folder / "a");
    std::vector<unsigned char> bytes(kBytes);
    for (std::size_t const length : {2U, 65537U}) {
        tamo::volume::HexBytes source(folder / "a", 0);
        EXPECT_TRUE(source.skip(kBytes - length + 1));
        EXPECT_FALSE(source.read(bytes.data(), length));
        tamo::volume::HexBytes other(folder / "a", 0);
        EXPECT_FALSE(other.skip(kBytes + 1));
    }
}

} // namespace
