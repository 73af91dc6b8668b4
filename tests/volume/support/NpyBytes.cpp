// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "NpyBytes.h"

#include "support/files/fileContent.h"

#include <cstdint>

std::string npyDictionary(std::string const& descr, bool isFortranOrder, std::string const& shape) {
    return "{'descr': '" + descr + "', 'fortran_order': " + (isFortranOrder ? "True" : "False") +
           ", 'shape': " + shape + ", }";
}

std::string npyHeader(int version, std::string const& dictionary) {
    std::size_t const before = version == 1 ? 10 : 12;
    std::string text = dictionary;
    text.append(63 - (before + text.size()) % 64, ' ');
    text += '\n';
    std::string const length = version == 1 ? numberBytes(static_cast<std::uint16_t>(text.size()))
                                            : numberBytes(static_cast<std::uint32_t>(text.size()));
    return "\x93NUMPY" + std::string(1, static_cast<char>(version)) + std::string(1, '\0') + length + text;
}
