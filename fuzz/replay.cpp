// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

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
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            if (!replay(argv[i])) {
                return 1;
            }
            ++inputs;
            continue;
        }
        for (auto const& entry : std::filesystem::directory_iterator(argv[i])) {
            if (entry.is_regular_file() && !replay(entry.path())) {
                return 1;
            }
            ++inputs;
        }
    }
    if (inputs == 0) {
        std::cerr << "replay: expected files or folders with at least one input\n";
        return 1;
    }
    std::cout << inputs << " inputs\n";
    return 0;
}
