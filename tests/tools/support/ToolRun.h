// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "support/files/TemporaryFolder.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// What a run of the program left behind.
struct ToolRun {
    /// The exit status, or 128 and the number of the signal that ended the program.
    int status;
    std::string output;
    std::string error;
};

/// Runs `tamo` with the given arguments, its standard output and standard error going to files, and waits for it.
ToolRun runTool(std::vector<std::string> const& arguments);

/// Runs it likewise, but sends `signal` as soon as `isTime` holds, or after 30 seconds. The program is started with the
/// signal ignored where `isIgnored`, as nohup starts it.
ToolRun interruptTool(std::vector<std::string> const& arguments, int signal, std::function<bool()> const& isTime,
                      bool isIgnored = false);

/// Runs it likewise, its standard error being a terminal; what that showed is the error. Sends the signal of Ctrl-C
/// once the terminal shows `interruptAt`, unless that is empty.
ToolRun runToolOnTerminal(std::vector<std::string> const& arguments, std::string const& interruptAt = "");

/// Returns whether a run ended as input should that is found bad: status 1 and one line on standard error that holds
/// `name`.
bool isInputRefusal(ToolRun const& run, std::string const& name);

/// Returns whether a run ended likewise, but with status 2: the command line alone was wrong.
bool isUsageRefusal(ToolRun const& run, std::string const& name);
