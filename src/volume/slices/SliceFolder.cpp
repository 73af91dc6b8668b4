// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../formats/VolumeFormats.h"
#include "SliceListing.h"
#include "SliceNames.h"

#include <algorithm>
#include <utility>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

std::string shapeOf(Picture const& picture) {
    return std::to_string(picture.width()) + " x " + std::to_string(picture.height()) + " pixels of " +
           std::string(nameOf(picture.type())) + " from " + std::to_string(picture.bits()) + " bits";
}

class SliceFolder : public VolumeFile {
  public:
    SliceFolder(fs::path const& path, VolumeHeader header, std::vector<fs::path> slices, PictureFormat format)
        : VolumeFile(path, std::move(header)), _slices(std::move(slices)), _format(format) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override {
        Size3 const sides = box.sides();
        std::int64_t const sliceBytes = sides[0] * sides[1] * bytesOf(header().type);
        for (std::int64_t z = 0; z < sides[2]; ++z, target += sliceBytes) {
            auto const slice = openPicture(_slices[static_cast<std::size_t>(box.first[2] + z)], _format);
            // The file may be another one than the one that was described.
            if (slice->width() != header().size[0] || slice->height() != header().size[1] ||
                slice->type() != header().type) {
                throw Error(slice->path(), "expected the picture that the folder was opened with, found " +
                                               shapeOf(*slice) + "; the file was changed");
            }
            slice->read(box, target);
            report(progress, static_cast<double>(z + 1) / static_cast<double>(sides[2]));
        }
    }

    std::vector<fs::path> _slices;
    PictureFormat _format;
};

std::unique_ptr<VolumeFile> openSlices(VolumeSource const& source, std::vector<fs::path> slices, PictureFormat format,
                                       Progress const& progress) {
    checkNumbering(slices);
    VolumeHeader header;
    header.format = nameOf(format) + std::string(" stack");
    auto const first = openPicture(slices.front(), format);
    header.type = first->type();
    header.size = {first->width(), first->height(), static_cast<std::int64_t>(slices.size())};
    if (!first->note().empty()) {
        header.notes.push_back(first->note());
    }
    for (std::size_t i = 1; i < slices.size(); ++i) {
        auto const slice = openPicture(slices[i], format);
        if (!slice->isLike(*first)) {
            throw Error(slices[i], "expected the size and type of " + slices.front().filename().string() + ", " +
                                       shapeOf(*first) + ", found " + shapeOf(*slice));
        }
        report(progress, static_cast<double>(i + 1) / static_cast<double>(slices.size()));
    }
    return std::make_unique<SliceFolder>(source.path, std::move(header), std::move(slices), format);
}

// Returns whether a folder holds pictures. Those of a hidden one are previews that a program keeps for itself.
bool hasPictures(fs::path const& folder) {
    return folder.filename().string().front() != '.' && !listFolder(folder).pictures.empty();
}

std::unique_ptr<VolumeFile> openPictures(VolumeSource const& source, SliceListing const& listing,
                                         Progress const& progress) {
    auto const& [format, slices] = *listing.pictures.begin();
    std::unique_ptr<VolumeFile> file;
    if (format == PictureFormat::Tiff && slices.size() == 1) {
        VolumeSource single = source;
        single.path = slices.front();
        file = openTiff(single, progress);
    } else {
        file = openSlices(source, slices, format, progress);
    }
    VolumeHeader header = file->header();
    if (file->path() != source.path) {
        header.notes.push_back("The slices are the pages of " + slices.front().filename().string());
    }
    if (!listing.others.empty()) {
        header.notes.push_back(noteOfOthers(listing.others));
    }
    file->setHeader(std::move(header));
    return file;
}

[[noreturn]] void throwFormats(fs::path const& folder, SliceListing const& listing) {
    std::string found;
    auto const add = [&found](char const* name, std::size_t count) {
        if (count > 0) {
            found += (found.empty() ? "" : ", ") + std::to_string(count) + " " + name;
        }
    };
    add("DICOM", listing.dicomFiles.size());
    for (auto const& [format, paths] : listing.pictures) {
        add(nameOf(format), paths.size());
    }
    throw Error(folder, "expected a folder of slices of one format, DICOM, TIFF, PNG, JPEG or BMP, found " +
                            (found.empty() ? "none" : found + " files; move those of one format to a folder"));
}

// Opens a folder that holds no pictures itself: DICOM files in it or below, else the only folder below with pictures.
std::unique_ptr<VolumeFile> openBelow(VolumeSource const& source, SliceListing const& listing,
                                      Progress const& progress) {
    std::vector<fs::path> const files = listTree(source.path, progress);
    bool const hasDicom = std::any_of(files.begin(), files.end(), [&progress](fs::path const& file) {
        report(progress, 0);
        return isDicom(file);
    });
    if (hasDicom) {
        return openDicomFolder(source, files, progress);
    }
    std::vector<fs::path> folders;
    std::copy_if(listing.folders.begin(), listing.folders.end(), std::back_inserter(folders), hasPictures);
    if (folders.size() > 1) {
        throw Error(source.path, "expected a folder of slices, found none in it, and " +
                                     std::to_string(folders.size()) + " folders with pictures below it, " +
                                     folders[0].filename().string() + " and " + folders[1].filename().string() +
                                     " among them; give one of them");
    }
    if (folders.empty()) {
        throwFormats(source.path, listing);
    }
    VolumeSource below = source;
    below.path = folders.front();
    auto file = openSliceFolder(below, progress);
    VolumeHeader header = file->header();
    header.notes.push_back("The slices are those of the folder " + folders.front().filename().string());
    if (!listing.others.empty()) {
        header.notes.push_back(noteOfOthers(listing.others));
    }
    file->setHeader(std::move(header));
    return file;
}

} // namespace

std::unique_ptr<VolumeFile> openSliceFolder(VolumeSource const& source, Progress const& progress) {
    SliceListing listing = listFolder(source.path);
    setPreviewApart(listing);
    if (listing.pictures.empty()) {
        return openBelow(source, listing, progress);
    }
    if (listing.pictures.size() + (listing.dicomFiles.empty() ? 0 : 1) != 1) {
        throwFormats(source.path, listing);
    }
    return openPictures(source, listing, progress);
}

std::unique_ptr<VolumeFile> refusePicture(VolumeSource const& source, Progress const&) {
    throw Error(source.path, "expected a 3-D volume, found a single 2-D slice; give the folder of the slices");
}

} // namespace tamo::volume
