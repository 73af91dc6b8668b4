// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tamo::volume {

/// Returns whether name `a` comes before `b` as a person counts: the numbers in them by value, so that slice 9 comes
/// before slice 10.
bool isBefore(std::string const& a, std::string const& b);

/// Throws `Error` where the names of slices, in the order of `isBefore`, show that one is missing, there twice or none
/// of the volume: two names that differ only in leading zeros, capitals or their ending; a name unlike the numbered
/// ones of more than half of all; two numbers of which one begins anew with the other; or, where names differ in one
/// number only, a step between neighbours that is not that of at least half of them.
void checkNumbering(std::vector<std::filesystem::path> const& slices);

} // namespace tamo::volume
