// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomDataset.h"

#include "DicomParser.h"
#include "DicomTags.h"

#include "../Error.h"
#include "../bytes/parseNumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

namespace tamo::volume {

namespace {

// Where the group 2 of a file begins, or a dataset without it.
struct Beginning {
    std::uint64_t at = 0;
    bool hasMeta = false;
};

Beginning findBeginning(DicomBytes& file) {
    std::array<unsigned char, 4> magic{};
    if (file.read(128, magic.data(), 4) && magic == std::array<unsigned char, 4>{'D', 'I', 'C', 'M'}) {
        return {132, true};
    }
    std::array<unsigned char, 2> group{};
    return {0, file.read(0, group.data(), 2) && group[0] == 2 && group[1] == 0};
}

// The first element tells whether types are stated, whatever the syntax says: some writers get that wrong.
bool isImplicit(DicomBytes& bytes, std::uint64_t at) {
    std::array<unsigned char, 8> element{};
    auto const isCapital = [](unsigned char c) { return c >= 'A' && c <= 'Z'; };
    return bytes.read(at, element.data(), 8) && !(isCapital(element[4]) && isCapital(element[5]));
}

} // namespace

std::string DicomDataset::text(DicomTag tag) const {
    auto const found = _values.find(tag);
    return found == _values.end() ? std::string() : found->second.text;
}

std::vector<double> DicomDataset::numbers(DicomTag tag) const {
    auto const found = _values.find(tag);
    if (found == _values.end()) {
        return {};
    }
    std::vector<double> numbers = found->second.numbers;
    std::istringstream parts(found->second.text);
    std::string part;
    while (std::getline(parts, part, '\\')) {
        // Blanks fill up each part; "1\\" is one number.
        std::size_t const first = std::min(part.find_first_not_of(' '), part.size());
        part = part.substr(first, part.find_last_not_of(' ') + 1 - first);
        if (!parseNumber(part, numbers.emplace_back())) {
            return {};
        }
    }
    for (double const number : numbers) {
        if (!std::isfinite(number)) {
            return {};
        }
    }
    return numbers;
}

std::optional<double> DicomDataset::number(DicomTag tag) const {
    std::vector<double> const all = numbers(tag);
    return all.empty() ? std::nullopt : std::optional<double>(all.front());
}

std::optional<std::int64_t> DicomDataset::whole(DicomTag tag) const {
    constexpr double kMost = 9007199254740992.0;
    std::optional<double> const found = number(tag);
    if (!found || std::abs(*found) > kMost || std::floor(*found) != *found) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(*found);
}

std::vector<DicomDataset> const& DicomDataset::items(DicomTag tag) const {
    static std::vector<DicomDataset> const kNone;
    auto const found = _values.find(tag);
    return found == _values.end() ? kNone : found->second.items;
}

DicomHeader readDicomHeader(std::filesystem::path const& path) {
    DicomHeader header;
    std::unique_ptr<DicomBytes> bytes = openFileBytes(path);
    Beginning const beginning = findBeginning(*bytes);
    header.datasetAt = beginning.at;
    std::string uid = "1.2.840.10008.1.2";
    if (beginning.hasMeta) {
        DicomParser meta(path, *bytes, transferSyntax("1.2.840.10008.1.2.1"));
        header.datasetAt = meta.parseMeta(beginning.at, header.meta);
        // Without one the standard's default counts; the first element shows the rest.
        uid = header.meta.has(dicom::kTransferSyntax) ? header.meta.text(dicom::kTransferSyntax) : uid;
    }
    header.syntax = transferSyntax(uid);
    std::uint64_t start = header.datasetAt;
    if (header.syntax.encoding == FrameEncoding::Deflated) {
        bytes = openDeflatedBytes(path, start);
        start = 0;
    }
    if (!header.syntax.isBigEndian) {
        header.syntax.isImplicit = isImplicit(*bytes, start);
    }
    DicomParser(path, *bytes, header.syntax).parseDataset(start, header.dataset, header.pixels);
    return header;
}

std::unique_ptr<DicomBytes> openPixelBytes(std::filesystem::path const& path, FrameEncoding encoding,
                                           std::uint64_t datasetAt) {
    return encoding == FrameEncoding::Deflated ? openDeflatedBytes(path, datasetAt) : openFileBytes(path);
}

} // namespace tamo::volume
