# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause
# Fails where a shared library exports anything but the names in a list; usage: exported_symbols.sh LIBRARY [LIST].
# Without a list it prints the names, which is how the list is written after a change of the interface:
#     sh tests/consumer/exported_symbols.sh build/dev/src/libTAMO.so >tests/consumer/exported_symbols.txt
# A name stands for all symbols that callers spell alike: compilers differ in how many variants of a constructor they
# make, and whether a vtable is weak.
set -eu
export LC_ALL=C
library=$1 list=${2:-}

# nm's letter and the demangled name, as callers write it.
symbols=$(nm --dynamic --defined-only --demangle "$library" | sed -E '
    s/^[0-9a-f]* //
    s/, std::allocator<[^<>]*> >/>/g
    s/> >/>>/g
    s/std::__cxx11::basic_string<char, std::char_traits<char>>/std::string/g
    s/__gnu_cxx::__normal_iterator<[^<>,]* const\*, (std::vector<[^<>]*>)>/\1::const_iterator/g
    s/__gnu_cxx::__normal_iterator<[^<>,]*, (std::vector<[^<>]*>)>/\1::iterator/g')
names=$(echo "$symbols" | sed 's/^. //' | sort -u)
if [ -z "$list" ]; then
    echo "$names"
    exit
fi

faults=$(
    echo "$symbols" | sed -n 's/^u /unique, so the library cannot be unloaded: /p'
    # Ours only name the standard library in what they take, after a bracket.
    echo "$names" | sed -nE 's/^([^(<]*[ *&])?(std|__gnu_cxx)::/of the standard library: &/p'
    echo "$names" | grep -Fxv -f "$list" | sed 's/^/exported, but not in the list: /'
    grep -Fxv -e "$names" "$list" | sed 's/^/in the list, but not exported: /'
)
if [ -n "$faults" ]; then
    echo "$library:" >&2
    echo "$faults" >&2
    echo "where this is meant, see $0 for how to write the list" >&2
    exit 1
fi
