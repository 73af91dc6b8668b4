// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* bytes, std::size_t count);

namespace {

// Runs one input; tells its name first, as a fault ends the program.
bool replay(std::filesystem::path const& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        std::cerr << file.string() << ": expected a file or a folder of inputs\n";
        return false;
    }
    std::cout << file.string() << std::endl;
    std::string const input{std::istreambuf_iterator<char>(stream), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<unsigned char const*>(input.data()), input.size());
    return true;
}

} // namespace

// Runs a fuzzer's entry point with the inputs in the given files and folders, without libFuzzer.
int main(int argc, char** argv) {
    std::vector<std::filesystem::path> inputs;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            inputs.emplace_back(argv[i]);
            continue;
        }
        for (auto const& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
            if (entry.is_regular_file()) {
                inputs.push_back(entry.path());
            }
        }
    }
    if (inputs.empty()) {
        std::cerr << "replay: expected files or folders with at least one input\n";
        return 1;
    }
    if (!std::all_of(inputs.begin(), inputs.end(), replay)) {
        return 1;
    }
    std::cout << inputs.size() << " inputs\n";
    return 0;
}
