// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/dicom/DicomParser.h"

#include "support/files/TemporaryFolder.h"
#include "support/files/fileContent.h"
#include "volume/Error.h"
#include "volume/dicom/DicomTags.h"

#include <gtest/gtest.h>

namespace {

namespace dicom = tamo::volume::dicom;
using tamo::volume::DicomHeader;
using tamo::volume::readDicomHeader;

std::string tag(unsigned int group, unsigned int element) {
    return numberBytes(static_cast<std::uint16_t>(group)) + numberBytes(static_cast<std::uint16_t>(element));
}

// An element with types and lengths of two bytes.
std::string shortElement(unsigned int group, unsigned int element, std::string const& type, std::string const& value) {
    return tag(group, element) + type + numberBytes(static_cast<std::uint16_t>(value.size())) + value;
}

std::string sequence(unsigned int group, unsigned int element, std::uint32_t length) {
    return tag(group, element) + "SQ" + std::string(2, '\0') + numberBytes(length);
}

std::string item(std::uint32_t length) { return tag(0xFFFE, 0xE000) + numberBytes(length); }

constexpr std::uint32_t kOpen = 0xFFFFFFFF;

std::string fileOf(std::string const& dataset) {
    return std::string(128, '\0') + "DICM" + shortElement(2, 0x10, "UI", std::string("1.2.840.10008.1.2.1\0", 20)) +
           shortElement(8, 0x60, "CS", "MR") + dataset;
}

// Reads a file of this dataset; nothing where it is refused.
std::optional<DicomHeader> parsed(std::string const& dataset) {
    TemporaryFolder const folder;
    writeFile(folder / "a", fileOf(dataset));
    try {
        return readDicomHeader(folder / "a");
    } catch (tamo::volume::Error const&) {
        return std::nullopt;
    }
}

TEST(DicomParser, TakesSequencesOfKnownAndUnknownLength) {
    std::string const position = shortElement(0x20, 0x32, "DS", "1\\2\\3 ");
    std::string const itemEnd = item(0).replace(2, 2, "\x0D\xE0");
    std::string const end = item(0).replace(2, 2, "\xDD\xE0");
    auto const length = static_cast<std::uint32_t>(position.size());
    for (std::string const& dataset : {sequence(0x20, 0x9113, length + 8) + item(length) + position,
                                       sequence(0x20, 0x9113, length + 16) + item(kOpen) + position + itemEnd,
                                       sequence(0x20, 0x9113, kOpen) + item(length) + position + end,
                                       sequence(0x20, 0x9113, kOpen) + item(kOpen) + position + itemEnd + end}) {
        auto const header = parsed(dataset + shortElement(0x28, 0x10, "US", "\x05") + " ");
        EXPECT_FALSE(header.has_value());
        auto const whole = parsed(dataset + shortElement(0x28, 0x10, "US", std::string("\5\0", 2)));
        ASSERT_TRUE(whole.has_value());
        EXPECT_EQ(whole->dataset.whole(dicom::kRows), 5);
        ASSERT_EQ(whole->dataset.items(dicom::kPlanePositionSequence).size(), 1U);
        EXPECT_EQ(whole->dataset.items(dicom::kPlanePositionSequence)[0].text(dicom::kPosition), "1\\2\\3");
    }
}

TEST(DicomParser, RefusesEveryEndWithinAnElement) {
    std::string const dataset = shortElement(0x20, 0x32, "DS", "1\\2\\3 ");
    for (std::size_t bytes = 1; bytes < dataset.size(); ++bytes) {
        EXPECT_FALSE(parsed(dataset.substr(0, bytes)).has_value()) << bytes;
    }
    EXPECT_TRUE(parsed(dataset).has_value());
    EXPECT_FALSE(parsed(sequence(0x20, 0x9113, kOpen)).has_value());
}

TEST(DicomParser, RefusesLengthsPastTheEnd) {
    EXPECT_FALSE(parsed(tag(0x28, 0x10) + "US\xFF\xFF").has_value());
    EXPECT_FALSE(parsed(tag(0x7FE0, 0x10) + "OW" + std::string(2, '\0') + numberBytes(0x7FFFFFFF)).has_value());
    EXPECT_FALSE(parsed(sequence(0x20, 0x9113, 8) + item(100) + std::string(200, ' ')).has_value());
}

// Each level takes 20 bytes of the file, and would take hundreds of the stack.
TEST(DicomParser, RefusesNestingWithoutEnd) {
    std::string wanted;
    std::string unwanted;
    for (int i = 0; i < 200000; ++i) {
        wanted += sequence(0x20, 0x9113, kOpen) + item(kOpen);
        unwanted += sequence(0x08, 0x1115, kOpen) + item(kOpen);
    }
    EXPECT_FALSE(parsed(wanted).has_value());
    EXPECT_FALSE(parsed(unwanted).has_value());
}

// Empty values of one element, again and again: as many as a small stream expands to.
class Flood : public tamo::volume::DicomBytes {
  public:
    [[nodiscard]] std::uint64_t size() const override { return std::uint64_t{1} << 40U; }
    [[nodiscard]] bool read(std::uint64_t at, unsigned char* target, std::uint64_t bytes) override {
        ++reads;
        for (std::uint64_t i = 0; i < bytes; ++i) {
            target[i] = static_cast<unsigned char>("\x08\0\x60\0CS\0\0"[(at + i) % 8]);
        }
        return reads < 100'000'000;
    }

