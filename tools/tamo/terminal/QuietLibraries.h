// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo::tool {

/// Keeps off the terminal, while it lives, what is printed below the program: by the scan, which has a line of its own
/// for want of memory, and by OpenGL drivers. Only one may exist at a time.
class QuietLibraries {
  public:
    QuietLibraries();
    ~QuietLibraries();
    QuietLibraries(QuietLibraries const&) = delete;
    QuietLibraries& operator=(QuietLibraries const&) = delete;

  private:
    int _standardOutput;
    int _standardError;
};

} // namespace tamo::tool
