// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "TestFormats.h"

#include "headerWords.h"
#include "packed.h"
#include "support/files/fileContent.h"

namespace {

namespace fs = std::filesystem;

std::string const kBigEndian = "BinaryDataByteOrderMSB = True\n";
std::string const kPacked = "CompressedData = True\n";
std::string const kText = "BinaryData = False\n";

std::string geometryOf(Phantom const& phantom) {
    return "ElementSpacing = " + joined(phantom.spacing, " ") + "\nOffset = " + joined(phantom.origin, " ") +
           "\nTransformMatrix = " + joined(phantom.axes[0], " ") + " " + joined(phantom.axes[1], " ") + " " +
           joined(phantom.axes[2], " ") + "\n";
}

std::string headerOf(Phantom const& phantom, std::string const& fields, std::string const& data) {
    return "ObjectType = Image\nNDims = 3\nDimSize = " + joined(phantom.size, " ") + "\n" + geometryOf(phantom) +
           "ElementType = MET_SHORT\n" + fields + "ElementDataFile = " + data + "\n";
}

void writeLocal(fs::path const& folder, Phantom const& phantom, std::string const& fields, std::string const& voxels) {
    writeFile(folder / "a.mha", headerOf(phantom, fields, "LOCAL") + voxels);
}

TestFormat local(std::string const& name, std::string const& fields, std::string (*pack)(Phantom const&)) {
    return {name, "a.mha", [=](Phantom const& phantom, fs::path const& folder) {
                writeLocal(folder, phantom, fields, pack(phantom));
            }};
}

std::string little(Phantom const& phantom) { return bytesOf(phantom); }
std::string big(Phantom const& phantom) { return bytesOf(phantom, /*isBigEndian=*/true); }
std::string packed(Phantom const& phantom) { return zlibbed(bytesOf(phantom)); }

void writeDetached(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.mhd", headerOf(phantom, "HeaderSize = -1\n", "a.raw"));
    writeFile(folder / "a.raw", bytesOf(phantom));
}

void writePackedDetached(Phantom const& phantom, fs::path const& folder) {
    std::string const voxels = packed(phantom);
    writeFile(folder / "a.mhd",
              headerOf(phantom, kPacked + "CompressedDataSize = " + std::to_string(voxels.size()) + "\n", "a.zraw"));
    writeFile(folder / "a.zraw", voxels);
}

// Writes each slice into a file of its own, and returns their names, one per line.
std::string writeSlices(Phantom const& phantom, fs::path const& folder, std::string (*pack)(std::string const&)) {
    std::string names;
    for (int z = 0; z < phantom.size[2]; ++z) {
        std::string const name = "s" + std::string(z < 10 ? "00" : "0") + std::to_string(z) + ".raw";
        writeFile(folder / name, pack(partOf(bytesOf(phantom), z, phantom.size[2])));
        names += name + "\n";
    }
    return names;
}

std::string bare(std::string const& bytes) { return bytes; }

void writeList(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.mhd", headerOf(phantom, "", "LIST") + writeSlices(phantom, folder, bare));
}

void writePackedList(Phantom const& phantom, fs::path const& folder) {
    writeFile(folder / "a.mhd", headerOf(phantom, kPacked, "LIST 2") + writeSlices(phantom, folder, zlibbed));
}

void writePattern(Phantom const& phantom, fs::path const& folder) {
    writeSlices(phantom, folder, bare);
    writeFile(folder / "a.mhd", headerOf(phantom, "", "s%03d.raw 0 " + std::to_string(phantom.size[2] - 1)));
}

// A single frame of four axes.
void writeFrame(Phantom const& phantom, fs::path const& folder) {
    auto const& axes = phantom.axes;
    writeFile(folder / "a.mha", "NDims = 4\nDimSize = " + joined(phantom.size, " ") + " 1\nElementSpacing = " +
                                    joined(phantom.spacing, " ") + " 0.5\nPosition = " + joined(phantom.origin, " ") +
                                    " 7\nRotation = " + joined(axes[0], " ") + " 0 " + joined(axes[1], " ") + " 0 " +
                                    joined(axes[2], " ") + " 0 0 0 0 1\nElementType = MET_SHORT\n" +
                                    "ElementDataFile = LOCAL\n" + bytesOf(phantom));
}

} // namespace

std::vector<TestFormat> metaImageFormats() {
    TestFormat text = local("MetaImageText", kText, numbersOf);
    text.hasLooseEnd = true;
    return {local("MetaImage", "", little),
            local("MetaImageBigEndian", kBigEndian, big),
            local("MetaImagePacked", kPacked, packed),
            text,
            {"MetaImageDetached", "a.mhd", writeDetached},
            {"MetaImagePackedDetached", "a.mhd", writePackedDetached},
            {"MetaImageList", "a.mhd", writeList},
            {"MetaImagePackedList", "a.mhd", writePackedList},
            {"MetaImagePattern", "a.mhd", writePattern},
            {"MetaImageFrame", "a.mha", writeFrame}};
}
