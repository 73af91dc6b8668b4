// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tamo::tool {

/// A file that appears under its name only once it is complete.
///
/// Until then it has no name at all, so that nothing of it stays behind however the program ends; or, where the file
/// system has no such files, it stands beside its place under a name of its own, which the destructor and the signals
/// of `installInterruption` remove. The constructor makes it, so that a place that cannot be written shows before the
/// work. An older file of the name is replaced: the new one has its permissions; a symbolic link stays and leads to the
/// new file, and all hard links to it get the new content.
class OutputFile {
  public:
    /// Throws `UserError`, naming `--output`, for a place where no file can be made, and for an older file that may not
    /// be written.
    explicit OutputFile(std::filesystem::path path);
    ~OutputFile();
    OutputFile(OutputFile const&) = delete;
    OutputFile& operator=(OutputFile const&) = delete;

    /// Writes all of the file and gives it its name. Throws `UserError` where that fails; an older file is then as it
    /// was.
    void write(std::vector<unsigned char> const& bytes);

  private:
    void open();
    void setMode() const;
    void writeAll(int descriptor, std::vector<unsigned char> const& bytes) const;
    void nameFile();
    void overwrite(std::vector<unsigned char> const& bytes) const;
    [[noreturn]] void refuse(std::string const& expected) const;

    std::filesystem::path _path;
    /// Where the file belongs: what a symbolic link leads to.
    std::filesystem::path _target;
    /// The name beside the target, or empty for a file without one.
    std::string _unfinished;
    int _descriptor = -1;
    /// The permissions of the older file.
    mode_t _mode = 0;
    bool _hasOlder = false;
    bool _hasHardLinks = false;
};

} // namespace tamo::tool
