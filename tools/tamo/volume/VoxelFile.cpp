// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VoxelFile.h"

#include "../terminal/UserError.h"
#include "ScalarType.h"

#include <zlib.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace tamo::tool {

namespace {

namespace fs = std::filesystem;

bool isBigEndianMachine() {
    constexpr std::uint16_t kOne = 1;
    return *reinterpret_cast<unsigned char const*>(&kOne) == 0;
}

void reverseScalars(unsigned char* data, std::uint64_t bytes, int scalarBytes) {
    for (unsigned char* scalar = data; scalar < data + bytes; scalar += scalarBytes) {
        std::reverse(scalar, scalar + scalarBytes);
    }
}

[[noreturn]] void throwIncomplete(fs::path const& path, std::string const& expected) {
    throw UserError(path.string() + ": expected " + expected + "; the file is damaged or truncated");
}

// Expands a zlib or gzip stream piece by piece.
class Expander {
  public:
    Expander(fs::path const& path, std::uint64_t start) : _file(path, std::ios::binary), _input(1 << 16) {
        _file.seekg(static_cast<std::streamoff>(start));
        // 32 more than the largest window makes zlib tell the two kinds of stream apart.
        constexpr int kAnyHeader = MAX_WBITS + 32;
        _isGood = inflateInit2(&_stream, kAnyHeader) == Z_OK;
    }
    ~Expander() { inflateEnd(&_stream); }
    Expander(Expander const&) = delete;
    Expander& operator=(Expander const&) = delete;

    // Writes the next `bytes` bytes; false where the stream is damaged or ends before.
    bool read(unsigned char* output, unsigned int bytes) {
        _stream.next_out = output;
        _stream.avail_out = bytes;
        while (_isGood && _stream.avail_out > 0) {
            expand();
        }
        return _stream.avail_out == 0;
    }

    // Reads on to the stream's end and its check sum; returns whether they are as they should be.
    bool finish() {
        std::vector<unsigned char> rest(1 << 16);
        while (_isGood && !_isAtEnd) {
            _stream.next_out = rest.data();
            _stream.avail_out = static_cast<unsigned int>(rest.size());
            expand();
        }
        return _isAtEnd;
    }

  private:
    void expand() {
        if (_stream.avail_in == 0) {
            _file.read(reinterpret_cast<char*>(_input.data()), static_cast<std::streamsize>(_input.size()));
            _stream.next_in = _input.data();
            _stream.avail_in = static_cast<unsigned int>(_file.gcount());
        }
        int const result = inflate(&_stream, Z_NO_FLUSH);
        _isAtEnd = result == Z_STREAM_END;
        // Without input inflate reports that it could not go on: the file ends before the stream.
        _isGood = result == Z_OK || (_isAtEnd && startNextMember());
    }

    // A gzip file may consist of several streams, one after another.
    bool startNextMember() {
        bool const isMore = _stream.avail_in > 1 && _stream.next_in[0] == 0x1F && _stream.next_in[1] == 0x8B;
        if (isMore) {
            _isAtEnd = false;
            return inflateReset(&_stream) == Z_OK;
        }
        return false;
    }

