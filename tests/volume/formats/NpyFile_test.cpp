// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/support/NpyBytes.h"
#include "volume/support/readWhole.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using tamo::volume::ScalarType;
using tamo::volume::Volume;
using tamo::volume::VolumeSource;

std::string npyFile(std::string const& descr, bool isFortranOrder, std::string const& shape,
                    std::string const& values) {
    return npyHeader(1, npyDictionary(descr, isFortranOrder, shape)) + values;
}

TEST(NpyFile, HoldsTheNumbersOfEachType) {
    TemporaryFolder const folder;
    struct Type {
        char const* descr;
        ScalarType type;
        std::string two;
    };
    for (Type const& type : {Type{"|b1", ScalarType::UInt8, "\2"},
                             {"|u1", ScalarType::UInt8, "\2"},
                             {"|i1", ScalarType::Int8, "\2"},
                             {">u2", ScalarType::UInt16, numberBytes(std::uint16_t{2}, true)},
                             {"=i2", ScalarType::Int16, numberBytes(std::int16_t{2})},
                             {"<u4", ScalarType::UInt32, numberBytes(std::uint32_t{2})},
                             {">i4", ScalarType::Int32, numberBytes(std::int32_t{2}, true)},
                             {"<u8", ScalarType::UInt64, numberBytes(std::uint64_t{2})},
                             {">i8", ScalarType::Int64, numberBytes(std::int64_t{2}, true)},
                             {">f4", ScalarType::Float32, numberBytes(2.0F, true)},
                             {"<f8", ScalarType::Float64, numberBytes(2.0)},
                             {">f2", ScalarType::Float32, std::string("\x40\0", 2)}}) {
        std::string const values(7 * type.two.size(), '\0');
        writeFile(folder / "a.npy", npyFile(type.descr, /*isFortranOrder=*/false, "(2, 2, 2)", values + type.two));
        Volume const volume = readWhole(folder / "a.npy");
        EXPECT_EQ(volume.header.type, type.type) << type.descr;
        EXPECT_EQ(valueAt(volume, 1, 1, 1), 2) << type.descr;
        EXPECT_EQ(valueAt(volume, 0, 1, 1), 0) << type.descr;
    }
}

TEST(NpyFile, HoldsEveryHalf) {
    TemporaryFolder const folder;
    std::string values;
    for (std::uint32_t bits = 0; bits < 65536; ++bits) {
        values += numberBytes(static_cast<std::uint16_t>(bits));
    }
    writeFile(folder / "a.npy", npyFile("<f2", /*isFortranOrder=*/false, "(16, 64, 64)", values));
    Volume const volume = readWhole(folder / "a.npy");
    for (int bits = 0; bits < 65536; ++bits) {
        int const exponent = bits / 1024 % 32;
        double const fraction = bits % 1024 / 1024.0;
        double const wanted =
            (bits < 32768 ? 1 : -1) * (exponent == 0    ? fraction * std::pow(2, -14)
                                       : exponent == 31 ? HUGE_VAL
                                                        : (1 + fraction) * std::pow(2, exponent - 15));
        double const found = valueAt(volume, bits % 64, bits / 64 % 64, bits / 4096);
        if (exponent == 31 && fraction > 0) {
            EXPECT_TRUE(std::isnan(found)) << bits;
        } else {
            EXPECT_EQ(found, wanted) << bits;
        }
    }
}

TEST(NpyFile, RefusesTypesThatAreNoNumber) {
    TemporaryFolder const folder;
    for (char const* const descr :
         {"<c8", "|O", "|S3", "<U1", "|V2", "<M8[s]", "<f16", "<i3", "i", "<", "u16", "<<i2"}) {
        writeFile(folder / "a.npy", npyFile(descr, /*isFortranOrder=*/false, "(2, 2, 2)", std::string(128, 'x')));
        EXPECT_NE(refusalOf(folder / "a.npy").find("numbers, found the type"), std::string::npos) << descr;
    }
}

TEST(NpyFile, HasTheLastAxisAsXInEitherOrder) {
    TemporaryFolder const folder;
    // The value is 9 x + 3 y + z, or the other way round.
    std::string values;
    for (char i = 0; i < 27; ++i) {
        values += i;
    }
    for (bool const isFortranOrder : {false, true}) {
        writeFile(folder / "a.npy", npyFile("|u1", isFortranOrder, "(3, 3, 3)", values));
        EXPECT_EQ(valueAt(readWhole(folder / "a.npy"), 2, 1, 0), isFortranOrder ? 21 : 5);
        EXPECT_EQ(valueAt(readWhole(folder / "a.npy"), 0, 1, 2), isFortranOrder ? 5 : 21);
    }
}

TEST(NpyFile, HasTheFirstOfFourAxesAsFrame) {
    TemporaryFolder const folder;
    std::string values;
    for (char i = 0; i < 48; ++i) {
        values += i;
    }
    VolumeSource source;
    source.path = folder / "a.npy";
    for (bool const isFortranOrder : {false, true}) {
        source.frame.reset();
        writeFile(source.path, npyFile("|u1", isFortranOrder, "(2, 2, 3, 4)", values));
        EXPECT_NE(refusalOf(source).find("2 frames"), std::string::npos);
        source.frame = 1;
        Volume const volume = readWhole(source);
        ASSERT_EQ(volume.size(), (tamo::volume::Size3{4, 3, 2}));
        for (int i = 0; i < 24; ++i) {
            int const x = i % 4;
            int const y = i / 4 % 3;
            int const z = i / 12;
            EXPECT_EQ(valueAt(volume, x, y, z), isFortranOrder ? 1 + 2 * z + 4 * y + 12 * x : 24 + i);
        }
    }
}

TEST(NpyFile, EndsWithItsArray) {
    TemporaryFolder const folder;
    for (std::size_t const bytes : {0U, 15U, 17U}) {
        writeFile(folder / "a.npy", npyFile("<i2", /*isFortranOrder=*/false, "(2, 2, 2)", std::string(bytes, 'x')));
        EXPECT_NE(refusalOf(folder / "a.npy"), "") << bytes;
    }
}

TEST(NpyFile, HasThreeAxesOrFour) {
    TemporaryFolder const folder;
    for (char const* const shape :
         {"()", "(16,)", "(4, 4)", "(1, 1, 2, 2, 4)", "(0, 2, 2, 2)", "(2, 2, 0)",
          "(4611686018427387904, 4611686018427387904, 4)", "(4611686018427387904, 2, 2, 2)"}) {
        writeFile(folder / "a.npy", npyFile("|u1", /*isFortranOrder=*/false, shape, std::string(16, 'x')));
        EXPECT_NE(refusalOf(folder / "a.npy"), "") << shape;
    }
}

} // namespace
