// Real files and real output for tests.
#pragma once

#include <functional>
#include <string>

namespace orvel_test {

/// A new, empty folder that is removed with everything in it.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

/// The bytes of a file; empty when there is none.
std::string read_file(const std::string& path);
/// Writes a file and the folders above it.
void write_file(const std::string& path, const std::string& bytes);

/// What @p call writes to the standard error and the standard output stream.
struct Output {
    std::string error, output;
};
Output captured(const std::function<void()>& call);

}  // namespace orvel_test
