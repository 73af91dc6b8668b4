// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "Picture.h"

#include "../Error.h"
#include "../letterCase.h"

#include <cerrno>
#include <cstring>
#include <system_error>
#include <vector>

namespace tamo::volume {

void Picture::read(Box const& box, unsigned char* target) {
    auto const voxel = static_cast<std::size_t>(bytesOf(_type));
    Size3 const sides = box.sides();
    if (sides[0] == _width) {
        readRows(box.first[1], box.last[1], target);
        return;
    }
    std::size_t const rowBytes = static_cast<std::size_t>(_width) * voxel;
    std::size_t const partBytes = static_cast<std::size_t>(sides[0]) * voxel;
    std::vector<unsigned char> rows(static_cast<std::size_t>(sides[1]) * rowBytes);
    readRows(box.first[1], box.last[1], rows.data());
    unsigned char const* source = rows.data() + static_cast<std::size_t>(box.first[0]) * voxel;
    for (std::int64_t y = 0; y < sides[1]; ++y, source += rowBytes, target += partBytes) {
        std::memcpy(target, source, partBytes);
    }
}

void Picture::setShape(std::int64_t width, std::int64_t height, ScalarType type, int bits) {
    if (width < 1 || height < 1 || !isCountable({width, height, 1})) {
        throw Error(_path, "expected a picture with pixels, found " + std::to_string(width) + " x " +
                               std::to_string(height) + "; the file is damaged");
    }
    _width = width;
    _height = height;
    _type = type;
    _bits = bits;
}

void Picture::checkExpansion(std::uint64_t unpackedBytes, std::uint64_t mostPerByte) const {
    std::uint64_t const fileBytes = std::filesystem::file_size(_path);
    if (unpackedBytes / mostPerByte > fileBytes) {
        throw Error(_path, "expected " + std::to_string(_width) + " x " + std::to_string(_height) + " pixels, found " +
                               std::to_string(fileBytes) + " bytes, too few; the file is damaged or truncated");
    }
}

char const* nameOf(PictureFormat format) {
    switch (format) {
    case PictureFormat::Png:
        return "PNG";
    case PictureFormat::Jpeg:
        return "JPEG";
    case PictureFormat::Bmp:
        return "BMP";
    case PictureFormat::Tiff:
        return "TIFF";
    }
    throw std::logic_error("no picture format");
}

std::optional<PictureFormat> pictureFormatOf(std::filesystem::path const& path) {
    std::string const ending = lowerCase(path.extension().string());
    if (ending == ".png") {
        return PictureFormat::Png;
    }
    if (ending == ".jpg" || ending == ".jpeg") {
        return PictureFormat::Jpeg;
    }
    if (ending == ".bmp") {
        return PictureFormat::Bmp;
    }
    return ending == ".tif" || ending == ".tiff" ? std::optional(PictureFormat::Tiff) : std::nullopt;
}

std::unique_ptr<Picture> openPicture(std::filesystem::path const& path, PictureFormat format) {
    switch (format) {
    case PictureFormat::Png:
        return openPngPicture(path);
    case PictureFormat::Jpeg:
        return openJpegPicture(path);
    case PictureFormat::Bmp:
        return openBmpPicture(path);
    case PictureFormat::Tiff:
        return openTiffPicture(path);
    }
    throw std::logic_error("no picture format");
}

File openToRead(std::filesystem::path const& path) {
    File file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        throw Error(path, "expected a file that can be read: " + std::generic_category().message(errno));
    }
    return file;
}

void throwDamaged(std::filesystem::path const& path, char const* format) {
    throw Error(path, std::string("expected a complete ") + format + " file; it is damaged or truncated");
}

void throwColour(std::filesystem::path const& path) {
    throw Error(path, "expected a volume of one scalar per voxel, found a colour image");
}

} // namespace tamo::volume
