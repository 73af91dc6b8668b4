// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "QuietLibraries.h"

#include "Progress.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace tamo::tool {

namespace {

int redirectToNull(int descriptor) {
    int const saved = fcntl(descriptor, F_DUPFD_CLOEXEC, 3);
    int const null = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (null >= 0) {
        dup2(null, descriptor);
        close(null);
    }
    return saved;
}

void restore(int descriptor, int saved) {
    if (saved >= 0) {
        dup2(saved, descriptor);
        close(saved);
    }
}

} // namespace

QuietLibraries::QuietLibraries() {
    std::fflush(stdout);
    _standardOutput = redirectToNull(STDOUT_FILENO);
    _standardError = redirectToNull(STDERR_FILENO);
    Progress::setTerminal(_standardError);
}

QuietLibraries::~QuietLibraries() {
    std::fflush(stdout);
    restore(STDOUT_FILENO, _standardOutput);
    restore(STDERR_FILENO, _standardError);
    Progress::setTerminal(STDERR_FILENO);
}

} // namespace tamo::tool
