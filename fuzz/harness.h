// What fuzz targets stand on: a check that ends the run, and resource files for the library to
// read.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "orvel.h"

namespace fuzz {

/// Ends the run, which keeps the input as a finding, unless @p held.
inline void require(bool held, const char* what) {
    if (held) return;
    std::fprintf(stderr, "fuzz: %s\n", what);
    std::abort();
}

/// A resource root in memory, where the system has such a folder, for as long as it lives.
class Resources {
public:
    Resources() {
        const bool in_memory = access("/dev/shm", W_OK) == 0;
        const std::filesystem::path parent =
            in_memory ? "/dev/shm" : std::filesystem::temp_directory_path();
        root_ = parent / ("orvel-fuzz-" + std::to_string(getpid()));
        for (const char* folder : {"Icons", "UI"}) {
            std::filesystem::create_directories(root_ / folder);
        }
        orvel_set_resource_path(root_.c_str());
    }
    ~Resources() { std::filesystem::remove_all(root_); }
    Resources(const Resources&) = delete;
    Resources& operator=(const Resources&) = delete;

    /// The path of a file such as "Icons/input.bmp".
    std::string path(const std::string& file) const { return root_ / file; }

    void put(const std::string& file, const std::string& bytes) const {
        std::ofstream out(path(file), std::ios::binary);
        out << bytes;
        require(bool(out.flush()), "cannot write the input");
    }

    std::string get(const std::string& file) const {
        std::ifstream in(path(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path root_;
};

}  // namespace fuzz
