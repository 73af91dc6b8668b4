// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VtkText.h"

#include "../Error.h"
#include "../bytes/parseNumber.h"
#include "../quoted.h"

#include <algorithm>
#include <cmath>

namespace tamo::volume {

namespace {

constexpr std::size_t kBufferBytes = 1 << 16;
constexpr std::size_t kLongest = 1024;

bool isBlank(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

} // namespace

VtkText::VtkText(std::filesystem::path const& path)
    : _path(path), _file(path, 0), _bytesLeft(std::filesystem::file_size(path)), _buffer(kBufferBytes) {}

std::string VtkText::word() {
    std::string text;
    if (!skipBlanks()) {
        return text;
    }
    while ((_at < _end || fill()) && !isBlank(_buffer[_at])) {
        if (text.size() < kLongest) {
            text += static_cast<char>(_buffer[_at]);
        }
        next();
    }
    return text;
}

std::string VtkText::line() {
    std::string text;
    bool isAtEnd = false;
    while (!isAtEnd && (_at < _end || fill())) {
        isAtEnd = _buffer[_at] == '\n';
        if (!isAtEnd && text.size() < kLongest) {
            text += static_cast<char>(_buffer[_at]);
        }
        next();
    }
    if (!text.empty() && text.back() == '\r') {
        text.pop_back();
    }
    return text;
}

std::int64_t VtkText::whole(std::int64_t least) {
    std::string const text = word();
    std::int64_t value = 0;
    if (!parseNumber(text, value) || value < least) {
        refuse("a whole number of at least " + std::to_string(least), text);
    }
    return value;
}

double VtkText::number() {
    std::string const text = word();
    double value = 0;
    if (!parseNumber(text, value) || !std::isfinite(value)) {
        refuse("a number", text);
    }
    return value;
}

void VtkText::refuse(std::string const& expected, std::string const& found) const {
    throw Error(_path, "expected " + expected + ", found " + (found.empty() ? "the end of the file" : quoted(found)));
}

bool VtkText::skipWords(std::uint64_t count) {
    for (; count > 0; --count) {
        if (!skipBlanks()) {
            return false;
        }
        while ((_at < _end || fill()) && !isBlank(_buffer[_at])) {
            next();
        }
    }
    return true;
}

bool VtkText::skipBytes(std::uint64_t count) {
    std::uint64_t const buffered = std::min<std::uint64_t>(count, _end - _at);
    _at += buffered;
    std::uint64_t const rest = count - buffered;
    if (rest > _bytesLeft || !_file.skip(rest)) {
        return false;
    }
    _bytesLeft -= rest;
    _position += count;
    return true;
}

bool VtkText::fill() {
    _end = static_cast<std::size_t>(_file.readSome(_buffer.data(), std::min<std::uint64_t>(kBufferBytes, _bytesLeft)));
    _bytesLeft -= _end;
    _at = 0;
    return _end > 0;
}

// Returns whether there is a byte behind the blanks.
bool VtkText::skipBlanks() {
    while (_at < _end || fill()) {
        if (!isBlank(_buffer[_at])) {
            return true;
        }
        next();
    }
    return false;
}

} // namespace tamo::volume
