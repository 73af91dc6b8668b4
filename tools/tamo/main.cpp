// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "commands/CommandLine.h"
#include "terminal/Interruption.h"
#include "terminal/UsageError.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>

namespace {

// The command line alone shows what is wrong; nothing has been read or written.
constexpr int kUsageStatus = 2;

int fail(std::string message, int status = EXIT_FAILURE) {
    // One report is one line, whatever a library or a file name has put into it.
    std::replace(message.begin(), message.end(), '\n', ' ');
    std::cerr << "tamo: " << message << "\n";
    return status;
}

} // namespace

int main(int argumentCount, char** arguments) {
    tamo::tool::installInterruption();
    try {
        tamo::tool::runCommandLine(argumentCount, arguments);
    } catch (tamo::tool::UsageError const& error) {
        return fail(error.what(), kUsageStatus);
    } catch (std::exception const& error) {
        return fail(error.what());
    }
    std::cout.flush();
    return std::cout ? EXIT_SUCCESS : fail("standard output: expected to be writable");
}
