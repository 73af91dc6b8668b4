// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/GzipBytes.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/packed.h"

#include <gtest/gtest.h>

#include <zlib.h>

namespace {

std::string gzipped(std::string const& bytes, int windowBits) {
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    std::string packed(deflateBound(&stream, bytes.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

std::string expanded(std::filesystem::path const& path, std::size_t skipped, std::size_t bytes, bool& isWhole) {
    tamo::volume::GzipBytes source(path, 0);
    std::string text(bytes, '\0');
    isWhole =
        source.skip(skipped) && source.read(reinterpret_cast<unsigned char*>(text.data()), bytes) && source.finish();
    return text;
}

constexpr int kGzip = MAX_WBITS + 16;

TEST(GzipBytes, ExpandsSeveralStreamsOneBehindAnotherWhereverTheyMeet) {
    TemporaryFolder const folder;
    std::string const second = noise(5000);
    // Among these lengths are those at which the first stream ends with the reader's buffer, and a byte before.
    for (std::size_t length = 65400; length < 65560; ++length) {
        std::string const first = noise(length);
        writeFile(folder / "a.gz", gzipped(first, kGzip) + gzipped(second, kGzip));
        bool isWhole = false;
        ASSERT_EQ(expanded(folder / "a.gz", 10, length + 4990, isWhole), first.substr(10) + second) << length;
        ASSERT_TRUE(isWhole) << length;
    }
}

TEST(GzipBytes, ExpandsZlibStreamsLikewise) {
    TemporaryFolder const folder;
    std::string const bytes = noise(100000);
    writeFile(folder / "a", gzipped(bytes, MAX_WBITS));
    bool isWhole = false;
    EXPECT_EQ(expanded(folder / "a", 0, bytes.size(), isWhole), bytes);
    EXPECT_TRUE(isWhole);
}

TEST(GzipBytes, AreIncompleteWithoutTheirCheckSum) {
    TemporaryFolder const folder;
    std::string packed = gzipped(noise(1000), kGzip);
    bool isWhole = true;
    writeFile(folder / "a", packed.substr(0, packed.size() - 1));
    expanded(folder / "a", 0, 1000, isWhole);
    EXPECT_FALSE(isWhole);
    packed[packed.size() - 6] = static_cast<char>(packed[packed.size() - 6] ^ 1);
    writeFile(folder / "a", packed);
    expanded(folder / "a", 0, 1000, isWhole);
    EXPECT_FALSE(isWhole);
}

} // namespace
