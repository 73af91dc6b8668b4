// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../terminal/QuietLibraries.h"
#include "../terminal/UserError.h"
#include "VolumeFormats.h"
#include "VoxelFile.h"

#include <vtkCallbackCommand.h>
#include <vtkDataArray.h>
#include <vtkErrorCode.h>
#include <vtkMatrix3x3.h>
#include <vtkMatrix4x4.h>
#include <vtkNIFTIImageHeader.h>
#include <vtkNIFTIImageReader.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkXMLImageDataReader.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string_view>

namespace tamo::tool {

namespace {

void showProgress(vtkObject* caller, unsigned long, void* progress, void*) {
    static_cast<Progress*>(progress)->update(static_cast<vtkAlgorithm*>(caller)->GetProgress());
}

// Runs a VTK reader to its end; returns whether it and everything below it went without an error.
bool update(vtkAlgorithm& reader, Progress& progress) {
    vtkNew<vtkCallbackCommand> command;
    command->SetCallback(showProgress);
    command->SetClientData(&progress);
    auto const observer = reader.AddObserver(vtkCommand::ProgressEvent, command);
    QuietLibraries const quiet;
    reader.Update();
    reader.RemoveObserver(observer);
    return !quiet.hasVtkError() && reader.GetErrorCode() == vtkErrorCode::NoError;
}

[[noreturn]] void throwDamaged(std::filesystem::path const& path, std::string const& format) {
    throw UserError(path.string() + ": expected a complete " + format +
                    " volume; the file is damaged, truncated or of an unsupported kind");
}

Volume makeVolume(vtkImageData* image, std::string const& format, std::filesystem::path const& path) {
    vtkDataArray const* const scalars = image->GetPointData()->GetScalars();
    if (scalars == nullptr || scalars->GetNumberOfTuples() != image->GetNumberOfPoints() ||
        image->GetNumberOfPoints() == 0) {
        throwDamaged(path, format);
    }
    Volume volume;
    volume.image = image;
    volume.format = format;
    image->GetDimensions(volume.size.data());
    image->GetSpacing(volume.spacing.data());
    return volume;
}

// Takes the direction cosines from the columns of a matrix, whatever their lengths.
template <typename Matrix> void setAxes(Volume& volume, Matrix const& matrix) {
    for (int axis = 0; axis < 3; ++axis) {
        Vector3 const column{matrix.GetElement(0, axis), matrix.GetElement(1, axis), matrix.GetElement(2, axis)};
        double const length = std::hypot(column[0], column[1], column[2]);
        for (std::size_t i = 0; i < 3; ++i) {
            volume.axes[static_cast<std::size_t>(axis)][i] = column[i] / length;
        }
    }
}

// Turns slices that VTK has put into reverse order, so that its axes are right-handed, back into that of the file.
void reverseSlices(Volume& volume) {
    auto const sliceBytes = static_cast<std::ptrdiff_t>(voxelBytes(volume)) / volume.size[2];
    for (int z = 0; z < volume.size[2] / 2; ++z) {
        unsigned char* const slice = rowAddress(*volume.image, 0, z);
        std::swap_ranges(slice, slice + sliceBytes, rowAddress(*volume.image, 0, volume.size[2] - 1 - z));
    }
    for (double& component : volume.axes[2]) {
        component = -component;
    }
}

// Returns whether its first bytes say so, as VTK asks: a name may lie.
bool isGzipFile(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return file.get() == 0x1F && file.get() == 0x8B;
}

// Returns whether the file's closing tag stands at its end: VTK stops reading where the voxels begin.
bool hasClosingTag(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string end(static_cast<std::size_t>(std::min<std::streamoff>(file.tellg(), 64)), ' ');
    file.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
    file.read(end.data(), static_cast<std::streamsize>(end.size()));
    end.erase(end.find_last_not_of(" \t\r\n") + 1);
    constexpr std::string_view kTag = "</VTKFile>";
    return end.size() >= kTag.size() && end.compare(end.size() - kTag.size(), kTag.size(), kTag) == 0;
}

} // namespace

Volume readNifti(std::filesystem::path const& path, Progress& progress) {
    if (isGzipFile(path)) {
        // VTK does not look at the check sum, and a stream that ends early need not miss a voxel.
        checkGzipFile(path);
    }
    vtkNew<vtkNIFTIImageReader> reader;
    reader->SetFileName(path.c_str());
    if (!update(*reader, progress)) {
        throwDamaged(path, "NIfTI");
    }
    Volume volume = makeVolume(reader->GetOutput(), "NIfTI", path);
    if (reader->GetTimeDimension() > 1) {
        throw UserError(path.string() + ": expected one volume, found a series of " +
                        std::to_string(reader->GetTimeDimension()));
    }
    // The reader hands out stored values; a slope of 0 or NaN means that the file does not scale
    // them.
    bool const isFinite = std::isfinite(reader->GetRescaleSlope()) && std::isfinite(reader->GetRescaleIntercept());
    if (isFinite && reader->GetRescaleSlope() != 0.0) {
        volume.slope = reader->GetRescaleSlope();
        volume.intercept = reader->GetRescaleIntercept();
    }
    vtkMatrix4x4* const matrix =
        reader->GetSFormMatrix() != nullptr ? reader->GetSFormMatrix() : reader->GetQFormMatrix();
    if (matrix != nullptr && matrix->Determinant() != 0.0) {
        setAxes(volume, *matrix);
    }
    if (reader->GetQFac() < 0) {
        reverseSlices(volume);
    }
    return volume;
}

Volume readVti(std::filesystem::path const& path, Progress& progress) {
    vtkNew<vtkXMLImageDataReader> reader;
    reader->SetFileName(path.c_str());
    if (!hasClosingTag(path) || !update(*reader, progress)) {
        throwDamaged(path, "VTK image data");
    }
    Volume volume = makeVolume(reader->GetOutput(), "VTK image data", path);
    setAxes(volume, *reader->GetOutput()->GetDirectionMatrix());
    return volume;
}

} // namespace tamo::tool
