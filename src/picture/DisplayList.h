// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace tamo::picture {

/// Owns an empty display list of the current context; whoever has it compiles into its name.
class DisplayList {
  public:
    /// Throws `PictureError` where the context has no name left.
    DisplayList();
    /// The context has to be current again.
    ~DisplayList();
    DisplayList(DisplayList&& other) noexcept;
    DisplayList& operator=(DisplayList&& other) = delete;

    [[nodiscard]] unsigned int name() const { return _name; }

  private:
    unsigned int _name;
};

} // namespace tamo::picture
