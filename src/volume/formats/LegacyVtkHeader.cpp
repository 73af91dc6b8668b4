// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "LegacyVtkHeader.h"

#include "../Error.h"
#include "VtkText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamo::volume {

namespace {

struct VtkType {
    std::string_view name;
    int bits;
    // Nothing for what is no voxel.
    std::optional<ScalarType> type;
};

// As 64-bit machines write them; vtkIdType is cut to 32 bits by VTK itself.
constexpr std::array<VtkType, 15> kTypes{{{"bit", 1, {}},
                                          {"unsigned_char", 8, ScalarType::UInt8},
                                          {"char", 8, ScalarType::Int8},
                                          {"signed_char", 8, ScalarType::Int8},
                                          {"unsigned_short", 16, ScalarType::UInt16},
                                          {"short", 16, ScalarType::Int16},
                                          {"unsigned_int", 32, ScalarType::UInt32},
                                          {"int", 32, ScalarType::Int32},
                                          {"vtkidtype", 32, ScalarType::Int32},
                                          {"unsigned_long", 64, ScalarType::UInt64},
                                          {"long", 64, ScalarType::Int64},
                                          {"vtktypeuint64", 64, ScalarType::UInt64},
                                          {"vtktypeint64", 64, ScalarType::Int64},
                                          {"float", 32, ScalarType::Float32},
                                          {"double", 64, ScalarType::Float64}}};

// The numbers per point of arrays that are vectors and the like. Their lines name a type behind the name.
struct Attribute {
    std::string_view keyword;
    std::int64_t components;
};

constexpr std::array<Attribute, 6> kAttributes{
    {{"vectors", 3}, {"normals", 3}, {"tensors", 9}, {"tensors6", 6}, {"global_ids", 1}, {"edge_flags", 1}}};

// An array of numbers for the points.
struct PointArray {
    enum class Kind {
        Scalars,
        Shares,
        Field
    } kind;
    std::int64_t components;
    std::int64_t tuples;
    VtkType const* type;
    std::uint64_t start;
};

class Parser {
  public:
    Parser(std::filesystem::path const& path, Progress const& progress)
        : _path(path), _text(path), _progress(progress) {}

    LegacyVtkHeader read() {
        readPreamble();
        for (std::string keyword = _text.keyword(); !keyword.empty(); keyword = _text.keyword()) {
            if (!readStructure(keyword) && !readAttribute(keyword)) {
                _text.refuse("a keyword of structured points", keyword);
            }
        }
        choose();
        return _header;
    }

  private:
    void readPreamble() {
        std::string const first = _text.line();
        if (first.rfind("# vtk DataFile Version", 0) != 0) {
            _text.refuse("\"# vtk DataFile Version\" as the first line", first);
        }
        static_cast<void>(_text.line());
        std::string const encoding = _text.keyword();
        if (encoding != "ascii" && encoding != "binary") {
            _text.refuse("ASCII or BINARY in the third line", encoding);
        }
        _header.isText = encoding == "ascii";
        if (std::string const keyword = _text.keyword(); keyword != "dataset") {
            _text.refuse("DATASET", keyword);
        }
        if (std::string const kind = _text.word(); lowerCase(kind) != "structured_points") {
            _text.refuse("a data set of STRUCTURED_POINTS", kind);
        }
    }

    // Reads what says where the points are; false for other keywords.
    bool readStructure(std::string const& keyword) {
        GridGeometry& geometry = _header.volume.geometry;
        if (keyword == "dimensions") {
            _header.volume.size = {_text.whole(1), _text.whole(1), _text.whole(1)};
        } else if (keyword == "extent") {
            for (std::size_t axis = 0; axis < 3; ++axis) {
                _firstIndex[axis] = _text.whole(-kMostIndex);
                std::int64_t const last = _text.whole(_firstIndex[axis]);
                _header.volume.size[axis] = std::min(last, kMostIndex) - _firstIndex[axis] + 1;
            }
        } else if (keyword == "spacing" || keyword == "aspect_ratio") {
            geometry.spacing = {_text.number(), _text.number(), _text.number()};
            geometry.isSpacingKnown = true;
        } else if (keyword == "origin") {
            geometry.origin = {_text.number(), _text.number(), _text.number()};
            geometry.isOriginKnown = true;
        } else if (keyword == "metadata") {
            // Names and units of components, up to an empty line.
            static_cast<void>(_text.line());
            while (!_text.line().empty()) {
            }
        } else if (keyword == "point_data" || keyword == "cell_data") {
            _isOfPoints = keyword == "point_data";
            _tuples = _text.whole(0);
        } else {
            return false;
        }
        return true;
    }

    // Reads the line of an array and steps over its numbers; false for other keywords.
    bool readAttribute(std::string const& keyword) {
        if (keyword == "field") {
            readField();
            return true;
        }
        auto const* const plain = std::find_if(kAttributes.begin(), kAttributes.end(),
                                               [&](Attribute const& known) { return known.keyword == keyword; });
        if (plain != kAttributes.end()) {
            static_cast<void>(_text.word());
            VtkType const& type = readType();
            static_cast<void>(_text.line());
            skip(plain->components, _tuples, type);
        } else if (keyword == "scalars") {
            readScalars();
        } else if (keyword == "color_scalars") {
            static_cast<void>(_text.word());
            std::int64_t const components = _text.whole(1);
            static_cast<void>(_text.line());
            keep({PointArray::Kind::Shares, components, _tuples, &typeOf("unsigned_char"), _text.position()});
        } else if (keyword == "texture_coordinates") {
            static_cast<void>(_text.word());
            std::int64_t const components = _text.whole(1);
            VtkType const& type = readType();
            static_cast<void>(_text.line());
            skip(components, _tuples, type);
        } else if (keyword == "lookup_table") {
            static_cast<void>(_text.word());
            std::int64_t const colours = _text.whole(0);
            static_cast<void>(_text.line());
            skip(/*components=*/4, colours, typeOf("unsigned_char"));
        } else {
            return false;
        }
        return true;
    }

