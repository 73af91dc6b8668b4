// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <filesystem>
#include <string>

/// Makes an empty folder for the running test and removes it at the end.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    [[nodiscard]] std::filesystem::path operator/(std::string const& name) const { return _path / name; }
    [[nodiscard]] std::filesystem::path const& path() const { return _path; }

  private:
    std::filesystem::path _path;
};
