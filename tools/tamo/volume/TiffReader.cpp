// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../terminal/UserError.h"
#include "ScalarType.h"
#include "VolumeFormats.h"

#include <tiffio.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>

// VTK's own reader of this format takes the pages of a compressed stack for others than they are.

namespace tamo::tool {

namespace {

namespace fs = std::filesystem;

// libtiff reports to plain functions; errors are told by what its calls return, except for the list of pages.
thread_local bool hasTiffError = false;
extern "C" void noteTiffError(char const*, char const*, va_list) { hasTiffError = true; }
// A field that lies beyond the end of the file is only warned of: most readers can do without it.
extern "C" void noteTiffWarning(char const*, char const* format, va_list arguments) {
    std::array<char, 512> message{};
    std::vsnprintf(message.data(), message.size(), format, arguments);
    hasTiffError = hasTiffError || std::strstr(message.data(), "IO error") != nullptr;
}

struct CloseTiff {
    void operator()(TIFF* file) const { TIFFClose(file); }
};
using TiffFile = std::unique_ptr<TIFF, CloseTiff>;

struct Page {
    int width;
    int height;
    int vtkType;
    bool operator==(Page const& other) const {
        return width == other.width && height == other.height && vtkType == other.vtkType;
    }
};

[[noreturn]] void throwDamaged(fs::path const& path) {
    throw UserError(path.string() + ": expected a complete TIFF file; it is damaged or truncated");
}

TiffFile openTiff(fs::path const& path) {
    hasTiffError = false;
    TIFFSetErrorHandler(noteTiffError);
    TIFFSetWarningHandler(noteTiffWarning);
    TiffFile file(TIFFOpen(path.c_str(), "r"));
    if (!file || hasTiffError) {
        throwDamaged(path);
    }
    return file;
}

template <typename T> T tagValue(TIFF* file, std::uint32_t tag) {
    T value{};
    TIFFGetFieldDefaulted(file, tag, &value);
    return value;
}

// Describes the current page, which has to be one of numbers, one per pixel.
Page currentPage(TIFF* file, fs::path const& path) {
    auto const bits = tagValue<std::uint16_t>(file, TIFFTAG_BITSPERSAMPLE);
    auto const format = tagValue<std::uint16_t>(file, TIFFTAG_SAMPLEFORMAT);
    auto const samples = tagValue<std::uint16_t>(file, TIFFTAG_SAMPLESPERPIXEL);
    auto const photometric = tagValue<std::uint16_t>(file, TIFFTAG_PHOTOMETRIC);
    if (samples != 1 || photometric == PHOTOMETRIC_PALETTE) {
        throw UserError(path.string() + ": expected a volume of one scalar per voxel, found a colour image");
    }
    char const* const kind = format == SAMPLEFORMAT_IEEEFP ? "float" : format == SAMPLEFORMAT_INT ? "int" : "uint";
    std::string const name = kind + std::to_string(bits);
    auto const type = std::find_if(kScalarTypes.begin(), kScalarTypes.end(),
                                   [&name](ScalarType const& candidate) { return candidate.name == name; });
    if (type == kScalarTypes.end()) {
        throw UserError(path.string() + ": expected TIFF samples of 8, 16, 32 or 64 bits, found " + name);
    }
    auto const width = tagValue<std::uint32_t>(file, TIFFTAG_IMAGEWIDTH);
    auto const height = tagValue<std::uint32_t>(file, TIFFTAG_IMAGELENGTH);
    constexpr auto kMost = static_cast<std::uint32_t>(std::numeric_limits<int>::max());
    if (width == 0 || height == 0 || width > kMost || height > kMost) {
        throwDamaged(path);
    }
    return {static_cast<int>(width), static_cast<int>(height), type->vtkType};
}

bool readTiles(TIFF* file, Page const& page, vtkImageData& image, int z) {
    auto const tileWidth = static_cast<int>(tagValue<std::uint32_t>(file, TIFFTAG_TILEWIDTH));
    auto const tileHeight = static_cast<int>(tagValue<std::uint32_t>(file, TIFFTAG_TILELENGTH));
    int const voxelSize = image.GetScalarSize();
    auto const tileRowBytes = static_cast<std::size_t>(tileWidth) * static_cast<std::size_t>(voxelSize);
    std::vector<unsigned char> tile(static_cast<std::size_t>(TIFFTileSize(file)));
    if (tileWidth < 1 || tileHeight < 1 || tile.size() < tileRowBytes * static_cast<std::size_t>(tileHeight)) {
        return false;
    }
    for (int y = 0; y < page.height; y += tileHeight) {
        for (int x = 0; x < page.width; x += tileWidth) {
            if (TIFFReadTile(file, tile.data(), static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), 0, 0) <
                0) {
                return false;
            }
            auto const bytes = static_cast<std::size_t>(std::min(tileWidth, page.width - x) * voxelSize);
            for (int row = 0; row < std::min(tileHeight, page.height - y); ++row) {
                std::memcpy(rowAddress(image, y + row, z) + std::ptrdiff_t{x} * voxelSize,
                            tile.data() + static_cast<std::size_t>(row) * tileRowBytes, bytes);
            }
        }
    }
    return true;
}

bool readRows(TIFF* file, Page const& page, vtkImageData& image, int z) {
    if (TIFFScanlineSize(file) != tmsize_t{page.width} * image.GetScalarSize()) {
        return false;
    }
    for (int y = 0; y < page.height; ++y) {
        if (TIFFReadScanline(file, rowAddress(image, y, z), static_cast<std::uint32_t>(y), 0) < 0) {
            return false;
        }
    }
    return true;
}

void readPage(TIFF* file, Page const& page, vtkImageData& image, int z, fs::path const& path) {
    if (!(TIFFIsTiled(file) != 0 ? readTiles(file, page, image, z) : readRows(file, page, image, z))) {
        throwDamaged(path);
    }
}

// Counts the pages, all of which have to be like the first; leaves the first one current.
int countPages(TIFF* file, Page const& first, fs::path const& path) {
    int pages = 1;
    while (TIFFLastDirectory(file) == 0) {
        if (TIFFReadDirectory(file) == 0) {
            throwDamaged(path);
        }
        if (!(currentPage(file, path) == first)) {
            throw UserError(path.string() + ": expected pages of one size and type, page " + std::to_string(pages + 1) +
                            " differs from the first");
        }
        ++pages;
    }
    if (hasTiffError || TIFFSetDirectory(file, 0) == 0) {
        throwDamaged(path);
    }
    return pages;
}

Volume makeVolume(Page const& page, int slices, fs::path const& path) {
    Volume volume;
    volume.format = "TIFF stack";
    volume.size = {page.width, page.height, slices};
    volume.image = allocateImage(volume.size, page.vtkType, path.string());
    return volume;
}

} // namespace

