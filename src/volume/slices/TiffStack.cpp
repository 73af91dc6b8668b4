// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TiffStack.h"

#include "../Error.h"
#include "../GridGeometry.h"

#include <cmath>
#include <string>

namespace tamo::volume {

std::vector<std::uint64_t> TiffStack::slicePages() const {
    std::vector<std::uint64_t> pages;
    for (std::size_t i = 0; i < directories.size(); ++i) {
        if (!isReduced[i]) {
            pages.push_back(directories[i]);
        }
    }
    return pages;
}

TiffStack listPages(TiffHandle& file, Progress const& progress, bool mayDiffer) {
    TiffStack stack;
    std::uint64_t unpacked = 0;
    bool hasSlice = false;
    do {
        stack.directories.push_back(TIFFCurrentDirOffset(file.get()));
        stack.isReduced.push_back(isReducedPage(file));
        if (!stack.isReduced.back()) {
            TiffPage const page = currentPage(file);
            checkUnpacked(file, unpacked);
            if (hasSlice && !mayDiffer && !page.isLike(stack.page)) {
                throw Error(file.path(), "expected pages of one size and type, page " +
                                             std::to_string(stack.directories.size()) + " differs from the first");
            }
            stack.page = hasSlice ? stack.page : page;
            hasSlice = true;
        }
        // How many there are shows only at the last one.
        report(progress, 0);
    } while (file.advance());
    if (!hasSlice) {
        throw Error(file.path(), "expected pages that are slices, found reduced pages and masks only");
    }
    return stack;
}

std::optional<TiffRun> findRun(TiffHandle const& file, TiffPage const& page, std::int64_t images) {
    auto const pageBytes = static_cast<std::uint64_t>(page.width * page.height * bytesOf(page.type));
    bool const isPlain = file.tagOrDefault<std::uint16_t>(TIFFTAG_COMPRESSION) == COMPRESSION_NONE &&
                         TIFFIsTiled(file.get()) == 0 && page.bits == 8 * bytesOf(page.type);
    TiffRun run;
    run.start = TIFFGetStrileOffset(file.get(), 0);
    run.imageBytes = pageBytes;
    run.isBigEndian = TIFFIsBigEndian(file.get()) != 0;
    if (!isPlain || run.start >= file.fileBytes() ||
        (file.fileBytes() - run.start) / pageBytes < static_cast<std::uint64_t>(images)) {
        return std::nullopt;
    }
    // The strips of the page have to follow one another, as the images do.
    std::uint64_t end = run.start;
    for (std::uint32_t strip = 0; strip < TIFFNumberOfStrips(file.get()) && end < run.start + pageBytes; ++strip) {
        if (TIFFGetStrileOffset(file.get(), strip) != end) {
            return std::nullopt;
        }
        end += TIFFGetStrileByteCount(file.get(), strip);
    }
    // A page that was taken out of a stack keeps the description; what follows its pixels is its directory.
    bool const isDirectoryBehind =
        page.directory > run.start && page.directory - run.start < pageBytes * static_cast<std::uint64_t>(images);
    return end < run.start + pageBytes || isDirectoryBehind ? std::nullopt : std::optional(run);
}

std::array<std::optional<double>, 3> spacingOf(TiffHandle const& file, ImageJText const& text) {
    double const millimetres = millimetresPer(text.unit);
    if (millimetres <= 0) {
        return {};
    }
    std::array<std::optional<double>, 3> spacing;
    std::size_t axis = 0;
    for (std::uint32_t const name : {std::uint32_t{TIFFTAG_XRESOLUTION}, std::uint32_t{TIFFTAG_YRESOLUTION}}) {
        double const perUnit = file.tag<float>(name).value_or(0.0F);
        if (perUnit > 0 && std::isfinite(perUnit)) {
            spacing[axis] = millimetres / perUnit;
        }
        ++axis;
    }
    if (text.spacing) {
        spacing[2] = *text.spacing * millimetres;
    }
    return spacing;
}

std::unique_ptr<Picture> openTiffPicture(std::filesystem::path const& path) {
    auto file = std::make_shared<TiffHandle>(path);
    auto const throwSeveralPages = [&path] {
        throw Error(path, "expected one page, as a slice of a folder has, found several; give the file alone");
    };
    TiffPage const page = currentPage(*file);
    std::uint64_t unpacked = 0;
    checkUnpacked(*file, unpacked);
    while (file->advance()) {
        if (!isReducedPage(*file)) {
            throwSeveralPages();
        }
    }
    file->select(page.directory);
    // A page that was taken out of a stack keeps the stack's description, but not the images behind it.
    auto const text = parseImageJText(file->description(), path);
    if (text && text->images > 1 && findRun(*file, page, text->images)) {
        throwSeveralPages();
    }
    return pictureOf(std::move(file), page);
}

} // namespace tamo::volume
