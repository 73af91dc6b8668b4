// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

namespace tamo::bench {

// Names are parts joined by '/'; table.py finds the figures by them.

/// Registers the scans: `what/pattern/side/layout/step`. Brains are left out where `brainFile` is empty.
void registerScans(std::string const& brainFile);
/// Registers `list/system`, the building of a list, for each system that the library serves.
void registerLists();
/// Registers `display/...`, the making and drawing of a display list of the brain.
void registerDisplayLists(std::string const& brainFile);

/// Registers `file/what/how`, the reading of volumes: by the library, and `plain`, the least that any reader has to do.
void registerReads(std::string const& brainFile);

} // namespace tamo::bench
