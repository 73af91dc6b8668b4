// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <stdexcept>

namespace tamo::tool {

/// Reports what the user can put right: one line that names the file or option and says what was expected.
class UserError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace tamo::tool
