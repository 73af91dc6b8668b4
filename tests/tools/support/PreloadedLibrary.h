// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdlib>
#include <string>

/// Loads a library ahead of the program's own while it lives.
class PreloadedLibrary {
  public:
    explicit PreloadedLibrary(char const* path) {
        setenv("LD_PRELOAD", path, /*overwrite=*/1);
        // The address sanitizer insists on being the first library, though nothing here depends on it.
        char const* const options = std::getenv("ASAN_OPTIONS");
        _options = options == nullptr ? "" : options;
        setenv("ASAN_OPTIONS", (_options + ":verify_asan_link_order=0").c_str(), /*overwrite=*/1);
    }
    ~PreloadedLibrary() {
        unsetenv("LD_PRELOAD");
        setenv("ASAN_OPTIONS", _options.c_str(), /*overwrite=*/1);
    }
    PreloadedLibrary(PreloadedLibrary const&) = delete;
    PreloadedLibrary& operator=(PreloadedLibrary const&) = delete;

  private:
    std::string _options;
};
