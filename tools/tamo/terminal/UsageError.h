// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "UserError.h"

namespace tamo::tool {

/// Reports what the command line alone shows to be wrong, before any file is touched: one line that names the option
/// and says what was expected.
class UsageError : public UserError {
  public:
    using UserError::UserError;
};

} // namespace tamo::tool
