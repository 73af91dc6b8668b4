// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <csignal>
#include <string>

namespace tamo::tool {

/// Lets Ctrl-C (and the signals that end a terminal or a session) stop the program at once, whatever library runs, with
/// one line on standard error; the file of `setUnfinishedFile` is removed first. A signal that the caller of the
/// program ignores, as nohup does, stays ignored.
void installInterruption();

/// Names the file to remove on an interruption; an empty name for none. Paths of 4096 bytes and more are ignored.
void setUnfinishedFile(std::string const& path);

/// Holds the signals of `installInterruption` back while it lives; they are handled at its end. For the thread that
/// makes it, so it belongs where no library has started others yet, and around moments only.
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
