// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "Volume.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamo::tool {

/// Holds the fields of a header of text lines, and where in the file it ends.
class HeaderText {
  public:
    explicit HeaderText(std::filesystem::path path) : _path(std::move(path)) {}

    void set(std::string const& name, std::string const& value) { _fields[name] = value; }
    [[nodiscard]] bool has(std::string const& name) const { return _fields.count(name) != 0; }
    /// Returns a field's text, or `fallback` where the header has none.
    [[nodiscard]] std::string text(std::string const& name, std::string const& fallback) const;
    /// Returns a field's text. Throws `UserError` where the header has none.
    [[nodiscard]] std::string require(std::string const& name) const;
    /// Returns the `count` numbers of a field; blanks, commas and brackets separate them. Throws `UserError` for
    /// another text.
    [[nodiscard]] std::vector<double> numbers(std::string const& name, std::size_t count) const;

    /// Returns the three sides of a volume, each at least 1. Throws `UserError` for another text.
    [[nodiscard]] Size3 size(std::string const& name) const;
    /// Returns a whole number of at least `least`, or 0 where the header has no such field. Throws `UserError` for
    /// another text.
    [[nodiscard]] std::int64_t whole(std::string const& name, std::int64_t least) const;

    /// Throws `UserError` naming the file, the field, what it should be and what it is.
    [[noreturn]] void refuse(std::string const& name, std::string const& expected) const;

    /// Where voxels begin that stand in the same file.
    std::uint64_t end = 0;

  private:
    std::filesystem::path _path;
    std::map<std::string, std::string> _fields;
};

/// Returns `text` without blanks at its ends.
std::string trimmed(std::string const& text);

} // namespace tamo::tool
