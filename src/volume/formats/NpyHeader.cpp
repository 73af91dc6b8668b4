// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NpyHeader.h"

#include "../Error.h"
#include "../bytes/ByteSource.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace tamo::volume {

namespace {

// Longer ones hold types of many fields.
constexpr std::uint64_t kMostHeaderBytes = 1 << 16;

// Reads the dictionary from its text, token by token. Each function returns whether the text goes on as it should.
class Dictionary {
  public:
    explicit Dictionary(std::string_view text) : _rest(text) {}

    bool read(NpyHeader& header) {
        if (!take('{')) {
            return false;
        }
        while (!take('}')) {
            if (!readItem(header)) {
                return false;
            }
            if (!take(',')) {
                return take('}') && isAtEnd() && hasAll();
            }
        }
        return isAtEnd() && hasAll();
    }

  private:
    bool readItem(NpyHeader& header) {
        std::string key;
        if (!readString(key) || !take(':')) {
            return false;
        }
        if (key == "descr") {
            return isFirst(_hasDescr) && readDescr(header.descr);
        }
        if (key == "fortran_order") {
            return isFirst(_hasOrder) && readTruth(header.isFortranOrder);
        }
        return key == "shape" && isFirst(_hasShape) && readShape(header.shape);
    }

    static bool isFirst(bool& isSeen) {
        bool const was = isSeen;
        isSeen = true;
        return !was;
    }

    [[nodiscard]] bool hasAll() const { return _hasDescr && _hasOrder && _hasShape; }

    bool readString(std::string& text) {
        char const quote = take('\'') ? '\'' : take('"') ? '"' : '\0';
        std::size_t const end = quote == '\0' ? std::string_view::npos : _rest.find(quote);
        if (end == std::string_view::npos) {
            return false;
        }
        text = _rest.substr(0, end);
        _rest.remove_prefix(end + 1);
        // An escape could stand for anything.
        return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~' && c != '\\'; });
    }

    // Leaves out the list of a type of several fields, up to the bracket that closes it.
    bool readDescr(std::string& descr) {
        if (!take('[')) {
            return readString(descr) && !descr.empty();
        }
        std::string ignored;
        for (int depth = 1; depth > 0;) {
            skipBlanks();
            if (_rest.empty()) {
                return false;
            }
            if (_rest[0] == '\'' || _rest[0] == '"') {
                if (!readString(ignored)) {
                    return false;
                }
                continue;
            }
            depth += _rest[0] == '[' ? 1 : _rest[0] == ']' ? -1 : 0;
            _rest.remove_prefix(1);
        }
        descr.clear();
        return true;
    }

    bool readTruth(bool& value) {
        skipBlanks();
        for (bool const candidate : {false, true}) {
            std::string_view const name = candidate ? "True" : "False";
            if (_rest.substr(0, name.size()) == name) {
                _rest.remove_prefix(name.size());
                value = candidate;
                return true;
            }
        }
        return false;
    }

    // Reads a tuple: (), (2,), (2, 3) or (2, 3,). Python 2 has put an L behind large numbers.
    bool readShape(std::vector<std::int64_t>& shape) {
        if (!take('(')) {
            return false;
        }
        while (!take(')')) {
            skipBlanks();
            std::int64_t side = 0;
            auto const result = std::from_chars(_rest.data(), _rest.data() + _rest.size(), side);
            if (result.ec != std::errc() || side < 0) {
                return false;
            }
            _rest.remove_prefix(static_cast<std::size_t>(result.ptr - _rest.data()));
            static_cast<void>(take('L'));
            shape.push_back(side);
            if (!take(',')) {
                return shape.size() > 1 && take(')');
            }
        }
        return true;
    }

    bool take(char c) {
        skipBlanks();
        bool const isThere = !_rest.empty() && _rest[0] == c;
        _rest.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    bool isAtEnd() {
        skipBlanks();
        return _rest.empty();
    }

    void skipBlanks() { _rest.remove_prefix(std::min(_rest.find_first_not_of(" \t\r\n"), _rest.size())); }

    std::string_view _rest;
    bool _hasDescr = false;
    bool _hasOrder = false;
    bool _hasShape = false;
};

} // namespace

NpyHeader readNpyHeader(std::filesystem::path const& path) {
    auto const source = openBytes(path, 0, Packing::None);
    std::array<unsigned char, 8> first{};
    if (!source->read(first.data(), first.size()) || std::string(first.begin(), first.begin() + 6) != "\x93NUMPY") {
        throw Error(path, "expected a NumPy file, which begins with \"\\x93NUMPY\"");
    }
    int const version = first[6];
    if (version < 1 || version > 3 || first[7] != 0) {
        throw Error(path, "expected the .npy version 1.0, 2.0 or 3.0, found " + std::to_string(version) + "." +
                              std::to_string(first[7]));
    }
    // The header's length, least significant byte first.
    std::array<unsigned char, 4> length{};
    std::size_t const lengthBytes = version == 1 ? 2 : 4;
    bool isRead = source->read(length.data(), lengthBytes);
    std::uint64_t bytes = 0;
    for (std::size_t i = 0; i < lengthBytes; ++i) {
        bytes |= std::uint64_t{length[i]} << 8 * i;
    }
    if (bytes > kMostHeaderBytes) {
        throw Error(path, "expected a NumPy header of at most " + std::to_string(kMostHeaderBytes) +
                              " bytes, as that of an array of numbers is, found " + std::to_string(bytes));
    }
    std::string text(bytes, '\0');
    isRead = isRead && source->read(reinterpret_cast<unsigned char*>(text.data()), bytes);
    NpyHeader header;
    if (!isRead || !Dictionary(text).read(header)) {
        throw Error(path,
                    "expected a NumPy header of descr, fortran_order and shape; the file is damaged or truncated");
    }
    header.start = first.size() + lengthBytes + bytes;
    return header;
}

} // namespace tamo::volume
