// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "CommandLine.h"

#include "../options/VolumeOptions.h"
#include "../terminal/UsageError.h"
#include "../terminal/UserError.h"
#include "AtlasCommand.h"
#include "InfoCommand.h"
#include "RenderCommand.h"

#include <CLI/CLI.hpp>

#include <array>
#include <new>
#include <string>
#include <vector>

namespace tamo::tool {

namespace {

constexpr char const* kExamples = "\nExample:\n"
                                  "  tamo info brain.nii.gz\n"
                                  "  tamo render brain.nii.gz -o brain.png --min 90\n"
                                  "\nSee also: tamo info --help, tamo render --help, tamo atlas --help";

// Refuses empty values of all options of the commands: what a script has left unset does not stand for the default.
void refuseEmptyValues(CLI::App& app) {
    for (CLI::App* const command : app.get_subcommands(nullptr)) {
        for (CLI::Option* const option : command->get_options()) {
            option->check([](std::string const& text) { return text.empty() ? "expected a value, found none" : ""; });
        }
    }
}

// Returns how to ask for help on a command, or on all where the first word names none.
std::string helpOf(CLI::App const& app, std::string const& word) {
    auto const commands = app.get_subcommands([&word](CLI::App const* command) { return command->get_name() == word; });
    return "see tamo " + (commands.empty() ? "" : word + " ") + "--help";
}

// Refuses `--option=` with nothing behind it, for which the parser would take the next word.
void refuseEmptyAssignments(CLI::App const& app, int argumentCount, char const* const* arguments) {
    for (int i = 1; i < argumentCount; ++i) {
        std::string const word = arguments[i];
        bool const isAssignment = word.size() > 3 && word.compare(0, 2, "--") == 0 &&
                                  word.find_first_not_of("abcdefghijklmnopqrstuvwxyz-") == word.size() - 1;
        if (isAssignment && word.back() == '=') {
            throw UsageError(word + ": expected a value right behind it, found none; " + helpOf(app, arguments[1]));
        }
    }
}

// Says in one line what is wrong with the arguments.
std::string messageOf(CLI::ParseError const& error) {
    std::string const text = error.what();
    // The parser counts arguments here; all options of this program take one value, once.
    return error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ArgumentMismatch)
               ? text.substr(0, text.find(':')) + ": expected once, with one value"
               : text;
}

// Parses the command line; returns whether there is a command to run, and prints what else is asked for.
bool parse(CLI::App& app, int argumentCount, char const* const* arguments) {
    try {
        app.parse(argumentCount, arguments);
    } catch (CLI::Success const& asked) {
        app.exit(asked);
        return false;
    } catch (CLI::ParseError const& error) {
        std::string const firstWord = argumentCount > 1 ? arguments[1] : "";
        std::vector<std::string> const unknown = app.remaining(/*recurse=*/true);
        if (app.get_subcommands().empty()) {
            throw UsageError((unknown.empty() ? "" : unknown.front() + ": ") +
                             "expected a command, info, render or atlas; " + helpOf(app, firstWord));
        }
        // What else is missing may be no more than misspelt.
        throw UsageError((unknown.empty() ? messageOf(error) : "expected no " + CLI::detail::join(unknown, " ")) +
                         "; " + helpOf(app, firstWord));
    }
    return true;
}

void runCommand(Command const& command) {
    try {
        command.run();
    } catch (std::bad_alloc const&) {
        throw UserError(command.memoryMessage());
    }
}

} // namespace

void runCommandLine(int argumentCount, char const* const* arguments) {
    CLI::App app("Shows volumes and draws the surfaces of their foreground.\n" + volumeFormatsHelp(), "tamo");
    app.set_version_flag("--version", "tamo " TAMO_VERSION);
    app.footer(kExamples);
    app.require_subcommand(1);
    InfoCommand const info(app);
    RenderCommand const render(app);
    AtlasCommand const atlas(app);
    refuseEmptyValues(app);
    refuseEmptyAssignments(app, argumentCount, arguments);
    if (!parse(app, argumentCount, arguments)) {
        return;
    }
    for (Command const* const command : std::array<Command const*, 3>{&info, &render, &atlas}) {
        if (command->isAsked()) {
            runCommand(*command);
        }
    }
}

} // namespace tamo::tool
