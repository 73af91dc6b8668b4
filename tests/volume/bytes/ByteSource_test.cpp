// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/bytes/ByteSource.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/gzipped.h"
#include "volume/support/packed.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::Packing;

TEST(ByteSource, GivesTheBytesOfEveryPacking) {
    TemporaryFolder const folder;
    for (auto const& [packing, text] : {std::pair(Packing::None, std::string("abc")),
                                        {Packing::Gzip, zlibbed("abc")},
                                        {Packing::Bzip2, bzipped("abc")},
                                        {Packing::Hex, "616263"}}) {
        writeFile(folder / "a", "head" + text);
        auto const source = tamo::volume::openBytes(folder / "a", 4, packing);
        std::string bytes(2, '\0');
        EXPECT_TRUE(source->skip(1) && source->read(reinterpret_cast<unsigned char*>(bytes.data()), 2));
        EXPECT_EQ(bytes, "bc");
        EXPECT_TRUE(source->finish());
        EXPECT_FALSE(source->read(reinterpret_cast<unsigned char*>(bytes.data()), 1));
    }
}

TEST(ByteSource, HoldsNoMoreThanItsPackingAllows) {
    // Nothing packs better than zeros.
    std::string const zeros(std::size_t{1} << 27U, '\0');
    EXPECT_LE(zeros.size(), mostUnpackedBytes(Packing::Gzip, zlibbed(zeros).size()));
    EXPECT_LE(zeros.size(), mostUnpackedBytes(Packing::Bzip2, bzipped(zeros).size()));
    EXPECT_EQ(mostUnpackedBytes(Packing::None, 7), 7);
    EXPECT_EQ(mostUnpackedBytes(Packing::Hex, 7), 3);
    for (Packing const packing : {Packing::None, Packing::Gzip, Packing::Bzip2}) {
        EXPECT_EQ(mostUnpackedBytes(packing, UINT64_MAX), UINT64_MAX);
    }
}

TEST(ByteSource, IsPackedWhereItsFirstBytesSaySo) {
    TemporaryFolder const folder;
    writeFile(folder / "plain.gz", "text");
    writeFile(folder / "packed", gzipped("text"));
    writeFile(folder / "empty.gz", "");
    EXPECT_EQ(tamo::volume::packingOf(folder / "plain.gz"), Packing::None);
    EXPECT_EQ(tamo::volume::packingOf(folder / "empty.gz"), Packing::None);
    EXPECT_EQ(tamo::volume::packingOf(folder / "packed"), Packing::Gzip);
}

} // namespace