    std::ifstream _file;
    std::vector<unsigned char> _input;
    z_stream _stream{};
    bool _isGood = false;
    bool _isAtEnd = false;
};

std::string bytesOfVoxels(Volume const& volume) { return std::to_string(voxelBytes(volume)) + " bytes of voxels"; }

// Fills the image row by row through `read(address, bytes)`, which returns whether it got them all.
template <typename Read> void readRows(Volume& volume, VoxelLocation const& location, Read&& read, Progress& progress) {
    int const scalarBytes = volume.image->GetScalarSize();
    auto const rowBytes = static_cast<unsigned int>(volume.size[0]) * static_cast<unsigned int>(scalarBytes);
    bool const isForeign = scalarBytes > 1 && location.isBigEndian != isBigEndianMachine();
    for (int z = 0; z < volume.size[2]; ++z) {
        for (int y = 0; y < volume.size[1]; ++y) {
            unsigned char* const row = rowAddress(*volume.image, y, z);
            if (!read(row, rowBytes)) {
                throwIncomplete(location.path, bytesOfVoxels(volume));
            }
            if (isForeign) {
                reverseScalars(row, rowBytes, scalarBytes);
            }
        }
        progress.update((z + 1.0) / volume.size[2]);
    }
}

void readRaw(Volume& volume, VoxelLocation const& location, Progress& progress) {
    std::ifstream file(location.path, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(location.start));
    auto const read = [&file](unsigned char* row, unsigned int bytes) {
        return static_cast<bool>(file.read(reinterpret_cast<char*>(row), bytes));
    };
    readRows(volume, location, read, progress);
}

void readCompressed(Volume& volume, VoxelLocation const& location, Progress& progress) {
    Expander stream(location.path, location.start);
    unsigned char skipped = 0;
    for (std::uint64_t i = 0; i < location.expandedSkip; ++i) {
        if (!stream.read(&skipped, 1)) {
            throwIncomplete(location.path, bytesOfVoxels(volume));
        }
    }
    auto const read = [&stream](unsigned char* row, unsigned int bytes) { return stream.read(row, bytes); };
    readRows(volume, location, read, progress);
    if (!stream.finish()) {
        throwIncomplete(location.path, "a complete compressed stream of voxels");
    }
}

// Reads a number of the type T from the whole of `word`; false where it is none, or none that T holds.
template <typename T> bool parse(std::string const& word, T& value) {
    if constexpr (std::is_floating_point_v<T>) {
        // Unlike a stream this knows "nan" and "inf". Numbers too small for the type come close to 0.
        char* end = nullptr;
        if constexpr (sizeof(T) == sizeof(float)) {
            value = std::strtof(word.c_str(), &end);
        } else {
            value = std::strtod(word.c_str(), &end);
        }
        bool const isNamed = word.find_first_of("nN") != std::string::npos;
        return end == word.data() + word.size() && (std::isfinite(value) || isNamed);
    } else {
        // Unlike a stream this takes a byte for a number, and no negative number for a large one.
        bool const hasPlus = word.size() > 1 && word[0] == '+' && word[1] != '-';
        char const* const end = word.data() + word.size();
        auto const result = std::from_chars(word.data() + (hasPlus ? 1 : 0), end, value);
        return result.ec == std::errc() && result.ptr == end;
    }
}

void readText(Volume& volume, VoxelLocation const& location, Progress& progress) {
    std::ifstream file(location.path);
    file.seekg(static_cast<std::streamoff>(location.start));
    visitScalarType(volume.image->GetScalarType(), [&](auto const* null) {
        using T = std::remove_cv_t<std::remove_pointer_t<decltype(null)>>;
        std::string word;
        for (int z = 0; z < volume.size[2]; ++z) {
            auto* const slice = reinterpret_cast<T*>(rowAddress(*volume.image, 0, z));
            std::for_each_n(slice, std::ptrdiff_t{volume.size[0]} * volume.size[1], [&](T& voxel) {
                if (!(file >> word) || !parse(word, voxel)) {
                    throwIncomplete(location.path, "a number of the voxels' type for each");
                }
            });
            progress.update((z + 1.0) / volume.size[2]);
        }
    });
}

} // namespace

void readVoxels(Volume& volume, VoxelLocation const& location, Progress& progress) {
    switch (location.encoding) {
    case VoxelEncoding::Raw:
        return readRaw(volume, location, progress);
    case VoxelEncoding::Compressed:
        return readCompressed(volume, location, progress);
    case VoxelEncoding::Text:
        return readText(volume, location, progress);
    }
}

std::uint64_t startOfLastBytes(fs::path const& path, std::uint64_t bytes) {
    std::uint64_t const fileBytes = fs::file_size(path);
    return fileBytes > bytes ? fileBytes - bytes : 0;
}

void checkGzipFile(fs::path const& path) {
    if (!Expander(path, 0).finish()) {
        throwIncomplete(path, "a complete gzip file");
    }
}

} // namespace tamo::tool