Volume readTiff(fs::path const& path, Progress& progress) {
    TiffFile const file = openTiff(path);
    Page const page = currentPage(file.get(), path);
    Volume volume = makeVolume(page, countPages(file.get(), page, path), path);
    for (int z = 0; z < volume.size[2]; ++z) {
        readPage(file.get(), page, *volume.image, z, path);
        progress.update((z + 1.0) / volume.size[2]);
        if (z + 1 < volume.size[2] && TIFFReadDirectory(file.get()) == 0) {
            throwDamaged(path);
        }
    }
    return volume;
}

Volume readTiffSlices(std::vector<fs::path> const& slices, Progress& progress) {
    Page const first = currentPage(openTiff(slices.front()).get(), slices.front());
    Volume volume = makeVolume(first, static_cast<int>(slices.size()), slices.front());
    int z = 0;
    for (fs::path const& path : slices) {
        TiffFile const file = openTiff(path);
        if (!(currentPage(file.get(), path) == first) || TIFFLastDirectory(file.get()) == 0) {
            throw UserError(path.string() + ": expected one page of the size and type of " + slices.front().string());
        }
        readPage(file.get(), first, *volume.image, z++, path);
        progress.update(static_cast<double>(z) / volume.size[2]);
    }
    return volume;
}

} // namespace tamo::tool