    void readScalars() {
        static_cast<void>(_text.word());
        VtkType const& type = readType();
        // Their number may follow in the same line.
        std::string const rest = _text.line();
        std::int64_t components = 1;
        if (std::size_t const first = rest.find_first_not_of(" \t\r"); first != std::string::npos) {
            if (std::from_chars(rest.data() + first, rest.data() + rest.size(), components).ec != std::errc() ||
                components < 1) {
                _text.refuse("a number of components", rest);
            }
        }
        if (std::string const table = _text.keyword(); table != "lookup_table") {
            _text.refuse("LOOKUP_TABLE", table);
        }
        static_cast<void>(_text.line());
        keep({PointArray::Kind::Scalars, components, _tuples, &type, _text.position()});
    }

    void readField() {
        static_cast<void>(_text.word());
        for (std::int64_t arrays = _text.whole(0); arrays > 0; --arrays) {
            // What precedes an array's name belongs to the array before.
            while (_text.keyword() == "metadata") {
                readStructure("metadata");
            }
            std::int64_t const components = _text.whole(0);
            std::int64_t const tuples = _text.whole(0);
            VtkType const& type = readType();
            static_cast<void>(_text.line());
            keep({PointArray::Kind::Field, components, tuples, &type, _text.position()});
        }
    }

    static VtkType const& typeOf(std::string_view name) {
        return *std::find_if(kTypes.begin(), kTypes.end(), [name](VtkType const& type) { return type.name == name; });
    }

    VtkType const& readType() {
        std::string const name = _text.keyword();
        auto const* const found =
            std::find_if(kTypes.begin(), kTypes.end(), [&name](VtkType const& type) { return type.name == name; });
        if (found == kTypes.end()) {
            _text.refuse("a type of numbers", name);
        }
        return *found;
    }

    void keep(PointArray const& array) {
        skip(array.components, array.tuples, *array.type);
        if (_isOfPoints) {
            _arrays.push_back(array);
        }
    }

    void skip(std::int64_t components, std::int64_t tuples, VtkType const& type) {
        report(_progress, 0);
        // More than any file holds, and small enough to be multiplied by 64.
        constexpr std::int64_t kMost = INT64_MAX / 64;
        bool const isPossible = components == 0 || tuples <= kMost / components;
        std::uint64_t const count = isPossible ? static_cast<std::uint64_t>(components * tuples) : 0;
        if (!isPossible ||
            !(_header.isText ? _text.skipWords(count)
                             : _text.skipBytes((count * static_cast<std::uint64_t>(type.bits) + 7) / 8))) {
            throw Error(_path, "expected " + std::to_string(tuples) + " x " + std::to_string(components) +
                                   " numbers in an array; the file is damaged or truncated");
        }
    }

    void choose() {
        if (_arrays.empty()) {
            throw Error(_path, "expected POINT_DATA with SCALARS or a FIELD, found none; data of cells are no voxels");
        }
        auto chosen = std::find_if(_arrays.begin(), _arrays.end(),
                                   [](PointArray const& array) { return array.kind != PointArray::Kind::Field; });
        chosen = chosen == _arrays.end() ? _arrays.begin() : chosen;
        VolumeHeader& volume = _header.volume;
        if (chosen->components != 1 || !chosen->type->type) {
            throw Error(_path, "expected a volume of one scalar per voxel, found " +
                                   std::to_string(chosen->components) + " of the type " +
                                   std::string(chosen->type->name));
        }
        if (!isCountable(volume.size) || voxelCount(volume.size) != chosen->tuples) {
            throw Error(_path,
                        "expected " + text(volume.size, " x ") + " voxels, found " + std::to_string(chosen->tuples));
        }
        volume.type = *chosen->type->type;
        volume.format = std::string("VTK legacy, ") + (_header.isText ? "ASCII" : "binary");
        if (_arrays.size() > 1) {
            volume.notes.push_back("of " + std::to_string(_arrays.size()) + " arrays of the points only one is read");
        }
        volume.geometry.origin =
            volume.geometry.position({static_cast<double>(_firstIndex[0]), static_cast<double>(_firstIndex[1]),
                                      static_cast<double>(_firstIndex[2])});
        _header.start = chosen->start;
        _header.areShares = _header.isText && chosen->kind == PointArray::Kind::Shares;
    }

    // VTK's own indices have 32 bits.
    static constexpr std::int64_t kMostIndex = INT32_MAX;

    std::filesystem::path const& _path;
    VtkText _text;
    Progress const& _progress;
    LegacyVtkHeader _header;
    // The index of the first point, which the origin is not the place of unless it is 0.
    Size3 _firstIndex{};
    bool _isOfPoints = false;
    std::int64_t _tuples = 0;
    std::vector<PointArray> _arrays;
};

} // namespace

LegacyVtkHeader readLegacyVtkHeader(std::filesystem::path const& path, Progress const& progress) {
    return Parser(path, progress).read();
}

} // namespace tamo::volume
