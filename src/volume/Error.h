// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace tamo::volume {

/// Reports that a file cannot be read as the volume that was asked for, in one line: the file, then what was expected,
/// what was found and what to do.
class Error : public std::runtime_error {
  public:
    Error(std::filesystem::path path, std::string reason)
        : std::runtime_error(path.string() + ": " + reason), _path(std::move(path)), _reason(std::move(reason)) {}

    /// Returns the file or folder.
    [[nodiscard]] std::filesystem::path const& path() const { return _path; }
    /// Returns the line without the file, as "expected ..., found ...; ...".
    [[nodiscard]] std::string const& reason() const { return _reason; }

  private:
    std::filesystem::path _path;
    std::string _reason;
};

} // namespace tamo::volume
