// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "../Error.h"
#include "../chooseOne.h"
#include "../letterCase.h"
#include "NiftiHeader.h"
#include "StoredFile.h"
#include "VolumeFormats.h"

#include <string>
#include <vector>

namespace tamo::volume {

namespace {

namespace fs = std::filesystem;

// Returns the ending from the last dot on, without a ".gz" behind it; "NII" is "nii".
std::string kindOf(fs::path const& path) {
    fs::path const lower(lowerCase(path.filename().string()));
    return lower.extension() == ".gz" ? lower.stem().extension().string() : lower.extension().string();
}

// Returns the other file of a pair: the same name with another ending, in small letters or capitals, packed or not.
fs::path partnerOf(fs::path const& path, std::string const& ending) {
    std::string const name = path.filename().string();
    std::string const packed = fs::path(name).extension() == ".gz" || fs::path(name).extension() == ".GZ"
                                   ? fs::path(name).extension().string()
                                   : "";
    std::string const stem = name.substr(0, name.size() - packed.size() - ending.size());
    for (std::string const& last : {packed, std::string(), std::string(".gz"), std::string(".GZ")}) {
        for (std::string const& middle : {ending, upperCase(ending)}) {
            fs::path candidate = path.parent_path() / (stem + middle + last);
            if (fs::is_regular_file(candidate)) {
                return candidate;
            }
        }
    }
    throw Error(path, "expected " + stem + ending + " beside it, found no such file");
}

} // namespace

std::unique_ptr<VolumeFile> openNifti(VolumeSource const& source, Progress const&) {
    std::string const kind = kindOf(source.path);
    fs::path const headerPath = kind == ".img" ? partnerOf(source.path, ".hdr") : source.path;
    NiftiHeader header = readNiftiHeader(headerPath, packingOf(headerPath));
    if (kind == ".nii" && !header.isSingleFile) {
        throw Error(source.path, "expected voxels behind the header, found the header of a pair, " +
                                     header.volume.format + "; name it .hdr, beside its .img");
    }
    VoxelFiles voxels;
    voxels.paths = {header.isSingleFile ? headerPath : kind == ".img" ? source.path : partnerOf(source.path, ".img")};
    voxels.packing = packingOf(voxels.paths[0]);
    voxels.skipped = header.voxelStart;
    voxels.rows = {header.volume.size, header.volume.type, header.isBigEndian};
    voxels.frames = header.volume.frames;
    voxels.check();
    if (std::uint64_t const behind = voxels.bytesBehind(); behind > 0) {
        header.volume.notes.push_back(std::to_string(behind) + " bytes behind the voxels were left out");
    }
    header.volume.frame = chooseOne(source.path, "frame", header.volume.frames, source.frame);
    return openVoxelFiles(source, std::move(header.volume), std::move(voxels));
}

} // namespace tamo::volume
