// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ToolRun.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <pty.h>
#include <sstream>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

std::string content(std::filesystem::path const& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

void redirect(std::filesystem::path const& path, int descriptor) {
    int const file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(file, descriptor);
    close(file);
}

// Runs the program; calls `disturb` with its process once it is started. Standard error goes to the descriptor
// `terminal` where there is one; `ignored` is a signal that the program is started to ignore.
template <typename Disturb>
ToolRun runProgram(std::vector<std::string> const& arguments, Disturb&& disturb, int terminal = -1, int ignored = 0) {
    TemporaryFolder const folder;
    std::vector<char*> pointers{const_cast<char*>(TAMO_PROGRAM)};
    for (std::string const& argument : arguments) {
        pointers.push_back(const_cast<char*>(argument.c_str()));
    }
    pointers.push_back(nullptr);

    pid_t const child = fork();
    if (child == 0) {
        redirect(folder / "output", STDOUT_FILENO);
        if (terminal < 0) {
            redirect(folder / "error", STDERR_FILENO);
        } else {
            dup2(terminal, STDERR_FILENO);
        }
        // What the tests were started to ignore, in the background of a script, is not theirs.
        for (int const number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
            signal(number, number == ignored ? SIG_IGN : SIG_DFL);
        }
        // Signals that leave a core file leave none here.
        rlimit const none{0, 0};
        setrlimit(RLIMIT_CORE, &none);
        execv(pointers[0], pointers.data());
        _exit(127);
    }
    disturb(child);
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), content(folder / "output"),
            content(folder / "error")};
}

// Returns whether standard error holds one line of the program that holds `name`.
bool isOneLine(ToolRun const& run, std::string const& name) {
    return std::count(run.error.begin(), run.error.end(), '\n') == 1 && run.error.back() == '\n' &&
           run.error.compare(0, 6, "tamo: ") == 0 && run.error.find(name) != std::string::npos;
}

} // namespace

ToolRun runTool(std::vector<std::string> const& arguments) {
    return runProgram(arguments, [](pid_t) {});
}

ToolRun interruptTool(std::vector<std::string> const& arguments, int signal, std::function<bool()> const& isTime,
                      bool isIgnored) {
    auto const interrupt = [signal, &isTime](pid_t child) {
        auto const end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (!isTime() && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        // What was seen may be half done.
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        kill(child, signal);
    };
    return runProgram(arguments, interrupt, /*terminal=*/-1, isIgnored ? signal : 0);
}

ToolRun runToolOnTerminal(std::vector<std::string> const& arguments, std::string const& interruptAt) {
    int reader = -1;
    int terminal = -1;
    if (openpty(&reader, &terminal, nullptr, nullptr, nullptr) != 0) {
        throw std::runtime_error("no terminal");
    }
    fcntl(reader, F_SETFD, FD_CLOEXEC);
    fcntl(terminal, F_SETFD, FD_CLOEXEC);
    std::string shown;
    auto const watch = [&](pid_t child) {
        // With the last descriptor of the terminal's other side closed, the reading ends as the program does.
        close(terminal);
        std::array<char, 4096> piece{};
        bool isInterrupted = interruptAt.empty();
        for (ssize_t bytes = 0; (bytes = read(reader, piece.data(), piece.size())) > 0;) {
            shown.append(piece.data(), static_cast<std::size_t>(bytes));
            if (!isInterrupted && shown.find(interruptAt) != std::string::npos) {
                kill(child, SIGINT);
                isInterrupted = true;
            }
        }
        close(reader);
    };
    ToolRun run = runProgram(arguments, watch, terminal);
    run.error = shown;
    return run;
}

bool isInputRefusal(ToolRun const& run, std::string const& name) { return run.status == 1 && isOneLine(run, name); }

bool isUsageRefusal(ToolRun const& run, std::string const& name) { return run.status == 2 && isOneLine(run, name); }
