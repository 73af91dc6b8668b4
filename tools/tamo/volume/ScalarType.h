// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vtkType.h>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace tamo::tool {

struct ScalarType {
    char const* name;
    int vtkType;
    int bytes;
};

inline constexpr std::array<ScalarType, 10> kScalarTypes{{{"uint8", VTK_UNSIGNED_CHAR, 1},
                                                          {"int8", VTK_SIGNED_CHAR, 1},
                                                          {"uint16", VTK_UNSIGNED_SHORT, 2},
                                                          {"int16", VTK_SHORT, 2},
                                                          {"uint32", VTK_UNSIGNED_INT, 4},
                                                          {"int32", VTK_INT, 4},
                                                          {"uint64", VTK_UNSIGNED_LONG_LONG, 8},
                                                          {"int64", VTK_LONG_LONG, 8},
                                                          {"float32", VTK_FLOAT, 4},
                                                          {"float64", VTK_DOUBLE, 8}}};

/// Calls `visit` with a null pointer of the C++ type behind a VTK scalar type; returns what it returns.
/// Throws `std::logic_error` for a type that holds no numbers.
template <typename Visit> decltype(auto) visitScalarType(int vtkType, Visit&& visit) {
    switch (vtkType) {
    case VTK_UNSIGNED_CHAR:
        return visit(static_cast<std::uint8_t const*>(nullptr));
    case VTK_CHAR:
    case VTK_SIGNED_CHAR:
        return visit(static_cast<std::int8_t const*>(nullptr));
    case VTK_UNSIGNED_SHORT:
        return visit(static_cast<std::uint16_t const*>(nullptr));
    case VTK_SHORT:
        return visit(static_cast<std::int16_t const*>(nullptr));
    case VTK_UNSIGNED_INT:
        return visit(static_cast<std::uint32_t const*>(nullptr));
    case VTK_INT:
        return visit(static_cast<std::int32_t const*>(nullptr));
    case VTK_UNSIGNED_LONG:
    case VTK_UNSIGNED_LONG_LONG:
        return visit(static_cast<std::uint64_t const*>(nullptr));
    case VTK_ID_TYPE:
    case VTK_LONG:
    case VTK_LONG_LONG:
        return visit(static_cast<std::int64_t const*>(nullptr));
    case VTK_FLOAT:
        return visit(static_cast<float const*>(nullptr));
    case VTK_DOUBLE:
        return visit(static_cast<double const*>(nullptr));
    default:
        throw std::logic_error("no scalar type");
    }
}

/// Returns the name ("int16", ...) of a VTK scalar type.
inline std::string scalarTypeName(int vtkType) {
    return visitScalarType(vtkType, [](auto const* null) {
        using T = std::remove_cv_t<std::remove_pointer_t<decltype(null)>>;
        std::string const bits = std::to_string(8 * sizeof(T));
        return (std::is_floating_point_v<T> ? "float" : std::is_signed_v<T> ? "int" : "uint") + bits;
    });
}

} // namespace tamo::tool
