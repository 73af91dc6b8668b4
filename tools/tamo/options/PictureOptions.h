// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "OptionList.h"
#include "picture/PictureSize.h"
#include "picture/View.h"

#include <string>

namespace tamo::tool {

/// The options that say how large a picture is and from where it is seen.
class PictureOptions {
  public:
    /// Holds what the options are where they are not given, and what the view's help text says.
    struct Defaults {
        std::string size;
        std::string view;
        std::string viewHelp;
    };

    PictureOptions(OptionList const& options, Defaults const& defaults);

    /// Throws `UsageError` for a size that no picture can have.
    [[nodiscard]] picture::PictureSize readSize() const;
    /// Throws `UsageError` for values that are not angles.
    [[nodiscard]] picture::View readView() const;

  private:
    std::string _size;
    std::string _view;
};

} // namespace tamo::tool
