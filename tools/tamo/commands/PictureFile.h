// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "picture/Picture.h"

#include <filesystem>

namespace tamo::tool {

/// A PNG file that appears under its name only once it is complete.
///
/// Until then it stands beside it under a name of its own, made by the constructor so that a place that cannot be
/// written shows before the work; the destructor and an interruption remove it.
class PictureFile {
  public:
    /// Throws `UserError` for a place where no file can be made.
    explicit PictureFile(std::filesystem::path path);
    ~PictureFile();
    PictureFile(PictureFile const&) = delete;
    PictureFile& operator=(PictureFile const&) = delete;

    /// Writes the picture and gives the file its name. Throws `UserError` where that fails.
    void write(picture::Picture const& picture);

  private:
    std::filesystem::path _path;
    std::string _unfinished;
};

} // namespace tamo::tool
