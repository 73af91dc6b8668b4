// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>

#include <exception>
#include <string>

/// Reports what a `Neighborhood` refuses: an index past the end of a list, a byte that is no link, or a link that is
/// connected already, as where two tables of an adjacency system share one. Copying may throw `std::bad_alloc`.
class TAMO_EXPORT TamoException : public std::exception {
  public:
    /// Keeps `message` as its own.
    explicit TamoException(std::string message);
    TamoException(TamoException const&) = default;
    TamoException& operator=(TamoException const&) = default;
    ~TamoException() override;

    /// Returns the message, up to its first null character; valid until this exception is assigned to or destroyed.
    /// Never throws.
    [[nodiscard]] char const* what() const noexcept override;

  private:
    std::string _message;
};
