// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../options/OptionList.h"

#include <string>

namespace tamo::tool {

/// A subcommand of the program. It states its options when it is made; once the command line is parsed, `run` reads
/// and follows them.
class Command {
  public:
    virtual ~Command() = default;
    Command(Command const&) = delete;
    Command& operator=(Command const&) = delete;

    /// Returns whether the command line names this command.
    [[nodiscard]] bool isAsked() const;
    /// Throws `UsageError` for a value that its option does not take, before it touches a file, and `UserError` for
    /// what is found later.
    virtual void run() const = 0;
    /// Returns what to say in one line where `run` throws `std::bad_alloc`.
    [[nodiscard]] virtual std::string memoryMessage() const = 0;

  protected:
    Command(CLI::App& program, std::string const& name, std::string const& purpose);

    /// Returns what the command's options are added to.
    [[nodiscard]] OptionList options() const { return OptionList(*_app); }

  private:
    CLI::App* _app;
};

} // namespace tamo::tool
