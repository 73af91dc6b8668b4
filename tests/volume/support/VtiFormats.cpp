// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TestFormats.h"

#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkXMLImageDataWriter.h>

#include <algorithm>

namespace {

void writeVti(Phantom const& phantom, std::filesystem::path const& folder, void (*configure)(vtkXMLImageDataWriter&)) {
    vtkNew<vtkImageData> image;
    image->SetDimensions(phantom.size.data());
    image->SetSpacing(phantom.spacing.data());
    image->SetOrigin(phantom.origin.data());
    auto const& axes = phantom.axes;
    image->SetDirectionMatrix(axes[0][0], axes[1][0], axes[2][0], axes[0][1], axes[1][1], axes[2][1], axes[0][2],
                              axes[1][2], axes[2][2]);
    image->AllocateScalars(VTK_SHORT, 1);
    std::copy(phantom.values.begin(), phantom.values.end(), static_cast<std::int16_t*>(image->GetScalarPointer()));
    vtkNew<vtkXMLImageDataWriter> writer;
    writer->SetInputData(image);
    writer->SetFileName((folder / "a.vti").c_str());
    configure(*writer);
    writer->Write();
}

TestFormat vti(std::string const& name, void (*configure)(vtkXMLImageDataWriter&)) {
    TestFormat format;
    format.name = name;
    format.fileName = "a.vti";
    format.write = [configure](Phantom const& phantom, std::filesystem::path const& folder) {
        writeVti(phantom, folder, configure);
    };
    // VTK reads past its memory where the lengths of compressed blocks, or the sizes of pieces, do not fit.
    format.hasFragileReader = true;
    return format;
}

} // namespace

std::vector<TestFormat> vtiFormats() {
    return {vti("VtiAppended",
                [](vtkXMLImageDataWriter& writer) {
                    writer.SetDataModeToAppended();
                    writer.EncodeAppendedDataOff();
                    writer.SetCompressorTypeToNone();
                }),
            vti("VtiAppendedCompressed",
                [](vtkXMLImageDataWriter& writer) {
                    writer.SetDataModeToAppended();
                    writer.EncodeAppendedDataOn();
                    writer.SetCompressorTypeToZLib();
                }),
            vti("VtiBinaryBigEndian",
                [](vtkXMLImageDataWriter& writer) {
                    writer.SetDataModeToBinary();
                    writer.SetByteOrderToBigEndian();
                }),
            vti("VtiText", [](vtkXMLImageDataWriter& writer) { writer.SetDataModeToAscii(); })};
}
