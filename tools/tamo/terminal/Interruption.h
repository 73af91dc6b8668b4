// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <csignal>
#include <string>

namespace tamo::tool {

/// Lets every signal that ends a program, SIGKILL apart, remove the file of `setUnfinishedFile` first, whatever library
/// runs. Those by which people and systems stop a program (Ctrl-C, Ctrl-\, the end of a terminal or a session) say so
/// in one line on standard error. The program dies of the signal itself. A signal that the caller of the program
/// ignores, as nohup does, stays ignored.
void installInterruption();

/// Names the file to remove on an interruption; an empty name for none. Paths of 4096 bytes and more are ignored.
void setUnfinishedFile(std::string const& path);

/// Holds all signals back while it lives; they are handled at its end. For the thread that makes it, so it belongs
/// where no library has started others yet, and around moments only.
class HeldInterruption {
  public:
    HeldInterruption();
    ~HeldInterruption();
    HeldInterruption(HeldInterruption const&) = delete;
    HeldInterruption& operator=(HeldInterruption const&) = delete;

  private:
    sigset_t _before;
};

} // namespace tamo::tool
