// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>

namespace tamo::test {

/// Counts the allocations of its lifetime and lets one of them fail.
///
/// Works in programs that link tamoFailingNew, which replaces the global operator new. One at a time, one thread.
/// There, all bytes of a new block are 0xFF.
class FailingNew {
  public:
    /// Lets the `failing`-th allocation from now on, counted from 1, throw `std::bad_alloc`; 0 lets none fail.
    explicit FailingNew(std::size_t failing = 0);
    FailingNew(FailingNew const&) = delete;
    FailingNew& operator=(FailingNew const&) = delete;
    ~FailingNew();

    /// Returns the number of allocations asked for, the failed one included.
    [[nodiscard]] static std::size_t allocations();
    /// Returns the bytes of the allocation asked for last.
    [[nodiscard]] static std::size_t lastSize();
    /// Returns whether the allocation that was to fail was asked for.
    [[nodiscard]] static bool hasFailed();
    /// Returns the number of blocks allocated and not yet freed in the whole program.
    [[nodiscard]] static std::ptrdiff_t liveBlocks();
};

} // namespace tamo::test
