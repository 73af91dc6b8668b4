// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "VolumeFiles.h"

namespace {

std::string little(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text.push_back(static_cast<char>(value >> (8 * i)));
    }
    return text;
}

// One element with its type spelt out; `OW` has the longer form of length.
std::string element(std::uint32_t group, std::uint32_t number, std::string const& type, std::string value) {
    if (value.size() % 2 != 0) {
        value.push_back(type == "UI" ? '\0' : ' ');
    }
    auto const length = static_cast<std::uint32_t>(value.size());
    return little(group, 2) + little(number, 2) + type +
           (type == "OW" ? std::string(2, '\0') + little(length, 4) : little(length, 2)) + value;
}

std::string sliceFile(Samples const& samples, int z) {
    std::string const syntax = element(2, 0x10, "UI", "1.2.840.10008.1.2.1");
    auto const number = [](int value) { return little(static_cast<std::uint32_t>(value), 2); };
    Samples slice{{samples.size[0], samples.size[1], 1}, {}};
    auto const count = std::ptrdiff_t{samples.size[0]} * samples.size[1];
    slice.values.assign(samples.values.begin() + z * count, samples.values.begin() + (z + 1) * count);
    return std::string(128, '\0') + "DICM" + element(2, 0, "UL", little(static_cast<std::uint32_t>(syntax.size()), 4)) +
           syntax + element(0x20, 0x0D, "UI", "1.2.3") + element(0x20, 0x0E, "UI", "1.2.3.4") +
           element(0x20, 0x13, "IS", std::to_string(z + 1)) +
           element(0x20, 0x32, "DS", "0\\0\\" + std::to_string(3 * z)) + element(0x20, 0x37, "DS", "1\\0\\0\\0\\1\\0") +
           element(0x28, 2, "US", number(1)) + element(0x28, 4, "CS", "MONOCHROME2") +
           element(0x28, 0x10, "US", number(samples.size[1])) + element(0x28, 0x11, "US", number(samples.size[0])) +
           element(0x28, 0x30, "DS", "2\\1") + element(0x28, 0x100, "US", number(16)) +
           element(0x28, 0x101, "US", number(16)) + element(0x28, 0x102, "US", number(15)) +
           element(0x28, 0x103, "US", number(1)) + element(0x7FE0, 0x10, "OW", rawBytes(slice, /*isBigEndian=*/false));
}

} // namespace

void writeDicomFolder(Samples const& samples, std::filesystem::path const& path) {
    std::filesystem::create_directory(path);
    for (int z = 0; z < samples.size[2]; ++z) {
        writeBytes(path / ("IM" + std::to_string(samples.size[2] - z)), sliceFile(samples, z));
    }
}
