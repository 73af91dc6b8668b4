// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../letterCase.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamo::volume {

/// Reads the lines with which a file begins.
class HeaderLines {
  public:
    explicit HeaderLines(std::filesystem::path const& path) : _path(path) {}

    /// Returns the next line without its end, LF or CR LF, which the last one needs not have; nothing at the end of the
    /// file. Throws `Error` past 16 MiB: no header is as long.
    std::optional<std::string> next();
    /// Returns the byte behind the lines that were read, and their ends.
    [[nodiscard]] std::uint64_t position() const { return _position; }

  private:
    std::filesystem::path _path;
    std::string _text;
    std::uint64_t _position = 0;
    bool _isAtEnd = false;
};

/// Holds the fields of a header of text lines.
class HeaderText {
  public:
    explicit HeaderText(std::filesystem::path path) : _path(std::move(path)) {}

    [[nodiscard]] std::filesystem::path const& path() const { return _path; }
    void set(std::string const& name, std::string const& value) { _fields[name] = value; }
    [[nodiscard]] bool has(std::string const& name) const { return _fields.count(name) != 0; }
    /// Returns the first of some names that the header has, or an empty text.
    [[nodiscard]] std::string firstOf(std::vector<std::string> const& names) const;
    /// Returns a field's text, or `fallback` where the header has none.
    [[nodiscard]] std::string text(std::string const& name, std::string const& fallback) const;
    /// Returns a field's text. Throws `Error` where the header has none.
    [[nodiscard]] std::string require(std::string const& name) const;
    /// Returns the words of a field, none where the header has none; blanks, commas and brackets separate them.
    [[nodiscard]] std::vector<std::string> words(std::string const& name) const;

    /// Returns the `count` numbers of a field. Throws `Error` for another text.
    [[nodiscard]] std::vector<double> numbers(std::string const& name, std::size_t count) const;
    /// Likewise for numbers that are finite.
    [[nodiscard]] std::vector<double> finiteNumbers(std::string const& name, std::size_t count) const;
    /// Returns the `count` sides of a volume, each at least 1, whose voxels can be counted. Throws `Error` for another
    /// text.
    [[nodiscard]] std::vector<std::int64_t> sizes(std::string const& name, std::size_t count) const;
    /// Returns a whole number of at least `least`, or 0 where the header has no such field. Throws `Error` for another
    /// text.
    [[nodiscard]] std::int64_t whole(std::string const& name, std::int64_t least) const;

    /// Throws `Error` naming the file, the field, what it should be and what it is.
    [[noreturn]] void refuse(std::string const& name, std::string const& expected) const;

  private:
    std::filesystem::path _path;
    std::map<std::string, std::string> _fields;
};

/// Returns `text` without blanks at its ends.
std::string trimmed(std::string const& text);

/// Returns the words between blanks.
std::vector<std::string> wordsOf(std::string const& text);

} // namespace tamo::volume
