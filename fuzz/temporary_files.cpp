// Resource files in a temporary folder, in memory where the system has such a folder.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "harness.h"

namespace fuzz {

namespace fs = std::filesystem;

Resources::Resources() {
    const bool in_memory = access("/dev/shm", W_OK) == 0;
    const fs::path parent = in_memory ? "/dev/shm" : fs::temp_directory_path();
    root_ = parent / ("orvel-fuzz-" + std::to_string(getpid()));
    for (const char* folder : {"Icons", "UI"}) fs::create_directories(path(folder));
    orvel_set_resource_path(root_.c_str());
}

Resources::~Resources() { fs::remove_all(root_); }

void Resources::put(const std::string& file, const std::string& bytes) const {
    std::ofstream out(path(file), std::ios::binary);
    out << bytes;
    require(bool(out.flush()), "cannot write the input");
}

std::string Resources::get(const std::string& file) const {
    std::ifstream in(path(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void Resources::remove(const std::string& file) const { fs::remove(path(file)); }

}  // namespace fuzz
