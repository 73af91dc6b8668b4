// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "tools/support/ToolRun.h"
#include "tools/support/VolumeFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <fstream>

namespace {

std::string line(std::string const& output, std::string const& key) {
    auto const start = output.find(key);
    return start == std::string::npos ? "" : output.substr(start, output.find('\n', start) - start);
}

// The line on the surface that a render prints.
std::string surface(std::filesystem::path const& volume, std::vector<std::string> const& more = {}) {
    TemporaryFolder const folder;
    std::vector<std::string> arguments{"render", volume.string(), "-o",     (folder / "a.png").string(),
                                       "--min",  "2000",          "--size", "30x20"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    ToolRun const run = runTool(arguments);
    EXPECT_EQ(run.status, 0) << run.error;
    return line(run.output, "surface") + line(run.output, "foreground");
}

class Formats : public testing::TestWithParam<FileFormat> {};

TEST_P(Formats, TellTheVolumeTheyHold) {
    TemporaryFolder const folder;
    Samples const samples = makeSamples(19, 17, 11);
    GetParam().write(samples, folder / GetParam().fileName);
    ToolRun const run = runTool({"info", (folder / GetParam().fileName).string()});

    auto const [min, max] = std::minmax_element(samples.values.begin(), samples.values.end());
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.error, "");
    EXPECT_EQ(line(run.output, "dimensions"), "dimensions  19 x 17 x 11");
    EXPECT_EQ(line(run.output, "type"), GetParam().name == "PngFolder" ? "type        uint16" : "type        int16");
    EXPECT_EQ(line(run.output, "spacing"), GetParam().hasSpacing ? "spacing     1 x 2 x 3" : "spacing     1 x 1 x 1");
    EXPECT_EQ(line(run.output, "range"), "range       " + std::to_string(*min) + " .. " + std::to_string(*max));
    EXPECT_EQ(line(run.output, "bytes"), "bytes       " + std::to_string(2 * 19 * 17 * 11));
}

TEST_P(Formats, GiveTheSameSurface) {
    TemporaryFolder const folder;
    Samples const samples = makeSamples(19, 17, 11);
    GetParam().write(samples, folder / GetParam().fileName);
    writeBytes(folder / "bare", rawBytes(samples, /*isBigEndian=*/false));

    // A box without symmetry: a volume that is mirrored or turned has another surface in it.
    std::vector<std::string> const box{"--box", "1,2,3,12,9,7"};
    std::vector<std::string> bare{"--dims", "19,17,11", "--type", "int16"};
    bare.insert(bare.end(), box.begin(), box.end());
    std::string const expected = surface(folder / "bare", bare);
    EXPECT_NE(expected, "");
    EXPECT_EQ(surface(folder / GetParam().fileName, box), expected);
}

INSTANTIATE_TEST_SUITE_P(All, Formats, testing::ValuesIn(fileFormats()),
                         [](auto const& instance) { return instance.param.name; });

// Bytes of one value in a file of bare voxels.
template <typename T> std::string valueBytes(T value, bool isBigEndian) {
    std::string bytes(sizeof(T), '\0');
    std::memcpy(bytes.data(), &value, sizeof(T));
    if (isBigEndian) {
        std::reverse(bytes.begin(), bytes.end());
    }
    return bytes;
}

template <typename T> std::string rangeOfRaw(std::string const& type, T low, T high, bool isBigEndian) {
    TemporaryFolder const folder;
    std::string bytes = "head";
    for (int i = 0; i < 8; ++i) {
        bytes += valueBytes(i == 3 ? low : i == 6 ? high : T{1}, isBigEndian);
    }
    writeBytes(folder / "a.raw", bytes);
    std::vector<std::string> arguments{
        "info", (folder / "a.raw").string(), "--dims", "2,2,2", "--type", type, "--header", "4"};
    if (isBigEndian) {
        arguments.emplace_back("--big-endian");
    }
    ToolRun const run = runTool(arguments);
    EXPECT_EQ(line(run.output, "type"), "type        " + type) << run.error;
    return line(run.output, "range");
}

TEST(RawVolume, BeginsBehindAHeaderOfMoreThan2GiB) {
    TemporaryFolder const folder;
    // A file with a hole takes no room.
    std::ofstream(folder / "a.raw", std::ios::binary).seekp(3000000000) << "abcdefgh";
    ToolRun const run =
        runTool({"info", (folder / "a.raw").string(), "--dims", "2,2,2", "--type", "uint8", "--header", "3000000000"});
    EXPECT_EQ(line(run.output, "range"), "range       97 .. 104") << run.error;
}

TEST(RawVolume, HoldsEveryScalarTypeInEitherByteOrder) {
    for (bool const isBigEndian : {false, true}) {
        EXPECT_EQ(rangeOfRaw<std::uint8_t>("uint8", 0, 255, isBigEndian), "range       0 .. 255");
        EXPECT_EQ(rangeOfRaw<std::int8_t>("int8", -128, 127, isBigEndian), "range       -128 .. 127");
        EXPECT_EQ(rangeOfRaw<std::uint16_t>("uint16", 0, 65535, isBigEndian), "range       0 .. 65535");
        EXPECT_EQ(rangeOfRaw<std::int16_t>("int16", -32768, 32767, isBigEndian), "range       -32768 .. 32767");
        EXPECT_EQ(rangeOfRaw<std::uint32_t>("uint32", 0, 4294967295U, isBigEndian), "range       0 .. 4294967295");
        EXPECT_EQ(rangeOfRaw<std::int32_t>("int32", -2147483647, 2147483647, isBigEndian),
                  "range       -2147483647 .. 2147483647");
        EXPECT_EQ(rangeOfRaw<std::uint64_t>("uint64", 0, 1ULL << 40U, isBigEndian), "range       0 .. 1099511627776");
        EXPECT_EQ(rangeOfRaw<std::int64_t>("int64", -(1LL << 40), 5, isBigEndian), "range       -1099511627776 .. 5");
        EXPECT_EQ(rangeOfRaw<float>("float32", -0.5F, 2.25F, isBigEndian), "range       -0.5 .. 2.25");
        EXPECT_EQ(rangeOfRaw<double>("float64", -0.125, 1e6, isBigEndian), "range       -0.125 .. 1000000");
    }
}

TEST(HeaderText, TellsHowManyBytesOrLinesPrecedeTheVoxels) {
    TemporaryFolder const folder;
    std::string const nrrd = "NRRD0004\ndimension: 3\nencoding: raw\ntype: uchar\nsizes: 2 2 2\n";
    std::string const meta = "NDims = 3\nElementType = MET_UCHAR\nDimSize = 2 2 2\n";
    auto const expectRange = [&folder](std::string const& file, std::string const& text) {
        writeBytes(folder / file, text);
        ToolRun const run = runTool({"info", (folder / file).string()});
        EXPECT_EQ(line(run.output, "range"), "range       97 .. 104") << text << run.error;
    };
    expectRange("a.nrrd", nrrd + "\nabcdefgh");
    expectRange("a.nrrd", nrrd + "byte skip: 3\n\nxyzabcdefgh");
    expectRange("a.nrrd", nrrd + "byte skip: -1\n\nmany more before abcdefgh");
    expectRange("a.nrrd", nrrd + "line skip: 2\nbyte skip: 1\n\none\ntwo\nxabcdefgh");
    expectRange("a.mha", meta + "ElementDataFile = LOCAL\nabcdefgh");
    expectRange("a.mha", meta + "HeaderSize = -1\nElementDataFile = LOCAL\nmany more before abcdefgh");
    writeBytes(folder / "a.data", "xyzabcdefgh");
    expectRange("a.mhd", meta + "HeaderSize = 3\nElementDataFile = a.data\n");
    expectRange("a.mhd", meta + "HeaderSize = -1\nElementDataFile = a.data\n");
}

TEST(TextVolume, HoldsEveryNumberOfItsType) {
    TemporaryFolder const folder;
    std::vector<std::array<std::string, 3>> const cases{{"uchar", "0 255 +7", "0 .. 255"},
                                                        {"signed char", "-128 127 7", "-128 .. 127"},
                                                        {"ushort", "65535 0 7", "0 .. 65535"},
                                                        {"uint", "4294967295 0 7", "0 .. 4294967295"},
                                                        {"longlong", "-1099511627776 5 7", "-1099511627776 .. 7"},
                                                        {"float", "nan -0.5 1e-60", "-0.5 .. 5"},
                                                        {"float", "NaN -inf +2.5e1", "1 .. 25"},
                                                        {"double", "infinity 1e-400 -2", "-2 .. 5"}};
    for (auto const& [type, numbers, range] : cases) {
        writeBytes(folder / "a.nrrd", "NRRD0004\ndimension: 3\nencoding: ascii\ntype: " + type +
                                          "\nsizes: 2 2 2\n\n1 2 3 4 5\n" + numbers + "\n");
        ToolRun const run = runTool({"info", (folder / "a.nrrd").string()});
        EXPECT_EQ(line(run.output, "range"), "range       " + range) << type << " " << numbers << run.error;
    }
}

TEST(NiftiVolume, ScalesStoredValuesAsItsHeaderSays) {
    TemporaryFolder const folder;
    Samples const samples{{2, 2, 2}, {0, 1, 2, 3, 4, 5, 6, 7}};
    fileFormats().front().write(samples, folder / "a.nii");
    std::string bytes = readBytes(folder / "a.nii");
    constexpr std::size_t kSlope = 112;
    bytes.replace(kSlope, 8, valueBytes(-2.0F, false) + valueBytes(100.0F, false));
    writeBytes(folder / "a.nii", bytes);

    EXPECT_EQ(line(runTool({"info", (folder / "a.nii").string()}).output, "range"), "range       86 .. 100");
    ToolRun const run = runTool({"render", (folder / "a.nii").string(), "-o", (folder / "a.png").string(), "--min",
                                 "95", "--max", "98", "--size", "20x20"});
    EXPECT_EQ(line(run.output, "foreground"), "foreground  2 voxels") << run.error;
}

TEST(NiftiVolume, IgnoresAScalingThatIsNaN) {
    TemporaryFolder const folder;
    fileFormats().front().write(Samples{{2, 2, 2}, {0, 1, 2, 3, 4, 5, 6, 7}}, folder / "a.nii");
    std::string const bytes = readBytes(folder / "a.nii");
    constexpr std::size_t kSlope = 112;
    for (auto const& [slope, intercept] : {std::pair(std::nanf(""), 0.0F), {2.0F, std::nanf("")}, {0.0F, 5.0F}}) {
        writeBytes(folder / "a.nii",
                   std::string(bytes).replace(kSlope, 8, valueBytes(slope, false) + valueBytes(intercept, false)));
        ToolRun const run = runTool({"info", (folder / "a.nii").string()});
        EXPECT_EQ(line(run.output, "range"), "range       0 .. 7") << slope << " " << intercept;
        EXPECT_EQ(line(run.output, "scaling"), "");
    }
}

TEST(NiftiVolume, IsReadWhateverTheCaseOfItsNameAndItsCompression) {
    TemporaryFolder const folder;
    fileFormats().front().write(makeSamples(5, 4, 3), folder / "a.nii");
    std::string const bytes = readBytes(folder / "a.nii");
    for (std::string const name : {"A.NII", "a.nii.gz", "A.Nii.Gz"}) {
        writeBytes(folder / name, bytes);
        ToolRun const run = runTool({"info", (folder / name).string()});
        EXPECT_EQ(line(run.output, "dimensions"), "dimensions  5 x 4 x 3") << run.error;
    }
}

TEST(FloatVolume, TakesNaNForBackground) {
    TemporaryFolder const folder;
    std::string bytes;
    for (int i = 0; i < 8; ++i) {
        bytes += valueBytes(i == 0 ? std::nanf("") : static_cast<float>(i), false);
    }
    writeBytes(folder / "a.raw", bytes);
    EXPECT_EQ(
        line(runTool({"info", (folder / "a.raw").string(), "--dims", "2,2,2", "--type", "float32"}).output, "range"),
        "range       1 .. 7");
    ToolRun const run = runTool({"render", (folder / "a.raw").string(), "--dims", "2,2,2", "--type", "float32", "-o",
                                 (folder / "a.png").string(), "--min", "-100", "--size", "20x20"});
    EXPECT_EQ(line(run.output, "foreground"), "foreground  7 voxels") << run.error;
}

} // namespace
