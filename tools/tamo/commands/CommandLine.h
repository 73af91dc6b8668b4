// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../volume/VolumeReader.h"
#include "AtlasCommand.h"
#include "RenderCommand.h"

#include <variant>

namespace tamo::tool {

struct InfoOptions {
    VolumeSource source;
};

/// Says what the command line asks for; nothing where it asked for help or the version, which are printed then.
using Request = std::variant<std::monostate, InfoOptions, RenderOptions, AtlasOptions>;

/// Reads the command line. Throws `UserError` for one that cannot be followed.
Request parseCommandLine(int argumentCount, char const* const* arguments);

} // namespace tamo::tool
