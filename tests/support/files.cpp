#include "support/files.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace orvel_test {
namespace {

/// Sends a descriptor to a file for as long as it lives.
class Redirection {
public:
    Redirection(std::FILE* stream, int descriptor, const std::string& path)
        : stream_(stream), descriptor_(descriptor) {
        std::fflush(stream_);
        saved_ = dup(descriptor_);
        std::FILE* file = std::fopen(path.c_str(), "wb");
        if (saved_ < 0 || !file) throw std::runtime_error("cannot capture " + path);
        dup2(fileno(file), descriptor_);
        std::fclose(file);
    }
    ~Redirection() {
        std::fflush(stream_);
        dup2(saved_, descriptor_);
        close(saved_);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

private:
    std::FILE* stream_;
    int descriptor_;
    int saved_;
};

}  // namespace

TempFolder::TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "orvel-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot make " + pattern);
    path_ = pattern;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string read_file(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void write_file(const std::string& path, const std::string& bytes) {
    const auto folder = std::filesystem::path(path).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder);
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

Output captured(const std::function<void()>& call) {
    const TempFolder folder;
    {
        const Redirection error(stderr, STDERR_FILENO, folder / "error");
        const Redirection output(stdout, STDOUT_FILENO, folder / "output");
        call();
    }
    return {read_file(folder / "error"), read_file(folder / "output")};
}

}  // namespace orvel_test
