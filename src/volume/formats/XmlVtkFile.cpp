// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "VolumeFormats.h"

#include <vtkCommand.h>
#include <vtkDataArray.h>
#include <vtkErrorCode.h>
#include <vtkImageData.h>
#include <vtkMatrix3x3.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkOutputWindow.h>
#include <vtkPointData.h>
#include <vtkSmartPointer.h>
#include <vtkXMLImageDataReader.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <fstream>
#include <mutex>
#include <string_view>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

// Takes what VTK would print, and remembers whether it was an error.
class SilentWindow : public vtkOutputWindow {
  public:
    static SilentWindow* New();
    void DisplayText(char const*) override {}
    void DisplayErrorText(char const*) override { hasError = true; }
    void DisplayWarningText(char const*) override {}
    void DisplayGenericWarningText(char const*) override {}
    void DisplayDebugText(char const*) override {}

    bool hasError = false;
};

vtkStandardNewMacro(SilentWindow);

// Puts a silent window in the place of VTK's own while it lives. There is one for all of VTK, and parts of its reader
// tell errors to nothing else, so that one reading at a time has it.
class Silence {
  public:
    Silence() : _lock(mutex()), _before(vtkOutputWindow::GetInstance()) { vtkOutputWindow::SetInstance(_window); }
    ~Silence() { vtkOutputWindow::SetInstance(_before); }
    Silence(Silence const&) = delete;
    Silence& operator=(Silence const&) = delete;

    [[nodiscard]] bool hasError() const { return _window->hasError; }

  private:
    static std::mutex& mutex() {
        static std::mutex instance;
        return instance;
    }

    std::lock_guard<std::mutex> _lock;
    vtkNew<SilentWindow> _window;
    vtkSmartPointer<vtkOutputWindow> _before;
};

// Passes VTK's progress on.
class Listener : public vtkCommand {
  public:
    static Listener* New() { return new Listener; }

    void Execute(vtkObject* caller, unsigned long, void*) override {
        auto* const reader = static_cast<vtkAlgorithm*>(caller);
        // VTK is not made for exceptions: they wait until it has come back.
        try {
            if (!cancellation) {
                report(progress, reader->GetProgress());
            }
        } catch (...) {
            cancellation = std::current_exception();
            reader->SetAbortExecute(1);
        }
    }

    Progress progress;
    std::exception_ptr cancellation;
};

[[noreturn]] void throwDamaged(fs::path const& path) {
    throw Error(path, "expected complete VTK image data; the file is damaged, truncated or of an unsupported kind");
}

// Returns whether the file's closing tag stands at its end: VTK stops reading where the voxels begin.
bool hasClosingTag(fs::path const& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string end(static_cast<std::size_t>(std::clamp<std::streamoff>(file.tellg(), 0, 64)), ' ');
    file.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
    file.read(end.data(), static_cast<std::streamsize>(end.size()));
    end.erase(end.find_last_not_of(" \t\r\n") + 1);
    constexpr std::string_view kTag = "</VTKFile>";
    return end.size() >= kTag.size() && end.compare(end.size() - kTag.size(), kTag.size(), kTag) == 0;
}

ScalarType scalarType(vtkDataArray& scalars, fs::path const& path) {
    switch (scalars.GetDataType()) {
    case VTK_UNSIGNED_CHAR:
        return ScalarType::UInt8;
    case VTK_CHAR:
    case VTK_SIGNED_CHAR:
        return ScalarType::Int8;
    case VTK_UNSIGNED_SHORT:
        return ScalarType::UInt16;
    case VTK_SHORT:
        return ScalarType::Int16;
    case VTK_UNSIGNED_INT:
        return ScalarType::UInt32;
    case VTK_INT:
        return ScalarType::Int32;
    case VTK_UNSIGNED_LONG:
    case VTK_UNSIGNED_LONG_LONG:
        return ScalarType::UInt64;
    case VTK_ID_TYPE:
    case VTK_LONG:
    case VTK_LONG_LONG:
        return ScalarType::Int64;
    case VTK_FLOAT:
        return ScalarType::Float32;
    case VTK_DOUBLE:
        return ScalarType::Float64;
    default:
        throw Error(path, "expected voxels that are numbers, found an array of another type");
    }
}

