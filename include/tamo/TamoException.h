// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>

#include <exception>
#include <string>

/// Reports a wrong index, link or adjacency system; `what()` returns the message text.
class TAMO_EXPORT TamoException : public std::exception {
  public:
    /// Keeps a copy of `message`.
    explicit TamoException(std::string message);
    TamoException(TamoException const&) = default;
    TamoException& operator=(TamoException const&) = default;
    ~TamoException() override;

    /// Returns the message; valid as long as this exception. Never throws.
    [[nodiscard]] char const* what() const noexcept override;

  private:
    std::string _message;
};
