// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo::tool {

/// Keeps what libraries print off the terminal while it lives, and knows whether VTK reported an error.
///
/// VTK's readers report errors as messages only and hand out what they have got; the libraries below them print on
/// standard output and standard error. Only one may exist at a time.
class QuietLibraries {
  public:
    QuietLibraries();
    ~QuietLibraries();
    QuietLibraries(QuietLibraries const&) = delete;
    QuietLibraries& operator=(QuietLibraries const&) = delete;

    /// Returns whether VTK reported an error since construction.
    [[nodiscard]] bool hasVtkError() const;

  private:
    int _standardOutput;
    int _standardError;
};

} // namespace tamo::tool
