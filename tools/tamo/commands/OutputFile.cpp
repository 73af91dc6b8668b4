// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "OutputFile.h"

#include "../terminal/Interruption.h"
#include "../terminal/UserError.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tamo::tool {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kAllModes = 07777;

// Follows symbolic links, the last of which may lead to a file that does not exist yet.
fs::path targetOf(fs::path path) {
    // More links than any system follows.
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
        fs::path const link = fs::read_symlink(path, error);
        path = link.is_absolute() ? link : path.parent_path() / link;
    }
    return path;
}

fs::path folderOf(fs::path const& path) { return path.has_parent_path() ? path.parent_path() : fs::path("."); }

// Makes an empty file of a name of its own, which an interruption removes; returns its descriptor, or -1.
int makeUnfinishedFile(std::string& pattern) {
    // Between the two calls an interruption would leave the file behind.
    HeldInterruption const held;
    int const descriptor = mkostemp(pattern.data(), O_CLOEXEC);
    if (descriptor >= 0) {
        setUnfinishedFile(pattern);
    }
    return descriptor;
}

} // namespace

OutputFile::OutputFile(fs::path path) : _path(std::move(path)), _target(targetOf(_path)) {
    struct stat older = {};
    _hasOlder = stat(_target.c_str(), &older) == 0;
    if (_hasOlder && !S_ISREG(older.st_mode)) {
        refuse("a file, found something else of that name");
    }
    _mode = older.st_mode & kAllModes;
    _hasHardLinks = _hasOlder && older.st_nlink > 1;
    // An administrator may write all files; one that nobody is meant to write is still no place for a picture.
    constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    if (_hasOlder && (access(_target.c_str(), W_OK) != 0 || (_mode & kAnyWrite) == 0)) {
        refuse("a file that may be written, found one that may not");
    }
    open();
    setMode();
}

OutputFile::~OutputFile() {
    if (_descriptor >= 0) {
        close(_descriptor);
    }
    if (!_unfinished.empty()) {
        unlink(_unfinished.c_str());
    }
    setUnfinishedFile("");
}

void OutputFile::open() {
    _descriptor = ::open(folderOf(_target).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    if (_descriptor < 0) {
        _unfinished = _target.string() + ".XXXXXX";
        _descriptor = makeUnfinishedFile(_unfinished);
    }
    if (_descriptor < 0) {
        _unfinished.clear();
        refuse("a folder in which a file can be written");
    }
}

void OutputFile::setMode() const {
    // Both ways let nobody else read; the result is as open as the older file, or as any other new one.
    mode_t const mask = umask(0);
    umask(mask);
    fchmod(_descriptor, _hasOlder ? _mode : static_cast<mode_t>(0666) & ~mask);
}

void OutputFile::write(std::vector<unsigned char> const& bytes) {
    writeAll(_descriptor, bytes);
    if (_hasHardLinks) {
        overwrite(bytes);
    } else {
        nameFile();
    }
}

void OutputFile::writeAll(int descriptor, std::vector<unsigned char> const& bytes) const {
    std::size_t written = 0;
    while (written < bytes.size()) {
        ssize_t const part = ::write(descriptor, bytes.data() + written, bytes.size() - written);
        if (part < 0 && errno == EINTR) {
            continue;
        }
        if (part <= 0) {
            refuse("room for " + std::to_string(bytes.size()) + " bytes");
        }
        written += static_cast<std::size_t>(part);
    }
    // Some file systems tell only now that there was no room.
    if (fsync(descriptor) != 0 && errno != EINVAL) {
        refuse("room for " + std::to_string(bytes.size()) + " bytes");
    }
}

// Gives the file its name in one step, whatever had it before.
void OutputFile::nameFile() {
    HeldInterruption const held;
    if (_unfinished.empty()) {
        // A link does not replace a file, as a change of name does: the file gets a name beside it first.
        std::string name = _target.string() + ".XXXXXX";
        int const placeholder = mkostemp(name.data(), O_CLOEXEC);
        if (placeholder >= 0) {
            close(placeholder);
            unlink(name.c_str());
        }
        std::string const self = "/proc/self/fd/" + std::to_string(_descriptor);
        if (placeholder < 0 || linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
            refuse("a folder in which a file can be written");
        }
        _unfinished = name;
    }
    if (std::rename(_unfinished.c_str(), _target.c_str()) != 0) {
        refuse("a file that can be replaced");
    }
    _unfinished.clear();
}

// Puts the content into the older file itself, which has other names as well. Room is taken first.
void OutputFile::overwrite(std::vector<unsigned char> const& bytes) const {
    HeldInterruption const held;
    int const older = ::open(_target.c_str(), O_WRONLY | O_CLOEXEC);
    if (older < 0 || posix_fallocate(older, 0, static_cast<off_t>(bytes.size())) != 0) {
        if (older >= 0) {
            close(older);
        }
        refuse("a file with room for " + std::to_string(bytes.size()) + " bytes");
    }
    writeAll(older, bytes);
    bool const isCut = ftruncate(older, static_cast<off_t>(bytes.size())) == 0;
    if (close(older) != 0 || !isCut) {
        refuse("a file that can be replaced");
    }
}

void OutputFile::refuse(std::string const& expected) const {
    throw UserError("--output " + _path.string() + ": expected " + expected);
}

} // namespace tamo::tool
