// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tamo::tool {

/// Tells the parser of the command line which options a command has.
///
/// All that is said of options goes through here: the parser is a header that takes longer to compile than any file of
/// this program.
class OptionList {
  public:
    /// What is said of an option's value.
    enum class Value {
        Optional,
        Required,
        HasDefault
    };

    /// Adds to the options of `command`, which has to live as long as the program parses.
    explicit OptionList(CLI::App& command) : _command(command) {}

    /// Adds an option of one value, whose text the parser puts into `text`; a value that `HasDefault` stands there
    /// before, and the help shows it. A name without dashes is that of an argument; several have commas between them.
    void add(std::string const& names, std::string& text, std::string const& help, std::string const& valueName,
             Value value = Value::Optional) const;
    /// Adds an option without a value.
    void addFlag(std::string const& name, bool& isGiven, std::string const& help) const;
    /// Sets what the help of the command ends with.
    void setFooter(std::string const& text) const;

  private:
    CLI::App& _command;
};

} // namespace tamo::tool