    int reads = 0;
};

TEST(DicomParser, RefusesElementsWithoutEnd) {
    Flood flood;
    std::filesystem::path const path = "a";
    tamo::volume::DicomParser parser(path, flood, {});
    tamo::volume::DicomDataset dataset;
    tamo::volume::PixelData pixels;
    EXPECT_THROW(parser.parseDataset(0, dataset, pixels), tamo::volume::Error);
    EXPECT_LT(flood.reads, 50'000'000);
}

TEST(DicomParser, PassesOverSequencesOfUnknownTypeWrittenWithoutTypes) {
    // Within an element of type UN and unknown length, elements state no types.
    std::string const content = tag(0x20, 0x32) + numberBytes(std::uint32_t{6}) + "1\\2\\3 ";
    std::string const unknown = tag(0x09, 0x1001) + "UN" + std::string(2, '\0') + numberBytes(kOpen) +
                                item(static_cast<std::uint32_t>(content.size())) + content +
                                item(0).replace(2, 2, "\xDD\xE0");
    auto const header = parsed(unknown + shortElement(0x28, 0x11, "US", std::string("\7\0", 2)));
    ASSERT_TRUE(header.has_value());
    EXPECT_EQ(header->dataset.whole(dicom::kColumns), 7);
    EXPECT_FALSE(header->dataset.has(dicom::kPosition));
}

// A program that does not know an element hands it on as UN, in whichever of the two lengths.
TEST(DicomParser, TakesWantedSequencesOfUnknownType) {
    std::string const content = tag(0x20, 0x32) + numberBytes(std::uint32_t{6}) + "1\\2\\3 ";
    std::string const items = item(static_cast<std::uint32_t>(content.size())) + content;
    std::string const unknown = tag(0x20, 0x9113) + "UN" + std::string(2, '\0');
    for (std::string const& dataset : {unknown + numberBytes(static_cast<std::uint32_t>(items.size())) + items,
                                       unknown + numberBytes(kOpen) + items + item(0).replace(2, 2, "\xDD\xE0")}) {
        auto const header = parsed(dataset + shortElement(0x28, 0x11, "US", std::string("\7\0", 2)));
        ASSERT_TRUE(header.has_value());
        EXPECT_EQ(header->dataset.whole(dicom::kColumns), 7);
        ASSERT_EQ(header->dataset.items(dicom::kPlanePositionSequence).size(), 1U);
        EXPECT_EQ(header->dataset.items(dicom::kPlanePositionSequence)[0].text(dicom::kPosition), "1\\2\\3");
    }
}

TEST(DicomParser, TakesElementsOfUnknownTypeAsLittleEndianInBigEndianFiles) {
    TemporaryFolder const folder;
    std::string const content = tag(0x20, 0x32) + numberBytes(std::uint32_t{6}) + "1\\2\\3 ";
    std::string const items = item(static_cast<std::uint32_t>(content.size())) + content;
    std::string const big("\x00\x20\x91\x13UN\0\0\xFF\xFF\xFF\xFF", 12);
    std::string const rows("\x00\x28\x00\x10US\x00\x02\x00\x05", 10);
    writeFile(folder / "a", std::string(128, '\0') + "DICM" + shortElement(2, 0x10, "UI", "1.2.840.10008.1.2.2 ") +
                                big + items + item(0).replace(2, 2, "\xDD\xE0") + rows);
    DicomHeader const header = readDicomHeader(folder / "a");
    EXPECT_EQ(header.dataset.items(dicom::kPlanePositionSequence).size(), 1U);
    EXPECT_EQ(header.dataset.whole(dicom::kRows), 5);
}

} // namespace
