// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <type_traits>

namespace tamo::volume {

/// The numbers that voxels may be.
enum class ScalarType {
    UInt8,
    Int8,
    UInt16,
    Int16,
    UInt32,
    Int32,
    UInt64,
    Int64,
    Float32,
    Float64
};

/// Describes a type of `kScalarTypes`.
struct ScalarTypeInfo {
    /// As users write it: "uint8", ..., "float64".
    std::string_view name;
    ScalarType type;
    int bytes;
};

/// All types, in the order of `ScalarType`.
inline constexpr std::array<ScalarTypeInfo, 10> kScalarTypes{{{"uint8", ScalarType::UInt8, 1},
                                                              {"int8", ScalarType::Int8, 1},
                                                              {"uint16", ScalarType::UInt16, 2},
                                                              {"int16", ScalarType::Int16, 2},
                                                              {"uint32", ScalarType::UInt32, 4},
                                                              {"int32", ScalarType::Int32, 4},
                                                              {"uint64", ScalarType::UInt64, 8},
                                                              {"int64", ScalarType::Int64, 8},
                                                              {"float32", ScalarType::Float32, 4},
                                                              {"float64", ScalarType::Float64, 8}}};

/// Returns the type's name.
constexpr std::string_view nameOf(ScalarType type) { return kScalarTypes.at(static_cast<std::size_t>(type)).name; }

/// Returns the number of bytes that one number takes.
constexpr int bytesOf(ScalarType type) { return kScalarTypes.at(static_cast<std::size_t>(type)).bytes; }

/// Calls `visit` with a null pointer of the C++ type, `std::uint8_t const*` and so on; returns what it returns.
template <typename Visit> decltype(auto) visitScalarType(ScalarType type, Visit&& visit) {
    switch (type) {
    case ScalarType::UInt8:
        return visit(static_cast<std::uint8_t const*>(nullptr));
    case ScalarType::Int8:
        return visit(static_cast<std::int8_t const*>(nullptr));
    case ScalarType::UInt16:
        return visit(static_cast<std::uint16_t const*>(nullptr));
    case ScalarType::Int16:
        return visit(static_cast<std::int16_t const*>(nullptr));
    case ScalarType::UInt32:
        return visit(static_cast<std::uint32_t const*>(nullptr));
    case ScalarType::Int32:
        return visit(static_cast<std::int32_t const*>(nullptr));
    case ScalarType::UInt64:
        return visit(static_cast<std::uint64_t const*>(nullptr));
    case ScalarType::Int64:
        return visit(static_cast<std::int64_t const*>(nullptr));
    case ScalarType::Float32:
        return visit(static_cast<float const*>(nullptr));
    case ScalarType::Float64:
        return visit(static_cast<double const*>(nullptr));
    }
    throw std::logic_error("no scalar type");
}

} // namespace tamo::volume
