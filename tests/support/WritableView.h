// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/geometry/GLVec3f.h>

#include <type_traits>
#include <utility>

namespace tamo::test {

struct AssignValue {
    template <typename View> auto operator()(View& view) const -> decltype(view = GLVec3f());
};
struct AssignView {
    template <typename View> auto operator()(View& view) const -> decltype(view = std::as_const(view));
};
struct AddValue {
    template <typename View> auto operator()(View& view) const -> decltype(view += GLVec3f());
};
struct SubtractValue {
    template <typename View> auto operator()(View& view) const -> decltype(view -= GLVec3f());
};
struct ScaleBy {
    template <typename View> auto operator()(View& view) const -> decltype(view *= 2.0F);
};

/// True where a copy of `View`, a view of three floats or a reference to one, has any operation that writes to them.
template <typename View, typename Copy = std::decay_t<View>>
constexpr bool kIsCopyWritable =
    std::is_invocable_v<AssignValue, Copy&> || std::is_invocable_v<AssignView, Copy&> ||
    std::is_invocable_v<AddValue, Copy&> || std::is_invocable_v<SubtractValue, Copy&> ||
    std::is_invocable_v<ScaleBy, Copy&> || !std::is_same_v<decltype(std::declval<Copy&>().x()), float> ||
    !std::is_same_v<decltype(std::declval<Copy&>().y()), float> ||
    !std::is_same_v<decltype(std::declval<Copy&>().z()), float>;

} // namespace tamo::test
