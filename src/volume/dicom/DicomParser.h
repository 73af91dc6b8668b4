// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "DicomDataset.h"

#include <string_view>

namespace tamo::volume {

/// Walks the elements of a dataset, as DICOM PS3.5 encodes them. Never reads past the end, nests no deeper and reads
/// no more elements than fixed limits allow, and allocates in proportion to what the file holds.
///
/// Our own, although DCMTK decodes the pixels: its parser recurses as deep as a file nests, so that 10 000 sequences
/// one in another, a file of 160 kB, overflow the stack and end the program (DCMTK 3.6.7, found by trial).
///
/// Sequences and items may be of known or unknown length, and elements of an odd one, which some writers leave
/// unpadded. Lengths of groups say nothing that is needed. Refused: an element, an item or a sequence that reaches
/// beyond what holds it, delimiters without a sequence, and types that the standard does not name.
class DicomParser {
  public:
    /// The path is named in errors. Both must outlive the parser.
    DicomParser(std::filesystem::path const& path, DicomBytes& bytes, TransferSyntax const& syntax)
        : _path(path), _bytes(bytes), _isImplicit(syntax.isImplicit), _isBigEndian(syntax.isBigEndian) {}

    /// Reads the elements of group 2 from byte `at` on; returns where they end. Throws `Error` for a damaged file, as
    /// `parseDataset` does.
    std::uint64_t parseMeta(std::uint64_t at, DicomDataset& target);
    /// Reads up to the pixels, or to the end where there are none.
    void parseDataset(std::uint64_t at, DicomDataset& target, PixelData& pixels);

  private:
    struct Head {
        DicomTag tag = 0;
        std::string_view type;
        std::uint64_t length = 0;
        bool isUndefined = false;
        std::uint64_t valueAt = 0;
    };

    [[noreturn]] void fail() const;
    void read(std::uint64_t at, unsigned char* target, std::uint64_t bytes) const;
    [[nodiscard]] std::uint64_t number(std::uint64_t at, std::uint64_t bytes) const;
    [[nodiscard]] DicomTag tagAt(std::uint64_t at) const;
    [[nodiscard]] Head readHead(std::uint64_t at, std::uint64_t end);
    std::uint64_t parseElement(Head const& head, std::uint64_t end, DicomDataset* target, int depth);
    std::uint64_t parseItem(std::uint64_t at, std::uint64_t end, DicomDataset* target, int depth);
    std::uint64_t parseSequence(Head const& head, std::uint64_t end, std::vector<DicomDataset>* items, int depth);
    [[nodiscard]] DicomValue readValue(Head const& head, std::string_view type) const;
    void readPixels(Head const& head, PixelData& pixels);
    void readFragments(std::uint64_t at, PixelData& pixels);

    std::filesystem::path const& _path;
    DicomBytes& _bytes;
    bool _isImplicit;
    bool _isBigEndian;
    std::uint64_t _elements = 0;
};

} // namespace tamo::volume
