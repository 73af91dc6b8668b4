// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>

// Loaded before the C library, this is a file system that has no files without a name, as those of many networks.
extern "C" __attribute__((visibility("default"))) int open(char const* path, int flags, ...) {
    if ((flags & O_TMPFILE) == O_TMPFILE) {
        errno = EOPNOTSUPP;
        return -1;
    }
    std::va_list arguments;
    va_start(arguments, flags);
    unsigned int const mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned int) : 0;
    va_end(arguments);
    using Open = int (*)(char const*, int, ...);
    return reinterpret_cast<Open>(dlsym(RTLD_NEXT, "open"))(path, flags, mode);
}

// And, where it is asked for, one that presses Ctrl-C as soon as a file is made, before its maker knows its name.
extern "C" __attribute__((visibility("default"))) int mkostemp(char* pattern, int flags) {
    using Mkostemp = int (*)(char*, int);
    int const descriptor = reinterpret_cast<Mkostemp>(dlsym(RTLD_NEXT, "mkostemp"))(pattern, flags);
    if (std::getenv("TAMO_TEST_EARLY_CTRL_C") != nullptr) {
        raise(SIGINT);
    }
    return descriptor;
}
