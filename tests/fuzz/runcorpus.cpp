// SPDX-License-Identifier: MIT
//
// Runs a fuzz target over the files of the folders that are named, each a case that was of interest
// once: seeds, and what broke and was mended.
#include "fuzz/fuzz.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

void runfile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    std::fprintf(stderr, "%s\n", path.c_str()); // the last one named is the one that fails
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; i++) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
            if (entry.is_regular_file()) {
                runfile(entry.path());
                files++;
            }
        }
    }
    std::printf("%d files\n", files);
    return files > 0 ? 0 : 1; // an empty corpus tests nothing
}
