// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "ByteOrder.h"
#include "ScalarType.h"
#include "UserError.h"
#include "VolumeFormats.h"

#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <unistd.h>

// VTK's own reader of this format takes text for binary voxels and goes on past the end of a truncated file.

namespace {

using namespace tamo;
namespace fs = std::filesystem;

struct Header {
    std::map<std::string, std::string> fields;
    /// Where attached voxels begin.
    std::uint64_t end = 0;
};

[[noreturn]] void fail(fs::path const& path, std::string const& expected) {
    throw UserError(path.string() + ": expected " + expected);
}

std::string trimmed(std::string const& text) {
    auto const first = text.find_first_not_of(" \t\r");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/// Spells fields that have two names in one way.
std::string fieldName(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    static std::map<std::string, std::string> const kSynonyms{
        {"datafile", "data file"}, {"lineskip", "line skip"}, {"byteskip", "byte skip"}};
    auto const synonym = kSynonyms.find(name);
    return synonym == kSynonyms.end() ? name : synonym->second;
}

Header readHeader(fs::path const& path) {
    std::ifstream file(path, std::ios::binary);
    std::string line;
    if (!std::getline(file, line) || line.compare(0, 4, "NRRD") != 0) {
        fail(path, "a NRRD file, which begins with \"NRRD\"");
    }
    Header header;
    while (std::getline(file, line) && !trimmed(line).empty()) {
        auto const colon = line.find(": ");
        if (line[0] != '#' && colon != std::string::npos) {
            header.fields[fieldName(line.substr(0, colon))] = trimmed(line.substr(colon + 2));
        }
    }
    if (file) {
        header.end = static_cast<std::uint64_t>(file.tellg());
    } else if (header.fields.count("data file") == 0) {
        fail(path, "a complete NRRD header, which ends with an empty line");
    }
    return header;
}

std::string field(Header const& header, std::string const& name, fs::path const& path) {
    auto const found = header.fields.find(name);
    if (found == header.fields.end()) {
        fail(path, "the NRRD field \"" + name + "\"");
    }
    return found->second;
}

int scalarType(std::string const& name, fs::path const& path) {
    static std::map<std::string, int> const kTypes{{"signed char", VTK_SIGNED_CHAR},
                                                   {"int8", VTK_SIGNED_CHAR},
                                                   {"int8_t", VTK_SIGNED_CHAR},
                                                   {"uchar", VTK_UNSIGNED_CHAR},
                                                   {"unsigned char", VTK_UNSIGNED_CHAR},
                                                   {"uint8", VTK_UNSIGNED_CHAR},
                                                   {"uint8_t", VTK_UNSIGNED_CHAR},
                                                   {"short", VTK_SHORT},
                                                   {"short int", VTK_SHORT},
                                                   {"signed short", VTK_SHORT},
                                                   {"signed short int", VTK_SHORT},
                                                   {"int16", VTK_SHORT},
                                                   {"int16_t", VTK_SHORT},
                                                   {"ushort", VTK_UNSIGNED_SHORT},
                                                   {"unsigned short", VTK_UNSIGNED_SHORT},
                                                   {"unsigned short int", VTK_UNSIGNED_SHORT},
                                                   {"uint16", VTK_UNSIGNED_SHORT},
                                                   {"uint16_t", VTK_UNSIGNED_SHORT},
                                                   {"int", VTK_INT},
                                                   {"signed int", VTK_INT},
                                                   {"int32", VTK_INT},
                                                   {"int32_t", VTK_INT},
                                                   {"uint", VTK_UNSIGNED_INT},
                                                   {"unsigned int", VTK_UNSIGNED_INT},
                                                   {"uint32", VTK_UNSIGNED_INT},
                                                   {"uint32_t", VTK_UNSIGNED_INT},
                                                   {"longlong", VTK_LONG_LONG},
                                                   {"long long", VTK_LONG_LONG},
                                                   {"long long int", VTK_LONG_LONG},
                                                   {"signed long long", VTK_LONG_LONG},
                                                   {"signed long long int", VTK_LONG_LONG},
                                                   {"int64", VTK_LONG_LONG},
                                                   {"int64_t", VTK_LONG_LONG},
                                                   {"ulonglong", VTK_UNSIGNED_LONG_LONG},
                                                   {"unsigned long long", VTK_UNSIGNED_LONG_LONG},
                                                   {"unsigned long long int", VTK_UNSIGNED_LONG_LONG},
                                                   {"uint64", VTK_UNSIGNED_LONG_LONG},
                                                   {"uint64_t", VTK_UNSIGNED_LONG_LONG},
                                                   {"float", VTK_FLOAT},
                                                   {"double", VTK_DOUBLE}};
    auto const type = kTypes.find(name);
    if (type == kTypes.end()) {
        fail(path, "a scalar NRRD type, found \"" + name + "\"");
    }
    return type->second;
}

Size3 sizes(Header const& header, fs::path const& path) {
    if (field(header, "dimension", path) != "3") {
        fail(path,
             "a volume of one scalar a voxel (NRRD dimension 3), found dimension " + field(header, "dimension", path));
    }
    auto const kinds = header.fields.find("kinds");
    for (std::string const word : {"color", "vector", "normal", "complex", "list", "point"}) {
        if (kinds != header.fields.end() && kinds->second.find(word) != std::string::npos) {
            fail(path, "a volume of one scalar a voxel, found the NRRD kinds \"" + kinds->second + "\"");
        }
    }
    Size3 size{};
    std::istringstream text(field(header, "sizes", path));
    for (int& side : size) {
        if (!(text >> side) || side < 1) {
            fail(path, "three positive NRRD sizes, found \"" + text.str() + "\"");
        }
    }
    return size;
}

/// Returns the right, anterior, superior signs of the three space coordinates; all 1 where the space is not a
/// patient's.
Vector3 patientSigns(std::string const& space) {
    bool const isLps = space == "LPS" || space == "left-posterior-superior";
    bool const isLas = space == "LAS" || space == "left-anterior-superior";
    return {isLps || isLas ? -1.0 : 1.0, isLps ? -1.0 : 1.0, 1.0};
}

void applyGeometry(Volume& volume, Header const& header, fs::path const& path) {
    auto const directions = header.fields.find("space directions");
    auto const spacings = header.fields.find("spacings");
    if (directions != header.fields.end()) {
        std::string text = directions->second;
        std::replace_if(
            text.begin(), text.end(), [](char c) { return c == '(' || c == ')' || c == ','; }, ' ');
        std::istringstream numbers(text);
        auto const space = header.fields.find("space");
        Vector3 const signs = patientSigns(space == header.fields.end() ? "" : space->second);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            Vector3 vector{};
            if (!(numbers >> vector[0] >> vector[1] >> vector[2])) {
                fail(path, "three NRRD space directions, found \"" + directions->second + "\"");
            }
            volume.spacing[axis] = std::hypot(vector[0], vector[1], vector[2]);
            for (std::size_t i = 0; i < 3; ++i) {
                volume.axes[axis][i] = signs[i] * vector[i] / volume.spacing[axis];
            }
        }
    } else if (spacings != header.fields.end()) {
        std::istringstream numbers(spacings->second);
        for (double& spacing : volume.spacing) {
            std::string word;
            numbers >> word;
            spacing = std::strtod(word.c_str(), nullptr);
            // A size that is not known is spelt NaN; a negative one tells a direction that nothing else here knows of.
            spacing = std::isfinite(spacing) && spacing != 0.0 ? std::abs(spacing) : 1.0;
        }
    }
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
    void operator()(gzFile file) const { gzclose(file); }
};

/// Reads the voxels row by row through `read(address, bytes)`, which tells whether it got them all.
template <typename Read> void readRows(Volume& volume, fs::path const& data, Read&& read, Progress& progress) {
    auto const rowBytes = static_cast<unsigned int>(volume.size[0] * volume.image->GetScalarSize());
    for (int z = 0; z < volume.size[2]; ++z) {
        for (int y = 0; y < volume.size[1]; ++y) {
            if (!read(rowAddress(*volume.image, y, z), rowBytes)) {
                fail(data, std::to_string(voxelBytes(volume)) + " bytes of voxels; the file is damaged or truncated");
            }
        }
        progress.update((z + 1.0) / volume.size[2]);
    }
}

void readPlain(Volume& volume, fs::path const& data, std::uint64_t start, Progress& progress) {
    std::ifstream file(data, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(start));
    auto const read = [&file](unsigned char* row, unsigned int bytes) {
        return static_cast<bool>(file.read(reinterpret_cast<char*>(row), bytes));
    };
    readRows(volume, data, read, progress);
}

/// Reads compressed voxels, which begin at `start`; `skip` counts bytes once they are expanded.
void readGzip(Volume& volume, fs::path const& data, std::uint64_t start, std::uint64_t skip, Progress& progress) {
    std::unique_ptr<std::FILE, CloseFile> const file(std::fopen(data.c_str(), "rb"));
    bool const isPlaced = file && lseek(fileno(file.get()), static_cast<off_t>(start), SEEK_SET) >= 0;
    std::unique_ptr<gzFile_s, CloseFile> const stream(isPlaced ? gzdopen(dup(fileno(file.get())), "rb") : nullptr);
    if (!stream || gzseek(stream.get(), static_cast<z_off_t>(skip), SEEK_CUR) < 0) {
        fail(data, "a readable file of compressed voxels");
    }
    auto const read = [&stream](unsigned char* row, unsigned int bytes) {
        return gzread(stream.get(), row, bytes) == static_cast<int>(bytes);
    };
    readRows(volume, data, read, progress);
}

void readText(Volume& volume, fs::path const& data, std::uint64_t start, Progress& progress) {
    std::ifstream file(data);
    file.seekg(static_cast<std::streamoff>(start));
    visitScalarType(volume.image->GetScalarType(), [&](auto const* null) {
        using T = std::remove_cv_t<std::remove_pointer_t<decltype(null)>>;
        // A character is a number here, not a letter.
        using Number = std::conditional_t<sizeof(T) == 1, int, T>;
        for (int z = 0; z < volume.size[2]; ++z) {
            auto* const slice = reinterpret_cast<T*>(rowAddress(*volume.image, 0, z));
            std::for_each_n(slice, std::ptrdiff_t{volume.size[0]} * volume.size[1], [&](T& voxel) {
                Number number{};
                file >> number;
                voxel = static_cast<T>(number);
            });
            progress.update((z + 1.0) / volume.size[2]);
        }
    });
    if (!file) {
        fail(data, "a number for each voxel; the file is damaged or truncated");
    }
}

std::uint64_t numberField(Header const& header, std::string const& name, fs::path const& path) {
    auto const found = header.fields.find(name);
    if (found == header.fields.end()) {
        return 0;
    }
    if (found->second.find_first_not_of("0123456789") != std::string::npos) {
        fail(path, "a number of at least 0 in the NRRD field \"" + name + "\", found \"" + found->second + "\"");
    }
    return std::stoull(found->second);
}

/// Returns where the voxels begin once `lines` lines past `start` are skipped.
std::uint64_t skipLines(fs::path const& data, std::uint64_t start, std::uint64_t lines) {
    std::ifstream file(data, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(start));
    std::string line;
    while (lines-- > 0 && std::getline(file, line)) {
    }
    return file ? static_cast<std::uint64_t>(file.tellg()) : start;
}

} // namespace

