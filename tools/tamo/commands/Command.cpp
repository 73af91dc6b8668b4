// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Command.h"

#include <CLI/CLI.hpp>

namespace tamo::tool {

Command::Command(CLI::App& program, std::string const& name, std::string const& purpose)
    : _app(program.add_subcommand(name, purpose)) {}

bool Command::isAsked() const { return _app->parsed(); }

} // namespace tamo::tool
