# SPDX-FileCopyrightText: The TAMO authors
# SPDX-License-Identifier: BSD-3-Clause
# Fails where the library needs anything at run time but libGL and what every C++ program needs.
set -eu
needed=$(LC_ALL=C readelf -d "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
foreign=$(echo "$needed" | grep -v -e '^libstdc++\.so' -e '^libm\.so' -e '^libgcc_s\.so' -e '^libc\.so' -e '^ld-linux')
if [ "$foreign" != libGL.so.1 ]; then
    echo "$1 needs: $(echo $foreign); expected libGL.so.1 alone" >&2
    exit 1
fi
