// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TiffHandle.h"

#include "Picture.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace tamo::volume {

namespace {

// Both return that the message is dealt with: nothing is printed.
extern "C" int noteTiffError(TIFF*, void* isDamaged, char const*, char const*, va_list) {
    *static_cast<bool*>(isDamaged) = true;
    return 1;
}

// Most warnings are of tags that are not known. But a tag, or a row, that lies beyond the end of the file, and a row of
// a JPEG picture that had to be made up, are only warned of as well.
extern "C" int noteTiffWarning(TIFF*, void* isDamaged, char const* module, char const* format, va_list arguments) {
    std::array<char, 512> message{};
    std::vsnprintf(message.data(), message.size(), format, arguments);
    bool const isOfJpeg = module != nullptr && std::strncmp(module, "JPEG", 4) == 0;
    if (isOfJpeg || std::strstr(message.data(), "IO error") != nullptr ||
        std::strstr(message.data(), "remature E") != nullptr) {
        *static_cast<bool*>(isDamaged) = true;
    }
    return 1;
}

struct FreeOptions {
    void operator()(TIFFOpenOptions* options) const { TIFFOpenOptionsFree(options); }
};

} // namespace

TiffHandle::TiffHandle(std::filesystem::path const& path)
    : _path(path), _fileBytes(0), _isDamaged(std::make_unique<bool>(false)) {
    // Says why a file cannot be read, which the library would keep to itself.
    openToRead(path);
    _fileBytes = std::filesystem::file_size(path);
    std::unique_ptr<TIFFOpenOptions, FreeOptions> const options(TIFFOpenOptionsAlloc());
    if (!options) {
        throw std::bad_alloc();
    }
    // A strip may be the whole of a large slice; what a page claims is checked against the file's size before.
    constexpr tmsize_t kMostBytesAtOnce = tmsize_t{1} << 32;
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), kMostBytesAtOnce);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), noteTiffError, _isDamaged.get());
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), noteTiffWarning, _isDamaged.get());
    // Not mapped into memory: a file that another program makes shorter would end this one.
    _tiff.reset(TIFFOpenExt(path.c_str(), "rm", options.get()));
    if (!_tiff) {
        throwDamaged();
    }
    check();
}

bool TiffHandle::advance() {
    if (TIFFLastDirectory(get()) != 0) {
        check();
        return false;
    }
    if (TIFFReadDirectory(get()) == 0) {
        throwDamaged();
    }
    check();
    return true;
}

void TiffHandle::select(std::uint64_t directory) {
    if (TIFFCurrentDirOffset(get()) != directory && TIFFSetSubDirectory(get(), directory) == 0) {
        throwDamaged();
    }
    check();
}

std::string TiffHandle::description() const {
    char const* const text = tag<char const*>(TIFFTAG_IMAGEDESCRIPTION).value_or(nullptr);
    return text != nullptr ? text : "";
}

void TiffHandle::check() const {
    if (*_isDamaged) {
        throwDamaged();
    }
}

void TiffHandle::throwDamaged() const { tamo::volume::throwDamaged(_path, "TIFF"); }

} // namespace tamo::volume
