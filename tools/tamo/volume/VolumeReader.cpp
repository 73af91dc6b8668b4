// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeReader.h"

#include "../terminal/QuietLibraries.h"
#include "../terminal/UserError.h"
#include "VolumeFormats.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <new>
#include <system_error>

namespace tamo::tool {

namespace {

namespace fs = std::filesystem;

bool hasEnding(std::string const& text, std::string const& ending) {
    return text.size() >= ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

using Reader = Volume (*)(fs::path const&, Progress&);

[[noreturn]] Volume refusePicture(fs::path const& path, Progress&) {
    throw UserError(path.string() + ": expected a 3-D volume, found a single 2-D slice; give the folder of the slices");
}

struct Format {
    char const* ending;
    Reader read;
};

constexpr std::array<Format, 11> kFormats{{{".nii", readNifti},
                                           {".nii.gz", readNifti},
                                           {".mha", readMetaImage},
                                           {".mhd", readMetaImage},
                                           {".nrrd", readNrrd},
                                           {".nhdr", readNrrd},
                                           {".vti", readVti},
                                           {".tif", readTiff},
                                           {".tiff", readTiff},
                                           {".png", refusePicture},
                                           {".dcm", refusePicture}}};

Reader findReader(fs::path const& path) {
    std::string name = path.filename().string();
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    auto const format = std::find_if(kFormats.begin(), kFormats.end(),
                                     [&name](Format const& candidate) { return hasEnding(name, candidate.ending); });
    if (format == kFormats.end()) {
        throw UserError(path.string() +
                        ": expected .nii, .nii.gz, .mha, .mhd, .nrrd, .nhdr, .tif, .tiff, .vti, a folder "
                        "of PNG, TIFF or DICOM slices, or --dims and --type for bare voxels");
    }
    return format->read;
}

Volume readAny(VolumeSource const& source, Progress& progress) {
    // A name that is too long, or a folder that may not be entered.
    std::error_code error;
    bool const exists = fs::exists(source.path, error);
    if (error) {
        throw UserError(source.path.string() + ": expected a file or folder that can be read: " + error.message());
    }
    if (!exists) {
        throw UserError(source.path.string() + ": expected a volume, found no such file or folder");
    }
    if (fs::is_directory(source.path) && !source.raw) {
        return readSliceFolder(source.path, progress);
    }
    Reader const read = source.raw ? nullptr : findReader(source.path);
    if (!fs::is_regular_file(source.path) || !std::ifstream(source.path)) {
        throw UserError(source.path.string() + ": expected a file that can be read");
    }
    return source.raw ? readRaw(source.path, *source.raw, progress) : read(source.path, progress);
}

void checkVolume(Volume const& volume, std::string const& path) {
    if (volume.image->GetNumberOfScalarComponents() != 1) {
        throw UserError(path + ": expected a volume of one scalar per voxel, found " +
                        std::to_string(volume.image->GetNumberOfScalarComponents()) + " components (a colour image?)");
    }
    auto const& size = volume.size;
    if (*std::min_element(size.begin(), size.end()) < 2) {
        throw UserError(path + ": expected a 3-D volume, found " + std::to_string(size[0]) + " x " +
                        std::to_string(size[1]) + " x " + std::to_string(size[2]) + " voxels");
    }
    for (double const spacing : volume.spacing) {
        if (!std::isfinite(spacing) || spacing <= 0.0) {
            throw UserError(path + ": expected a positive voxel spacing, found " + std::to_string(spacing) +
                            "; give --spacing");
        }
    }
}

} // namespace

vtkSmartPointer<vtkImageData> allocateImage(Size3 const& size, int vtkType, std::string const& path) {
    auto image = vtkSmartPointer<vtkImageData>::New();
    image->SetDimensions(size[0], size[1], size[2]);
    try {
        QuietLibraries const quiet;
        image->AllocateScalars(vtkType, 1);
    } catch (std::bad_alloc const&) {
        image->Initialize();
    }
    if (image->GetScalarPointer() == nullptr) {
        throw UserError(path + ": expected a volume that fits into memory, found " + std::to_string(size[0]) + " x " +
                        std::to_string(size[1]) + " x " + std::to_string(size[2]) + " voxels");
    }
    return image;
}

std::uint64_t voxelBytes(Volume const& volume) {
    return static_cast<std::uint64_t>(volume.image->GetScalarSize()) * static_cast<std::uint64_t>(volume.size[0]) *
           static_cast<std::uint64_t>(volume.size[1]) * static_cast<std::uint64_t>(volume.size[2]);
}

unsigned char* rowAddress(vtkImageData& image, int y, int z) {
    int const* const extent = image.GetExtent();
    return static_cast<unsigned char*>(image.GetScalarPointer(extent[0], extent[2] + y, extent[4] + z));
}

Volume readVolume(VolumeSource const& source, Progress& progress) {
    Volume volume = [&] {
        try {
            return readAny(source, progress);
        } catch (std::bad_alloc const&) {
            throw UserError(source.path.string() + ": expected a volume that fits into memory");
        }
    }();
    volume.spacing = source.spacing.value_or(volume.spacing);
    checkVolume(volume, source.path.string());
    return volume;
}

} // namespace tamo::tool
