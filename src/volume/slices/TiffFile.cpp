// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../bytes/VoxelRows.h"
#include "../chooseOne.h"
#include "../formats/VolumeFormats.h"
#include "ImageJText.h"
#include "OmeText.h"
#include "ShapedText.h"
#include "TiffPage.h"
#include "TiffStack.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

void addSpacing(VolumeHeader& header, std::array<std::optional<double>, 3> const& spacing, std::string const& unit) {
    // "pixel" is a unit too, but none of length.
    header.geometry.fileUnit = millimetresPer(unit) > 0 ? unit : "";
    if (spacing[0] && spacing[1] && spacing[2]) {
        header.geometry.spacing = {*spacing[0], *spacing[1], *spacing[2]};
        header.geometry.isSpacingKnown = true;
    } else if (spacing[0] || spacing[1] || spacing[2]) {
        header.notes.emplace_back("The file does not state the voxel's size along all of x, y and z, so that a spacing "
                                  "of 1 is assumed");
    }
}

// A stack whose slices are pages of their own.
class PagedTiff : public VolumeFile {
  public:
    PagedTiff(fs::path const& path, VolumeHeader header, std::vector<std::uint64_t> directories, TiffPage const& page)
        : VolumeFile(path, std::move(header)), _directories(std::move(directories)), _page(page) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override {
        auto const file = std::make_shared<TiffHandle>(path());
        Size3 const sides = box.sides();
        std::int64_t const sliceBytes = sides[0] * sides[1] * bytesOf(_page.type);
        for (std::int64_t z = 0; z < sides[2]; ++z) {
            TiffPage page = _page;
            page.directory = _directories[static_cast<std::size_t>(box.first[2] + z)];
            pictureOf(file, page)->read(box, target + z * sliceBytes);
            report(progress, static_cast<double>(z + 1) / static_cast<double>(sides[2]));
        }
    }

    std::vector<std::uint64_t> _directories;
    // Of all of them, but for the directory.
    TiffPage _page;
};

// A stack with a single page, behind whose pixels those of the other images stand without pages of their own.
class PagelessTiff : public VolumeFile {
  public:
    PagelessTiff(fs::path const& path, VolumeHeader header, TiffPage const& page, TiffRun const& run)
        : VolumeFile(path, std::move(header)), _page(page), _run(run) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override {
        Size3 const sides = box.sides();
        std::int64_t const sliceVoxels = sides[0] * sides[1];
        Box const slice{{box.first[0], box.first[1], 0}, {box.last[0], box.last[1], 0}};
        VoxelRows const rows{{_page.width, _page.height, 1}, _page.type, _run.isBigEndian};
        for (std::int64_t z = 0; z < sides[2]; ++z) {
            auto const image = static_cast<std::uint64_t>((box.first[2] + z) * _run.step + _run.first);
            auto const source = openBytes(path(), _run.start + image * _run.imageBytes, Packing::None);
            if (!readBox(*source, rows, slice, target, {})) {
                throwDamaged(path(), "TIFF");
            }
            convertPixels(_page, target, sliceVoxels, target);
            target += sliceVoxels * bytesOf(_page.type);
            report(progress, static_cast<double>(z + 1) / static_cast<double>(sides[2]));
        }
    }

    TiffPage _page;
    TiffRun _run;
};

// What the kinds of description have to open.
struct Opening {
    VolumeSource const& source;
    TiffHandle& file;
    TiffStack stack;
    VolumeHeader header;
};

std::unique_ptr<VolumeFile> openPages(Opening opening, std::vector<std::uint64_t> directories) {
    opening.header.size[2] = static_cast<std::int64_t>(directories.size());
    return std::make_unique<PagedTiff>(opening.source.path, std::move(opening.header), std::move(directories),
                                       opening.stack.page);
}

void chooseAxes(Opening& opening, std::int64_t channels, std::int64_t frames) {
    VolumeHeader& header = opening.header;
    header.channels = channels;
    header.channel = chooseOne(opening.source.path, "channel", channels, opening.source.channel);
    header.frames = frames;
    header.frame = chooseOne(opening.source.path, "frame", frames, opening.source.frame);
}

