// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TextVoxels.h"

#include "FileBytes.h"
#include "parseNumber.h"

#include <cstring>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tamo::volume {

namespace {

// Also the longest word.
constexpr std::size_t kBufferBytes = 1 << 16;

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Cuts a file into the words between blanks.
class Words {
  public:
    Words(std::filesystem::path const& path, std::uint64_t start) : _file(path, start), _buffer(kBufferBytes + 1) {
        _end = _buffer.data();
        _next = _end;
        *_end = ' ';
    }

    // Returns the next word, valid up to the next call: empty at the end of the file, and for a word that is too long.
    std::string_view next() {
        do {
            // The blank behind the last byte, which stops the other search, does not stop this one.
            while (_next != _end && isBlank(*_next)) {
                ++_next;
            }
        } while (_next == _end && fill());
        char const* const first = _next;
        char const* last = endOfWord(first);
        if (last == _end && !_isAtEnd) {
            fill();
            last = endOfWord(_next);
            if (last == _end && !_isAtEnd) {
                return {};
            }
        }
        std::string_view const word(_next, static_cast<std::size_t>(last - _next));
        _next = last;
        return word;
    }

  private:
    static char const* endOfWord(char const* at) {
        while (!isBlank(*at)) {
            ++at;
        }
        return at;
    }

    // Moves what is left to the front of the buffer and reads on behind it; returns whether there was more.
    bool fill() {
        std::size_t const left = static_cast<std::size_t>(_end - _next);
        std::memmove(_buffer.data(), _next, left);
        std::uint64_t const wanted = kBufferBytes - left;
        std::uint64_t const got = _file.readSome(reinterpret_cast<unsigned char*>(_buffer.data()) + left, wanted);
        _isAtEnd = got < wanted;
        _next = _buffer.data();
        _end = _buffer.data() + left + got;
        *_end = ' ';
        return got > 0;
    }

    FileBytes _file;
    // The bytes from _next to _end are not used up yet; *_end is a blank.
    std::vector<char> _buffer;
    char const* _next = nullptr;
    char* _end = nullptr;
    bool _isAtEnd = false;
};

template <typename T>
bool readNumbers(Words& words, Size3 const& size, Box const& box, unsigned char* target, Progress const& progress) {
    for (std::int64_t z = 0; z < size[2]; ++z) {
        for (std::int64_t y = 0; y < size[1]; ++y) {
            bool const isRowInside = z >= box.first[2] && z <= box.last[2] && y >= box.first[1] && y <= box.last[1];
            for (std::int64_t x = 0; x < size[0]; ++x) {
                T value{};
                if (!parseNumber(words.next(), value)) {
                    return false;
                }
                if (isRowInside && x >= box.first[0] && x <= box.last[0]) {
                    std::memcpy(target, &value, sizeof(T));
                    target += sizeof(T);
                }
            }
        }
        report(progress, static_cast<double>(z + 1) / static_cast<double>(size[2]));
    }
    return true;
}

} // namespace

bool readTextBox(std::filesystem::path const& path, std::uint64_t start, VoxelRows const& rows, Box const& box,
                 unsigned char* target, Progress const& progress) {
    Words words(path, start);
    return visitScalarType(rows.type, [&](auto const* null) {
        using T = std::remove_cv_t<std::remove_pointer_t<decltype(null)>>;
        return readNumbers<T>(words, rows.size, box, target, progress);
    });
}

} // namespace tamo::volume
