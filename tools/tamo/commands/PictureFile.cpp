// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "PictureFile.h"

#include "../terminal/Interruption.h"
#include "../terminal/QuietLibraries.h"
#include "../terminal/UserError.h"

#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPNGWriter.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace tamo::tool {

namespace {

namespace fs = std::filesystem;

// Makes an empty file of a name of its own, which an interruption removes; returns its descriptor, or -1.
int makeUnfinishedFile(std::string& pattern) {
    // Between the two calls an interruption would leave the file behind.
    HeldInterruption const held;
    int const descriptor = mkstemp(pattern.data());
    if (descriptor >= 0) {
        setUnfinishedFile(pattern);
    }
    return descriptor;
}

std::vector<unsigned char> encode(picture::Picture const& picture) {
    vtkNew<vtkImageData> image;
    image->SetDimensions(picture.size.width, picture.size.height, 1);
    image->AllocateScalars(VTK_UNSIGNED_CHAR, 3);
    std::copy(picture.pixels.begin(), picture.pixels.end(), static_cast<unsigned char*>(image->GetScalarPointer()));

    QuietLibraries const quiet;
    vtkNew<vtkPNGWriter> writer;
    writer->SetInputData(image);
    writer->WriteToMemoryOn();
    writer->Write();
    vtkUnsignedCharArray* const bytes = writer->GetResult();
    return {bytes->GetPointer(0), bytes->GetPointer(0) + bytes->GetNumberOfValues()};
}

} // namespace

PictureFile::PictureFile(fs::path path) : _path(std::move(path)) {
    std::error_code ignored;
    if (fs::exists(_path, ignored) && !fs::is_regular_file(_path, ignored)) {
        throw UserError("--output " + _path.string() + ": expected a file, found something else of that name");
    }
    _unfinished = _path.string() + ".XXXXXX";
    int const descriptor = makeUnfinishedFile(_unfinished);
    if (descriptor < 0) {
        throw UserError("--output " + _path.string() + ": expected a folder in which a file can be written");
    }
    // mkstemp lets nobody else read; a picture is as open as any other new file.
    mode_t const mask = umask(0);
    umask(mask);
    fchmod(descriptor, static_cast<mode_t>(0666) & ~mask);
    close(descriptor);
}

PictureFile::~PictureFile() {
    if (!_unfinished.empty()) {
        unlink(_unfinished.c_str());
    }
    setUnfinishedFile("");
}

void PictureFile::write(picture::Picture const& picture) {
    // Through memory: VTK does not tell when the disk is full.
    std::vector<unsigned char> const bytes = encode(picture);
    std::ofstream file(_unfinished, std::ios::binary);
    file.write(reinterpret_cast<char const*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file || std::rename(_unfinished.c_str(), _path.c_str()) != 0) {
        throw UserError("--output " + _path.string() + ": expected room for a picture of " +
                        std::to_string(bytes.size()) + " bytes");
    }
    _unfinished.clear();
}

} // namespace tamo::tool
