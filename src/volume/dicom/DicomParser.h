// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "DicomDataset.h"

#include <string_view>

namespace tamo::volume {

/// Walks the elements of a dataset. Never reads past the end, nests no deeper and reads no more elements than fixed
/// limits allow, and allocates no more than the file holds.
class DicomParser {
  public:
    /// The path is named in errors. Both must outlive the parser.
    DicomParser(std::filesystem::path const& path, DicomBytes& bytes, TransferSyntax const& syntax)
        : _path(path), _bytes(bytes), _isImplicit(syntax.isImplicit), _isBigEndian(syntax.isBigEndian) {}

    /// Reads the elements of group 2 from byte `at` on; returns where they end.
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
