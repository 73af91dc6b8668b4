// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo::tool {

/// Runs the command that the command line names, or prints help or the version where it asks for them. Throws
/// `UsageError` for a command line that cannot be followed, and whatever the command throws.
void runCommandLine(int argumentCount, char const* const* arguments);

} // namespace tamo::tool
