// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../bytes/FileBytes.h"
#include "../letterCase.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tamo::volume {

/// Reads the words and lines of a file from its beginning on; numbers as bytes may stand between them.
class VtkText {
  public:
    explicit VtkText(std::filesystem::path const& path);

    /// Returns where the next byte stands.
    [[nodiscard]] std::uint64_t position() const { return _position; }
    /// Returns the next word between blanks or line ends, without those behind it: empty at the end of the file. Longer
    /// words than a header has are cut.
    std::string word();
    /// Returns the rest of the line, and stands behind its end; long ones are cut.
    std::string line();
    /// Returns the next word in small letters.
    std::string keyword() { return lowerCase(word()); }
    /// Returns the next word as a whole number of at least `least`, or as a finite number. Throws `Error` for others.
    std::int64_t whole(std::int64_t least);
    double number();
    /// Throws `Error` that quotes what was found in its place, as far as it can be shown.
    [[noreturn]] void refuse(std::string const& expected, std::string const& found) const;
    /// Leaves out words, or bytes; returns false where there are not so many.
    [[nodiscard]] bool skipWords(std::uint64_t count);
    [[nodiscard]] bool skipBytes(std::uint64_t count);

  private:
    [[nodiscard]] bool fill();
    bool skipBlanks();
    void next() {
        ++_at;
        ++_position;
    }

    std::filesystem::path _path;
    FileBytes _file;
    std::uint64_t _bytesLeft;
    std::vector<unsigned char> _buffer;
    std::size_t _at = 0;
    std::size_t _end = 0;
    std::uint64_t _position = 0;
};

} // namespace tamo::volume
