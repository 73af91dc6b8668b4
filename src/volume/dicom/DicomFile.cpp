// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../chooseOne.h"
#include "../formats/VolumeFormats.h"
#include "DicomDirectory.h"
#include "DicomFolder.h"
#include "DicomPixels.h"
#include "DicomSegments.h"
#include "DicomSeries.h"
#include "DicomStack.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <utility>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

class DicomFile : public VolumeFile {
  public:
    DicomFile(fs::path const& path, VolumeHeader header, std::vector<DicomImage> images, std::vector<StackSlice> slices,
              bool isRescaled)
        : VolumeFile(path, std::move(header)), _images(std::move(images)), _slices(std::move(slices)),
          _isRescaled(isRescaled) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override {
        PixelWindow const window{box.first[0], box.last[0], box.first[1], box.last[1]};
        Size3 const sides = box.sides();
        std::int64_t const sliceBytes = sides[0] * sides[1] * bytesOf(header().type);
        // The file of several frames stays open from one to the next.
        std::unique_ptr<DicomPixels> pixels;
        for (std::int64_t z = box.first[2]; z <= box.last[2]; ++z) {
            StackSlice const& slice = _slices[static_cast<std::size_t>(z)];
            DicomImage const& image = _images[slice.image];
            DicomFrame const& frame = image.frames[slice.frame];
            if (pixels == nullptr || &pixels->image() != &image) {
                pixels = std::make_unique<DicomPixels>(image);
            }
            if (frame.index == DicomFrame::kEmpty) {
                std::fill_n(target, sliceBytes, static_cast<unsigned char>(0));
            } else {
                pixels->read(frame, window, header().type, _isRescaled, target);
            }
            target += sliceBytes;
            report(progress, static_cast<double>(z - box.first[2] + 1) / static_cast<double>(sides[2]));
        }
    }

    std::vector<DicomImage> _images;
    std::vector<StackSlice> _slices;
    bool _isRescaled;
};

// Whether one type, slope and intercept serve all slices.
bool isUniform(std::vector<DicomImage> const& images, std::vector<StackSlice> const& slices) {
    DicomImage const& first = images[slices.front().image];
    DicomFrame const& firstFrame = first.frames[slices.front().frame];
    return std::all_of(slices.begin(), slices.end(), [&](StackSlice const& slice) {
        DicomFrame const& frame = images[slice.image].frames[slice.frame];
        return images[slice.image].format.type() == first.format.type() && frame.slope == firstFrame.slope &&
               frame.intercept == firstFrame.intercept;
    });
}

void addNotes(std::vector<DicomImage> const& images, std::vector<std::string>& notes) {
    auto const has = [&images](auto const& what) { return std::any_of(images.begin(), images.end(), what); };
    if (has([](DicomImage const& image) { return image.photometric == "MONOCHROME1"; })) {
        notes.emplace_back("values are stored so that low values are bright");
    }
    if (has([](DicomImage const& image) { return image.hasPadding; })) {
        notes.emplace_back("values that fill up the picture around what was measured are left as stored");
    }
    if (has([](DicomImage const& image) { return image.hasSurplus; })) {
        notes.emplace_back("slices hold more bytes than their pixels take; the last ones were left out");
    }
    if (has([](DicomImage const& image) { return image.isDetectorSpacing; })) {
        notes.emplace_back("the spacing is that of the detector; the object is smaller by the magnification");
    }
}

// The values of segments: 1 where each frame holds one of them, and their numbers where one frame holds all.
void addLabels(DicomImage const& image, DicomStack const& stack, VolumeHeader& header) {
    header.isLabelMap = image.isSegmentation;
    if (!image.isSegmentation) {
        return;
    }
    bool const isBinary = image.format.bitsAllocated == 1 || !stack.segments.empty();
    for (auto const& [number, name] : image.segments) {
        LabelName label{isBinary ? 1.0 : static_cast<double>(number), name};
        for (std::size_t frame = 0; frame < stack.segments.size(); ++frame) {
            if (stack.segments[frame] == std::to_string(number)) {
                label.frame = static_cast<std::int64_t>(frame);
            }
        }
        header.labels.push_back(std::move(label));
    }
}

// Returns the type of values that were rescaled slice by slice: float32, whose 24 bits hold any stored number of 16
// bits, while slopes are rounded to fewer digits than that; float64 for wider numbers.
ScalarType rescaledType(std::vector<DicomImage> const& images) {
    bool const isWide = std::any_of(images.begin(), images.end(), [](DicomImage const& image) {
        return bytesOf(image.format.type()) > 2 && image.format.type() != ScalarType::Float32;
    });
    return isWide ? ScalarType::Float64 : ScalarType::Float32;
}

