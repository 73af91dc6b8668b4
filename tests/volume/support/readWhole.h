// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "volume/Error.h"
#include "volume/VolumeSource.h"
#include "volume/openVolume.h"

#include <filesystem>
#include <string>

/// Returns the source that is a file or folder, and nothing more.
inline tamo::volume::VolumeSource sourceOf(std::filesystem::path const& path) {
    tamo::volume::VolumeSource source;
    source.path = path;
    return source;
}

/// Opens a source and reads all of it.
inline tamo::volume::Volume readWhole(tamo::volume::VolumeSource const& source) {
    auto const file = tamo::volume::openVolume(source, {});
    return file->read(tamo::volume::wholeOf(file->header().size), {});
}

inline tamo::volume::Volume readWhole(std::filesystem::path const& path) { return readWhole(sourceOf(path)); }

/// Returns a voxel's stored value, its indices counted within the box that was read.
inline double valueAt(tamo::volume::Volume const& volume, std::int64_t x, std::int64_t y, std::int64_t z) {
    return visitScalarType(volume.header.type, [&](auto const* null) {
        return static_cast<double>(reinterpret_cast<decltype(null)>(volume.row(y, z))[x]);
    });
}

/// Returns the line of the `Error` that reading all of a source throws, or nothing where it throws none.
inline std::string refusalOf(tamo::volume::VolumeSource const& source) {
    try {
        static_cast<void>(readWhole(source));
    } catch (tamo::volume::Error const& error) {
        return error.what();
    }
    return {};
}

inline std::string refusalOf(std::filesystem::path const& path) { return refusalOf(sourceOf(path)); }
