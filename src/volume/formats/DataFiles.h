// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "HeaderText.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tamo::volume {

/// A name with one place for a number, as in "slice%03d.raw", and the numbers that take it, as in "1 120 1".
struct FilePattern {
    std::string name;
    /// The numbers that follow the name: first, last, step and what else the format puts there.
    std::vector<std::int64_t> numbers;
};

/// Takes a header's field apart: a name with a "%d", which may have a width, and up to `most` whole numbers behind it.
/// Nothing where it is something else, such as the name of one file.
std::optional<FilePattern> parsePattern(std::string const& field, std::size_t most);

/// Returns the name in which a number takes the place for it. Throws nothing; `parsePattern` made the pattern.
std::string nameWith(FilePattern const& pattern, std::int64_t number);

/// Returns how many numbers there are from `first` to `last`, `step` apart.
std::int64_t patternCount(std::int64_t first, std::int64_t last, std::int64_t step);

/// Returns `count` files in the folder of `header` whose numbers begin with `first` and are `step` apart. Throws
/// `Error` naming the first one that is missing, before memory is taken for more.
std::vector<std::filesystem::path> filesOfPattern(FilePattern const& pattern, std::filesystem::path const& header,
                                                  std::int64_t first, std::int64_t step, std::int64_t count);

/// Returns the files in the folder of `header` that its other lines name, one per line. Throws `Error` for one that is
/// named more than 100 times.
std::vector<std::filesystem::path> filesOfList(HeaderLines& lines, std::filesystem::path const& header);

/// Throws `Error` where a header names another number of files than it has to.
void requireCount(std::filesystem::path const& header, std::int64_t count, std::int64_t found);

/// Throws `Error` naming a file that is missing.
void requireFile(std::filesystem::path const& path, std::filesystem::path const& header);

} // namespace tamo::volume
