// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "QuietLibraries.h"

#include "Progress.h"

#include <vtkObjectFactory.h>
#include <vtkOutputWindow.h>
#include <vtkSmartPointer.h>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace tamo::tool {

namespace {

// Swallows VTK's messages and remembers that there was an error.
class SilentWindow : public vtkOutputWindow {
  public:
    static SilentWindow* New();
    void DisplayText(char const*) override {}
    void DisplayErrorText(char const*) override { hasError = true; }
    void DisplayWarningText(char const*) override {}
    void DisplayGenericWarningText(char const*) override {}
    void DisplayDebugText(char const*) override {}

    bool hasError = false;
};

vtkStandardNewMacro(SilentWindow);

SilentWindow& silentWindow() {
    static vtkSmartPointer<SilentWindow> const window = [] {
        auto made = vtkSmartPointer<SilentWindow>::New();
        vtkOutputWindow::SetInstance(made);
        return made;
    }();
    return *window;
}

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
    silentWindow().hasError = false;
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

bool QuietLibraries::hasVtkError() const { return silentWindow().hasError; }

} // namespace tamo::tool
