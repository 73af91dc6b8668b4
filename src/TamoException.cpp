// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <tamo/TamoException.h>

#include <utility>

TamoException::TamoException(std::string message) : _message(std::move(message)) {}

TamoException::~TamoException() = default;

char const* TamoException::what() const noexcept { return _message.c_str(); }
