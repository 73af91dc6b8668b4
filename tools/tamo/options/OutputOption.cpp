// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "OutputOption.h"

#include "../terminal/UsageError.h"

namespace tamo::tool {

OutputOption::OutputOption(OptionList const& options) {
    options.add("-o,--output", _text, "The picture to write", "PICTURE.png", OptionList::Value::Required);
}

std::filesystem::path OutputOption::read() const {
    std::filesystem::path path = _text;
    if (path.extension() != ".png") {
        throw UsageError("--output " + _text + ": expected a file name that ends in .png");
    }
    return path;
}

} // namespace tamo::tool
