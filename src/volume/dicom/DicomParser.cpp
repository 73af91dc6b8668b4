// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomParser.h"

#include "../Error.h"
#include "DicomTags.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <tuple>

namespace tamo::volume {

namespace {

constexpr std::uint64_t kUndefined = 0xFFFFFFFF;
constexpr DicomTag kItem = 0xFFFEE000;
constexpr DicomTag kItemEnd = 0xFFFEE00D;
constexpr DicomTag kSequenceEnd = 0xFFFEE0DD;

// Types whose length takes four bytes, behind two that are unused (DICOM PS3.5, 7.1.2).
constexpr std::array<std::string_view, 13> kLongTypes{"OB", "OD", "OF", "OL", "OV", "OW", "SQ",
                                                      "SV", "UC", "UN", "UR", "UT", "UV"};
constexpr std::array<std::string_view, 21> kShortTypes{"AE", "AS", "AT", "CS", "DA", "DS", "DT", "FL", "FD", "IS", "LO",
                                                       "LT", "PN", "SH", "SL", "SS", "ST", "TM", "UI", "UL", "US"};

template <typename Types> std::string_view find(Types const& types, std::array<unsigned char, 2> const& letters) {
    for (std::string_view const type : types) {
        if (type[0] == static_cast<char>(letters[0]) && type[1] == static_cast<char>(letters[1])) {
            return type;
        }
    }
    return {};
}

// The type that an element has by the dictionary; empty for elements that no volume needs.
std::string_view wantedType(DicomTag tag) {
    auto const found = std::find_if(dicom::kElements.begin(), dicom::kElements.end(),
                                    [tag](dicom::Element const& element) { return element.tag == tag; });
    return found == dicom::kElements.end() ? std::string_view() : found->type;
}

std::string trimmed(std::string const& text) {
    std::string const blanks(" \0", 2);
    std::size_t const first = text.find_first_not_of(blanks);
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::size_t bytesOfNumber(std::string_view type) {
    if (type == "US" || type == "SS") {
        return 2;
    }
    return type == "UL" || type == "SL" || type == "FL" ? 4 : type == "FD" ? 8 : 0;
}

double numberOf(std::string_view type, std::uint64_t bits) {
    if (type == "FD") {
        double number = 0;
        std::memcpy(&number, &bits, sizeof(number));
        return number;
    }
    if (type == "FL") {
        auto const half = static_cast<std::uint32_t>(bits);
        float number = 0;
        std::memcpy(&number, &half, sizeof(number));
        return static_cast<double>(number);
    }
    if (type == "SS") {
        return static_cast<double>(static_cast<std::int16_t>(bits));
    }
    return type == "SL" ? static_cast<double>(static_cast<std::int32_t>(bits)) : static_cast<double>(bits);
}

} // namespace

void DicomParser::fail() const { throw Error(_path, "expected a complete DICOM file; it is damaged or truncated"); }

void DicomParser::read(std::uint64_t at, unsigned char* target, std::uint64_t bytes) const {
    if (!_bytes.read(at, target, bytes)) {
        fail();
    }
}

std::uint64_t DicomParser::number(std::uint64_t at, std::uint64_t bytes) const {
    std::array<unsigned char, 8> data{};
    read(at, data.data(), bytes);
    std::uint64_t number = 0;
    for (std::uint64_t i = 0; i < bytes; ++i) {
        number = number << 8U | data[_isBigEndian ? i : bytes - 1 - i];
    }
    return number;
}

DicomTag DicomParser::tagAt(std::uint64_t at) const {
    return static_cast<DicomTag>(number(at, 2) << 16U | number(at + 2, 2));
}

DicomParser::Head DicomParser::readHead(std::uint64_t at, std::uint64_t end) {
    // 100 per frame for 40000 frames. A stream that expands to a thousand times its length could hold them for minutes.
    constexpr std::uint64_t kMostElements = 1U << 22U;
    if (++_elements > kMostElements) {
        fail();
    }
    Head head;
    head.tag = tagAt(at);
    std::array<unsigned char, 2> letters{};
    read(at + 4, letters.data(), 2);
    if (_isImplicit || (head.tag >> 16U) == 0xFFFE) {
        head.length = number(at + 4, 4);
        head.valueAt = at + 8;
    } else if (head.type = find(kLongTypes, letters); !head.type.empty()) {
        head.length = number(at + 8, 4);
        head.valueAt = at + 12;
    } else {
        head.type = find(kShortTypes, letters);
        head.length = number(at + 6, 2);
        head.valueAt = at + 8;
        if (head.type.empty()) {
            fail();
        }
    }
    head.isUndefined = head.length == kUndefined && (_isImplicit || head.valueAt == at + 12 || head.tag == kItem);
    if (head.valueAt > end || (!head.isUndefined && head.length > end - head.valueAt)) {
        fail();
    }
    return head;
}

std::uint64_t DicomParser::parseMeta(std::uint64_t at, DicomDataset& target) {
    while (at < _bytes.size() && (tagAt(at) >> 16U) == 2) {
        at = parseElement(readHead(at, _bytes.size()), _bytes.size(), &target, 0);
    }
    return at;
}

void DicomParser::parseDataset(std::uint64_t at, DicomDataset& target, PixelData& pixels) {
    while (at < _bytes.size()) {
        Head const head = readHead(at, _bytes.size());
        if (head.tag == dicom::kPixels || head.tag == dicom::kFloatPixels || head.tag == dicom::kDoublePixels) {
            readPixels(head, pixels);
            return;
        }
        // Behind group 7FE0 nothing but padding may come; before it, no delimiter.
        if ((head.tag >> 16U) == 0xFFFE) {
            fail();
        }
        at = parseElement(head, _bytes.size(), &target, 0);
    }
}

// Reads one element, or passes over it where `target` is null or does not want it; returns where it ends.
std::uint64_t DicomParser::parseElement(Head const& head, std::uint64_t end, DicomDataset* target, int depth) {
    std::string_view const wanted = target != nullptr ? wantedType(head.tag) : std::string_view();
    bool const isSequence = head.isUndefined || head.type == "SQ" || wanted == "SQ";
    if (isSequence && (head.isUndefined || !wanted.empty())) {
        // A sequence of unknown type is written without types and little-endian, whatever the rest of the file is
        // (DICOM PS3.5, 6.2.2).
        auto const outside = std::make_pair(_isImplicit, _isBigEndian);
        if (head.type == "UN") {
            _isImplicit = true;
            _isBigEndian = false;
        }
        DicomValue value;
        std::uint64_t const next = parseSequence(head, end, wanted == "SQ" ? &value.items : nullptr, depth + 1);
        std::tie(_isImplicit, _isBigEndian) = outside;
        if (wanted == "SQ") {
            target->add(head.tag, std::move(value));
        }
        return next;
    }
    // Longer than any text or list of numbers that is of use here.
    constexpr std::uint64_t kMostBytes = 1U << 20U;
    if (!wanted.empty() && wanted != "SQ" && head.length <= kMostBytes) {
        target->add(head.tag, readValue(head, head.type.empty() || head.type == "UN" ? wanted : head.type));
    }
    return head.valueAt + head.length;
}

std::uint64_t DicomParser::parseItem(std::uint64_t at, std::uint64_t end, DicomDataset* target, int depth) {
    while (at < end) {
        Head const head = readHead(at, end);
        if (head.tag == kItemEnd) {
            return head.valueAt;
        }
        if ((head.tag >> 16U) == 0xFFFE) {
            fail();
        }
        at = parseElement(head, end, target, depth);
    }
    return at;
}

std::uint64_t DicomParser::parseSequence(Head const& head, std::uint64_t end, std::vector<DicomDataset>* items,
                                         int depth) {
    // Each level takes stack; honest files have at most about ten.
    constexpr int kMostLevels = 64;
    if (depth > kMostLevels) {
        fail();
    }
    std::uint64_t at = head.valueAt;
    std::uint64_t const last = head.isUndefined ? end : head.valueAt + head.length;
    while (at < last) {
        Head const item = readHead(at, last);
        if (item.tag == kSequenceEnd && head.isUndefined) {
            return item.valueAt;
        }
        if (item.tag != kItem) {
            fail();
        }
        DicomDataset content;
        bool const isWanted = items != nullptr;
        std::uint64_t const itemEnd = item.isUndefined ? last : item.valueAt + item.length;
        // An item of known length that nobody wants is passed over at once.
        at = isWanted || item.isUndefined ? parseItem(item.valueAt, itemEnd, isWanted ? &content : nullptr, depth)
                                          : itemEnd;
        if (isWanted) {
            items->push_back(std::move(content));
        }
    }
    if (head.isUndefined) {
        fail();
    }
    return at;
}

DicomValue DicomParser::readValue(Head const& head, std::string_view type) const {
    DicomValue value;
    std::size_t const size = bytesOfNumber(type);
    if (size > 0) {
        for (std::uint64_t i = 0; i + size <= head.length; i += size) {
            value.numbers.push_back(numberOf(type, number(head.valueAt + i, size)));
        }
        return value;
    }
    std::string bytes(head.length, '\0');
    read(head.valueAt, reinterpret_cast<unsigned char*>(bytes.data()), head.length);
    value.text = trimmed(bytes);
    return value;
}

void DicomParser::readPixels(Head const& head, PixelData& pixels) {
    pixels.kind = head.tag == dicom::kPixels        ? PixelData::Kind::Integer
                  : head.tag == dicom::kFloatPixels ? PixelData::Kind::Float
                                                    : PixelData::Kind::Double;
    pixels.isEncapsulated = head.isUndefined;
    pixels.isWords = head.type != "OB";
    pixels.at = head.valueAt;
    pixels.bytes = head.length;
    if (head.isUndefined) {
        readFragments(head.valueAt, pixels);
    }
}

void DicomParser::readFragments(std::uint64_t at, PixelData& pixels) {
    pixels.bytes = 0;
    for (bool isFirst = true; at < _bytes.size(); isFirst = false) {
        Head const item = readHead(at, _bytes.size());
        if (item.tag == kSequenceEnd) {
            return;
        }
        if (item.tag != kItem || item.isUndefined) {
            fail();
        }
        if (isFirst) {
            for (std::uint64_t i = 0; i + 4 <= item.length; i += 4) {
                pixels.offsets.push_back(static_cast<std::uint32_t>(number(item.valueAt + i, 4)));
            }
        } else {
            pixels.fragments.emplace_back(item.valueAt, item.length);
            pixels.bytes += item.length;
        }
        at = item.valueAt + item.length;
    }
    fail();
}

} // namespace tamo::volume
