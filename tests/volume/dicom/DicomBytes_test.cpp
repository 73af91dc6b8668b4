// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomBytes.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"
#include "volume/support/gzipped.h"

#include <gtest/gtest.h>

#include <zlib.h>

#include <array>

namespace {

using tamo::volume::openDeflatedBytes;
using tamo::volume::openFileBytes;

// A deflate stream without header or check sum.
std::string deflated(std::string const& bytes) { return gzipped(bytes, -MAX_WBITS); }

TEST(DicomBytes, AreReadAtAnyPlaceButNotPastTheEnd) {
    TemporaryFolder const folder;
    writeFile(folder / "a", "0123456789");
    auto const bytes = openFileBytes(folder / "a");
    EXPECT_EQ(bytes->size(), 10U);
    std::array<unsigned char, 3> read{};
    for (std::uint64_t const at : {0U, 7U, 2U, 5U}) {
        EXPECT_TRUE(bytes->read(at, read.data(), 3));
        EXPECT_EQ(read[2], '0' + at + 2);
    }
    EXPECT_FALSE(bytes->read(8, read.data(), 3));
    EXPECT_FALSE(bytes->read(UINT64_MAX, read.data(), 3));
    EXPECT_TRUE(bytes->read(10, read.data(), 0));
}

TEST(DicomBytes, AreExpandedFromTheirStart) {
    TemporaryFolder const folder;
    std::string const many(300000, 'm');
    writeFile(folder / "a", "head" + deflated(many + "end"));
    auto const bytes = openDeflatedBytes(folder / "a", 4);
    EXPECT_EQ(bytes->size(), many.size() + 3);
    std::array<unsigned char, 3> read{};
    EXPECT_TRUE(bytes->read(many.size(), read.data(), 3));
    EXPECT_EQ(read[0], 'e');
    EXPECT_FALSE(bytes->read(many.size() + 1, read.data(), 3));
}

TEST(DicomBytes, AreRefusedWhereTheirStreamEndsEarlyOrIsDamaged) {
    TemporaryFolder const folder;
    std::string const packed = deflated("some text, some text and more of it");
    for (std::size_t bytes = 0; bytes < packed.size(); ++bytes) {
        writeFile(folder / "a", packed.substr(0, bytes));
        EXPECT_THROW(openDeflatedBytes(folder / "a", 0), tamo::volume::Error) << bytes;
    }
    writeFile(folder / "a", "\xFF\xFF\xFF\xFF");
    EXPECT_THROW(openDeflatedBytes(folder / "a", 0), tamo::volume::Error);
}

} // namespace
