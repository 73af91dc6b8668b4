// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "support/memory/FailingNew.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

bool isArmed = false;
std::size_t failingAllocation = 0;
std::size_t allocationCount = 0;
std::size_t lastAllocation = 0;
std::ptrdiff_t blockCount = 0;

void* allocate(std::size_t size) {
    lastAllocation = size;
    if (isArmed && ++allocationCount == failingAllocation) {
        throw std::bad_alloc();
    }
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    // New memory is often 0 by chance, which would hide that somebody relies on it.
    std::memset(block, 0xFF, size);
    ++blockCount;
    return block;
}

void* allocateOrNull(std::size_t size) noexcept {
    try {
        return allocate(size);
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
}

void release(void* block) noexcept {
    if (block != nullptr) {
        --blockCount;
        std::free(block);
    }
}

} // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
// Those of the standard library end up in the two above; those of a sanitizer do not.
void* operator new(std::size_t size, std::nothrow_t const& /*tag*/) noexcept { return allocateOrNull(size); }
void* operator new[](std::size_t size, std::nothrow_t const& /*tag*/) noexcept { return allocateOrNull(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { release(block); }

namespace tamo::test {

FailingNew::FailingNew(std::size_t failing) {
    failingAllocation = failing;
    allocationCount = 0;
    isArmed = true;
}

FailingNew::~FailingNew() { isArmed = false; }

std::size_t FailingNew::allocations() { return allocationCount; }

std::size_t FailingNew::lastSize() { return lastAllocation; }

bool FailingNew::hasFailed() { return failingAllocation != 0 && allocationCount >= failingAllocation; }

std::ptrdiff_t FailingNew::liveBlocks() { return blockCount; }

} // namespace tamo::test
