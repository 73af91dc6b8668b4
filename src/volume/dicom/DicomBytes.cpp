// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "DicomBytes.h"

#include "../Error.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <vector>

namespace tamo::volume {

namespace {

class WholeFile : public DicomBytes {
  public:
    explicit WholeFile(std::filesystem::path const& path) : _file(path, std::ios::binary | std::ios::ate) {
        if (!_file || _file.tellg() < 0) {
            throw Error(path, "expected a file that can be read; its permissions may forbid it");
        }
        _size = static_cast<std::uint64_t>(_file.tellg());
        _at = _size;
    }

    [[nodiscard]] std::uint64_t size() const override { return _size; }

    [[nodiscard]] bool read(std::uint64_t at, unsigned char* target, std::uint64_t bytes) override {
        if (at > _size || bytes > _size - at) {
            return false;
        }
        // A seek would drop what the stream has buffered.
        if (at != _at) {
            _file.seekg(static_cast<std::streamoff>(at));
        }
        _file.read(reinterpret_cast<char*>(target), static_cast<std::streamsize>(bytes));
        _at = at + bytes;
        return static_cast<bool>(_file);
    }

  private:
    std::ifstream _file;
    std::uint64_t _size = 0;
    std::uint64_t _at = 0;
};

class Expanded : public DicomBytes {
  public:
    explicit Expanded(std::vector<unsigned char> bytes) : _bytes(std::move(bytes)) {}

    [[nodiscard]] std::uint64_t size() const override { return _bytes.size(); }

    [[nodiscard]] bool read(std::uint64_t at, unsigned char* target, std::uint64_t bytes) override {
        if (at > _bytes.size() || bytes > _bytes.size() - at) {
            return false;
        }
        std::copy_n(_bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes, target);
        return true;
    }

  private:
    std::vector<unsigned char> _bytes;
};

// Frees what zlib allocates, whatever is thrown meanwhile.
class Inflation {
  public:
    Inflation() : isReady(inflateInit2(&stream, -MAX_WBITS) == Z_OK) {}
    ~Inflation() { inflateEnd(&stream); }
    Inflation(Inflation const&) = delete;
    Inflation& operator=(Inflation const&) = delete;

    z_stream stream{};
    bool isReady;
};

} // namespace

std::unique_ptr<DicomBytes> openFileBytes(std::filesystem::path const& path) {
    return std::make_unique<WholeFile>(path);
}

std::unique_ptr<DicomBytes> openDeflatedBytes(std::filesystem::path const& path, std::uint64_t start) {
    constexpr std::size_t kPiece = std::size_t{1} << 16U;
    WholeFile file(path);
    std::vector<unsigned char> input(kPiece);
    std::vector<unsigned char> output(kPiece);
    std::vector<unsigned char> bytes;
    Inflation inflation;
    int result = inflation.isReady ? Z_OK : Z_MEM_ERROR;
    std::uint64_t at = start;
    while (result == Z_OK && at < file.size()) {
        std::uint64_t const count = std::min<std::uint64_t>(kPiece, file.size() - at);
        if (!file.read(at, input.data(), count)) {
            break;
        }
        at += count;
        inflation.stream.next_in = input.data();
        inflation.stream.avail_in = static_cast<unsigned int>(count);
        do {
            inflation.stream.next_out = output.data();
            inflation.stream.avail_out = static_cast<unsigned int>(output.size());
            result = inflate(&inflation.stream, Z_NO_FLUSH);
            bytes.insert(bytes.end(), output.begin(),
                         output.end() - static_cast<std::ptrdiff_t>(inflation.stream.avail_out));
        } while (result == Z_OK && (inflation.stream.avail_in > 0 || inflation.stream.avail_out == 0));
        // No progress without more input is no error.
        result = result == Z_BUF_ERROR ? Z_OK : result;
    }
    if (result != Z_STREAM_END) {
        throw Error(path, "expected a complete deflated DICOM file; it is damaged or truncated");
    }
    return std::make_unique<Expanded>(std::move(bytes));
}

} // namespace tamo::volume
