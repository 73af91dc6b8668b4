// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include "../objects/Configurations.h"

#include <tamo/geometry/GLtVec3.h>
#include <tamo/objects/GLObjectList.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>

namespace tamo {

/// Returns whether the arguments describe a scan; `wrapGlobal` and `getGLDataInfo` refuse the same ones.
inline bool isScannable(unsigned char const* data, unsigned int step, GLtVec3<int> const& extent,
                        GLObjectList const& objects) {
    auto const fits = [step](int side) { return step <= static_cast<unsigned int>(side); };
    return objects.size() == kConfigurationCount && step != 0 && fits(extent.x) && fits(extent.y) && fits(extent.z) &&
           data != nullptr;
}

/// Returns an image's address increments, of whatever integer type, as a scan takes them; nothing where one of them
/// does not fit.
template <typename T> std::optional<GLtVec3<int>> scanIncrements(GLtVec3<T> const& increments) {
    auto const fits = [](T increment) {
        if constexpr (std::is_signed_v<T>) {
            auto const wide = static_cast<std::int64_t>(increment);
            return wide >= std::numeric_limits<int>::min() && wide <= std::numeric_limits<int>::max();
        } else {
            return increment <= static_cast<unsigned int>(std::numeric_limits<int>::max());
        }
    };
    if (!fits(increments.x) || !fits(increments.y) || !fits(increments.z)) {
        return std::nullopt;
    }
    return GLtVec3<int>(static_cast<int>(increments.x), static_cast<int>(increments.y), static_cast<int>(increments.z));
}

} // namespace tamo
