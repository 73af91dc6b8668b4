// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

/// Returns the dictionary of a `.npy` header as NumPy writes it.
std::string npyDictionary(std::string const& descr, bool isFortranOrder, std::string const& shape);

/// Returns a `.npy` header of the version 1, 2 or 3 around a dictionary, padded as NumPy does it.
std::string npyHeader(int version, std::string const& dictionary);
