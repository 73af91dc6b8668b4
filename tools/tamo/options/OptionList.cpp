// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "OptionList.h"

#include <CLI/CLI.hpp>

namespace tamo::tool {

void OptionList::add(std::string const& names, std::string& text, std::string const& help, std::string const& valueName,
                     Value value) const {
    CLI::Option* const option = _command.add_option(names, text, help)->type_name(valueName);
    option->required(value == Value::Required);
    if (value == Value::HasDefault) {
        option->capture_default_str();
    }
}

void OptionList::addFlag(std::string const& name, bool& isGiven, std::string const& help) const {
    _command.add_flag(name, isGiven, help);
}

void OptionList::setFooter(std::string const& text) const { _command.footer(text); }

} // namespace tamo::tool