std::unique_ptr<VolumeFile> openImageJ(Opening opening, ImageJText const& text) {
    fs::path const& path = opening.source.path;
    opening.header.format = "TIFF stack, ImageJ";
    chooseAxes(opening, text.channels, text.frames);
    opening.file.select(opening.stack.page.directory);
    addSpacing(opening.header, spacingOf(opening.file, text), text.unit);
    std::vector<std::uint64_t> const pages = opening.stack.slicePages();
    std::int64_t const first = opening.header.frame * text.slices * text.channels + opening.header.channel;
    if (pages.size() == 1 && text.images > 1) {
        std::optional<TiffRun> run = findRun(opening.file, opening.stack.page, text.images);
        if (!run) {
            throw Error(path, "expected " + std::to_string(text.images) +
                                  " images, as the ImageJ description says, found one page and no other images "
                                  "behind it; the file is damaged or incomplete");
        }
        run->first = first;
        run->step = text.channels;
        opening.header.size[2] = text.slices;
        return std::make_unique<PagelessTiff>(path, std::move(opening.header), opening.stack.page, *run);
    }
    if (static_cast<std::int64_t>(pages.size()) != text.images) {
        throw Error(path, "expected " + std::to_string(text.images) + " pages, as the ImageJ description says, found " +
                              std::to_string(pages.size()) + "; the file is damaged or incomplete");
    }
    std::vector<std::uint64_t> chosen;
    for (std::int64_t z = 0; z < text.slices; ++z) {
        chosen.push_back(pages[static_cast<std::size_t>(first + z * text.channels)]);
    }
    return openPages(std::move(opening), std::move(chosen));
}

std::unique_ptr<VolumeFile> openOme(Opening opening, std::vector<OmeImage> const& images) {
    fs::path const& path = opening.source.path;
    for (OmeImage const& image : images) {
        opening.header.series.push_back(
            {std::to_string(opening.header.series.size()), image.id, image.name, image.slices});
    }
    opening.header.chosenSeries = chooseSeries(opening.source, opening.header.series);
    OmeImage const& image = images[opening.header.chosenSeries];
    opening.header.format = "TIFF stack, OME";
    chooseAxes(opening, image.channels, image.frames);
    addSpacing(opening.header, image.spacing, image.unit);
    auto const pageCount = static_cast<std::int64_t>(opening.stack.directories.size());
    std::vector<std::uint64_t> chosen;
    for (std::int64_t const page : pagesOf(image, opening.header.channel, opening.header.frame, pageCount, path)) {
        chosen.push_back(opening.stack.directories[static_cast<std::size_t>(page)]);
    }
    // The document may name pages that are reduced ones, and its images may be of several sizes.
    opening.file.select(chosen.front());
    TiffPage const first = currentPage(opening.file);
    for (std::uint64_t const directory : chosen) {
        opening.file.select(directory);
        TiffPage const page = currentPage(opening.file);
        if (!page.isLike(first) || page.width != image.width || page.height != image.height) {
            throw Error(path, "expected slices of " + std::to_string(image.width) + " x " +
                                  std::to_string(image.height) +
                                  " pixels of one type, as the OME description says, found a page of " +
                                  std::to_string(page.width) + " x " + std::to_string(page.height));
        }
    }
    opening.stack.page = first;
    opening.header.type = first.type;
    opening.header.size = {first.width, first.height, 1};
    return openPages(std::move(opening), std::move(chosen));
}

std::unique_ptr<VolumeFile> openShaped(Opening opening, ShapedText const& text) {
    std::vector<std::uint64_t> const pages = opening.stack.slicePages();
    if (text.count() != static_cast<std::int64_t>(pages.size())) {
        throw Error(opening.source.path, "expected " + std::to_string(text.count()) +
                                             " pages, as the shape in its description says, found " +
                                             std::to_string(pages.size()) +
                                             "; the file is incomplete, or holds several volumes: save each alone");
    }
    chooseAxes(opening, text.count('C'), text.count('T'));
    std::vector<std::uint64_t> chosen;
    for (std::int64_t const page : text.pagesOf(opening.header.channel, opening.header.frame)) {
        chosen.push_back(pages[static_cast<std::size_t>(page)]);
    }
    return openPages(std::move(opening), std::move(chosen));
}

} // namespace

std::unique_ptr<VolumeFile> openTiff(VolumeSource const& source, Progress const& progress) {
    TiffHandle file(source.path);
    std::string const description = file.description();
    auto const ome = parseOmeText(description, source.path);
    Opening opening{source, file, listPages(file, progress, /*mayDiffer=*/ome.has_value()), {}};
    TiffStack const& stack = opening.stack;
    VolumeHeader& header = opening.header;
    header.format = "TIFF stack";
    header.type = stack.page.type;
    header.size = {stack.page.width, stack.page.height, 1};
    if (std::string note = noteOf(stack.page); !note.empty()) {
        header.notes.push_back(std::move(note));
    }
    if (ome) {
        return openOme(std::move(opening), *ome);
    }
    std::size_t const reduced = stack.directories.size() - stack.slicePages().size();
    if (reduced > 0) {
        header.notes.push_back(std::to_string(reduced) + " reduced or mask pages are no slices and were left out");
    }
    if (auto const text = parseImageJText(description, source.path)) {
        return openImageJ(std::move(opening), *text);
    }
    if (auto const text = parseShapedText(description, stack.page.width, stack.page.height)) {
        return openShaped(std::move(opening), *text);
    }
    // Before the stack is moved: in which order arguments are made is the compiler's choice.
    std::vector<std::uint64_t> pages = stack.slicePages();
    return openPages(std::move(opening), std::move(pages));
}

} // namespace tamo::volume