class XmlVtkFile : public VolumeFile {
  public:
    XmlVtkFile(fs::path const& path, VolumeHeader header, vtkSmartPointer<vtkImageData> image)
        : VolumeFile(path, std::move(header)), _image(std::move(image)) {}

  private:
    void readVoxels(Box const& box, unsigned char* target, Progress const& progress) const override {
        Size3 const sides = box.sides();
        auto const voxel = static_cast<std::size_t>(bytesOf(header().type));
        std::size_t const rowBytes = static_cast<std::size_t>(sides[0]) * voxel;
        auto const* const voxels =
            static_cast<unsigned char const*>(_image->GetPointData()->GetScalars()->GetVoidPointer(0));
        Size3 const& size = header().size;
        for (std::int64_t z = 0; z < sides[2]; ++z) {
            for (std::int64_t y = 0; y < sides[1]; ++y, target += rowBytes) {
                std::int64_t const row = (box.first[2] + z) * size[1] + box.first[1] + y;
                std::memcpy(target, voxels + static_cast<std::size_t>(row * size[0] + box.first[0]) * voxel, rowBytes);
            }
            report(progress, static_cast<double>(z + 1) / static_cast<double>(sides[2]));
        }
    }

    vtkSmartPointer<vtkImageData> _image;
};

// Reads the whole file; what its pieces hold is not known before.
vtkSmartPointer<vtkImageData> readImage(fs::path const& path, Progress const& progress) {
    vtkNew<Listener> listener;
    listener->progress = progress;
    vtkNew<vtkXMLImageDataReader> reader;
    reader->SetFileName(path.c_str());
    reader->AddObserver(vtkCommand::ProgressEvent, listener);
    Silence const silence;
    reader->Update();
    if (listener->cancellation) {
        std::rethrow_exception(listener->cancellation);
    }
    vtkImageData* const image = reader->GetOutput();
    vtkDataArray const* const scalars = image->GetPointData()->GetScalars();
    if (silence.hasError() || reader->GetErrorCode() != vtkErrorCode::NoError || scalars == nullptr ||
        scalars->GetNumberOfTuples() != image->GetNumberOfPoints() || image->GetNumberOfPoints() == 0) {
        throwDamaged(path);
    }
    return image;
}

GridGeometry geometryOf(vtkImageData& image, fs::path const& path) {
    GridGeometry geometry;
    std::array<Vector3, 3> steps{};
    for (int axis = 0; axis < 3; ++axis) {
        for (int i = 0; i < 3; ++i) {
            steps[static_cast<std::size_t>(axis)][static_cast<std::size_t>(i)] =
                image.GetDirectionMatrix()->GetElement(i, axis) * image.GetSpacing()[axis];
        }
    }
    if (!geometry.setSteps(steps)) {
        throw Error(path, "expected a direction matrix and a spacing that span space");
    }
    // Files without directions have those of the axes: whether they were stated does not show.
    geometry.areAxesKnown = !image.GetDirectionMatrix()->IsIdentity();
    image.TransformIndexToPhysicalPoint(image.GetExtent()[0], image.GetExtent()[2], image.GetExtent()[4],
                                        geometry.origin.data());
    geometry.isOriginKnown = true;
    return geometry;
}

} // namespace

std::unique_ptr<VolumeFile> openXmlVtk(VolumeSource const& source, Progress const& progress) {
    if (!hasClosingTag(source.path)) {
        throwDamaged(source.path);
    }
    auto image = readImage(source.path, progress);
    VolumeHeader header;
    header.format = "VTK image data";
    int const components = image->GetNumberOfScalarComponents();
    if (components != 1) {
        throw Error(source.path, "expected a volume of one number per voxel, found " + std::to_string(components) +
                                     " components (a colour image?)");
    }
    header.type = scalarType(*image->GetPointData()->GetScalars(), source.path);
    std::copy_n(image->GetDimensions(), 3, header.size.begin());
    header.geometry = geometryOf(*image, source.path);
    return std::make_unique<XmlVtkFile>(source.path, std::move(header), std::move(image));
}

} // namespace tamo::volume
