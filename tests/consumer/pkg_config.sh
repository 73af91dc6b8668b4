# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause
# Builds and runs consumer.cpp with a bare compiler call; usage: pkg_config.sh COMPILER LIBDIR PROGRAM [--static]
set -eu
compiler=$1 libdir=$2 program=$3 static=${4:-}
export PKG_CONFIG_PATH="$libdir/pkgconfig"
flags=$(pkg-config $static --cflags --libs tamo)
# The flags are words, so they stay unquoted; C++17 is the compilers' own default.
"$compiler" "$(dirname "$0")/consumer.cpp" $flags -o "$program"
LD_LIBRARY_PATH="$libdir" "$program"
