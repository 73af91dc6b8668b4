// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo::test {

/// Reaches a private member of a class: access is not checked in the arguments of an explicit instantiation.
///
/// `Tag` stands in this namespace, names the pointer's type as `Type` and declares `friend Type access(Tag)`. One
/// explicit instantiation, `template struct PrivateAccess<Tag, &Class::member>`, defines that function.
template <typename Tag, typename Tag::Type Member> struct PrivateAccess {
    friend typename Tag::Type access(Tag /*tag*/) { return Member; }
};

} // namespace tamo::test
