// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <new>

namespace tamo::test {

/// Reserves address space that takes no memory until it is written to.
class MappedMemory {
  public:
    enum class Access {
        kAll,
        /// Every access ends the program until `open` allows it.
        kNone,
    };

    /// Throws `std::bad_alloc` where the system grants no such range.
    MappedMemory(std::size_t size, Access access)
        : _size(size), _start(mmap(nullptr, size, access == Access::kAll ? PROT_READ | PROT_WRITE : PROT_NONE,
                                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)) {
        if (_start == MAP_FAILED) {
            throw std::bad_alloc();
        }
    }
    MappedMemory(MappedMemory const&) = delete;
    MappedMemory& operator=(MappedMemory const&) = delete;
    ~MappedMemory() { munmap(_start, _size); }

    [[nodiscard]] static std::size_t pageSize() { return static_cast<std::size_t>(sysconf(_SC_PAGESIZE)); }

    /// Allows access to the page of that number.
    void open(std::size_t page) {
        if (mprotect(bytes() + page * pageSize(), pageSize(), PROT_READ | PROT_WRITE) != 0) {
            throw std::bad_alloc();
        }
    }

    [[nodiscard]] unsigned char* bytes() { return static_cast<unsigned char*>(_start); }

  private:
    std::size_t _size;
    void* _start;
};

} // namespace tamo::test
