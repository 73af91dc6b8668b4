// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <cstdio>

#include <dlfcn.h>

namespace {

bool isLoaded() {
    void* const library = dlopen(LIBRARY, RTLD_NOW | RTLD_NOLOAD);
    return library && dlclose(library) == 0;
}

char const* findFault() {
    void* const plugin = dlopen(PLUGIN, RTLD_NOW);
    if (!plugin) {
        return dlerror();
    }
    auto const useLibrary = reinterpret_cast<bool (*)()>(dlsym(plugin, "useLibrary"));
    if (!useLibrary || !useLibrary()) {
        return "the plugin could not use the library";
    }
    if (!isLoaded()) {
        return "the plugin uses another library than " LIBRARY;
    }
    dlclose(plugin);
    return isLoaded() ? LIBRARY " stays loaded after the plugin that used it" : nullptr;
}

} // namespace

// A program that loads the library with a plugin gets rid of it with the plugin.
int main() {
    char const* const fault = findFault();
    if (fault) {
        std::fprintf(stderr, "%s\n", fault);
    }
    return fault ? 1 : 0;
}