VolumeHeader describe(std::vector<DicomImage> const& images, DicomStack const& stack, bool isSame) {
    DicomImage const& first = images[stack.slices.front().image];
    DicomFrame const& frame = first.frames[stack.slices.front().frame];
    VolumeHeader header;
    header.format = first.syntax.encoding == FrameEncoding::Native ? "DICOM" : "DICOM, " + first.syntax.name;
    header.size = {first.columns, first.rows, static_cast<std::int64_t>(stack.slices.size())};
    header.geometry = stack.geometry;
    header.type = isSame ? first.format.type() : rescaledType(images);
    header.slope = isSame ? frame.slope : 1;
    header.intercept = isSame ? frame.intercept : 0;
    header.valueUnit = first.valueUnit;
    header.frames = stack.frames;
    header.frame = stack.frame;
    header.notes = stack.notes;
    addLabels(first, stack, header);
    auto const empty = std::count_if(stack.slices.begin(), stack.slices.end(), [&images](StackSlice const& slice) {
        return images[slice.image].frames[slice.frame].index == DicomFrame::kEmpty;
    });
    if (empty > 0) {
        header.notes.push_back("the file holds no frame for " + std::to_string(empty) +
                               " of the slices: the segment is empty there");
    }
    addNotes(images, header.notes);
    if (!isSame) {
        header.notes.emplace_back("slices are rescaled each in its own way; values are the rescaled ones");
    }
    return header;
}

std::unique_ptr<VolumeFile> openImages(VolumeSource const& source, DicomFolder folder) {
    static_cast<void>(chooseOne(source.path, "channel", 1, source.channel));
    if (folder.images.empty()) {
        throw Error(source.path, "expected DICOM slices, found no file with pixels");
    }
    ChosenSeries series = pickSeries(source, std::move(folder.images));
    for (DicomImage& image : series.images) {
        checkReadable(image);
        addEmptyFrames(image);
    }
    DicomStack stack = stackSlices(source, series.images);
    bool const isSame = isUniform(series.images, stack.slices);
    VolumeHeader header = describe(series.images, stack, isSame);
    header.series = std::move(series.series);
    header.chosenSeries = series.chosen;
    header.notes.insert(header.notes.end(), folder.notes.begin(), folder.notes.end());
    return std::make_unique<DicomFile>(source.path, std::move(header), std::move(series.images),
                                       std::move(stack.slices), !isSame);
}

// Whether bytes begin a dataset without the 128 bytes and letters that files have before it: an element of group 2 or 8
// whose length makes sense.
bool beginsDataset(std::array<unsigned char, 132> const& bytes, std::size_t count) {
    constexpr std::size_t kLeast = 16;
    bool const isGroup = (bytes[0] == 8 || bytes[0] == 2) && bytes[1] == 0;
    // The elements with which the group may begin: its length, the character set, the type, the class.
    bool const isElement =
        (bytes[2] <= 0x18 || bytes[2] == 0x60) && bytes[3] == 0 && bytes[0] == (bytes[2] > 0x18 ? 8 : bytes[0]);
    bool const isTyped = bytes[4] >= 'A' && bytes[4] <= 'Z' && bytes[5] >= 'A' && bytes[5] <= 'Z';
    bool const isShort = bytes[5] == 0 && bytes[6] == 0 && bytes[7] == 0;
    return count >= kLeast && isGroup && isElement && (isTyped || isShort);
}

} // namespace

std::unique_ptr<VolumeFile> openDicom(VolumeSource const& source, Progress const& progress) {
    if (!isDicom(source.path)) {
        throw Error(source.path, "expected a DICOM file, found none; it is damaged or truncated");
    }
    if (auto const files = readDicomDirectory(source.path)) {
        return openImages(source, readDicomFolder(source.path.parent_path(), *files, progress));
    }
    DicomFolder folder;
    folder.images.push_back(readDicomImage(source.path));
    DicomImage const& image = folder.images.front();
    if (!image.hasPixels) {
        throw Error(source.path, image.claimsPixels
                                     ? "expected pixels, found none; the file is damaged or truncated"
                                     : "expected a volume, found a DICOM file without pixels, such as a report");
    }
    if (image.frames.size() == 1 && image.syntax.encoding != FrameEncoding::Unsupported && image.problem.empty()) {
        throw Error(source.path, "expected a 3-D volume, found a single 2-D slice; give its folder");
    }
    return openImages(source, std::move(folder));
}

std::unique_ptr<VolumeFile> openDicomFolder(VolumeSource const& source, std::vector<fs::path> const& files,
                                            Progress const& progress) {
    return openImages(source, readDicomFolder(source.path, files, progress));
}

bool isDicom(fs::path const& path) {
    std::array<unsigned char, 132> bytes{};
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), bytes.size());
    auto const count = static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0));
    constexpr std::array<unsigned char, 4> kMagic{'D', 'I', 'C', 'M'};
    return (count == bytes.size() && std::equal(kMagic.begin(), kMagic.end(), bytes.begin() + 128)) ||
           beginsDataset(bytes, count);
}

} // namespace tamo::volume