namespace tamo {

Volume readNrrd(fs::path const& path, Progress& progress) {
    Header const header = readHeader(path);
    Volume volume;
    volume.format = "NRRD";
    volume.size = sizes(header, path);
    volume.image = allocateImage(volume.size, scalarType(field(header, "type", path), path), path.string());
    applyGeometry(volume, header, path);

    auto const detached = header.fields.find("data file");
    fs::path const data = detached == header.fields.end() ? path : path.parent_path() / detached->second;
    if (!fs::is_regular_file(data)) {
        fail(path, "one file of voxels that exists, found the NRRD data file \"" + detached->second + "\"");
    }
    std::uint64_t const start =
        skipLines(data, detached == header.fields.end() ? header.end : 0, numberField(header, "line skip", path));

    std::string const encoding = field(header, "encoding", path);
    if (encoding == "raw" || encoding == "gzip" || encoding == "gz") {
        std::uint64_t const skip = numberField(header, "byte skip", path);
        if (encoding == "raw") {
            readPlain(volume, data, start + skip, progress);
        } else {
            readGzip(volume, data, start, skip, progress);
        }
        if (volume.image->GetScalarSize() > 1) {
            bool const isBigEndian = field(header, "endian", path) == "big";
            toNativeOrder(rowAddress(*volume.image, 0, 0), voxelBytes(volume), volume.image->GetScalarSize(),
                          isBigEndian);
        }
    } else if (encoding == "ascii" || encoding == "text" || encoding == "txt") {
        readText(volume, data, start, progress);
    } else {
        fail(path, "the NRRD encoding raw, gzip or ascii, found \"" + encoding + "\"");
    }
    return volume;
}

} // namespace tamo
