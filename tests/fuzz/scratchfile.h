// SPDX-License-Identifier: MIT
//
// scratchfile: one file in a folder of its own, in memory where the system has such a place: a fuzz
// target writes it thousands of times a second.
//
// State     the folder goes with the object, or with the system's own cleaning after a crash.
// Callers   the fuzz targets that read files.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

class scratchfile {
  public:
    explicit scratchfile(const std::string& name) {
        const bool memory = std::filesystem::is_directory("/dev/shm");
        top = (memory ? "/dev/shm" : std::filesystem::temp_directory_path().string()) +
              "/vexel-fuzz-XXXXXX";
        if (mkdtemp(top.data()) == nullptr) {
            std::abort();
        }
        whole = top + "/" + name;
        std::filesystem::create_directories(std::filesystem::path(whole).parent_path());
    }

    ~scratchfile() {
        std::error_code ignored;
        std::filesystem::remove_all(top, ignored);
    }

    scratchfile(const scratchfile&) = delete;
    scratchfile& operator=(const scratchfile&) = delete;

    const std::string& folder() const { return top; }

    const std::string& path() const { return whole; }

    void write(const std::string& bytes) const {
        std::ofstream(whole, std::ios::binary | std::ios::trunc) << bytes;
    }

    std::string read() const {
        std::ifstream file(whole, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    std::string top;
    std::string whole;
};
