#include "theme_file.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace orvel_tools {

// The library reads from the "UI" folder of its resources only.
bool load_theme(const std::string& text, orvel_theme& theme, std::string& error) {
    std::string root = (std::filesystem::temp_directory_path() / "orvel-theme-XXXXXX").string();
    if (!mkdtemp(root.data())) {
        error = root + ": " + std::strerror(errno);
        return false;
    }
    const std::filesystem::path folder = std::filesystem::path(root) / "UI";
    std::error_code ignored;
    std::filesystem::create_directory(folder, ignored);
    std::ofstream(folder / "theme.json", std::ios::binary) << text;
    orvel_theme_default(&theme);
    orvel_set_resource_path(root.c_str());
    const int status = orvel_theme_load(&theme, "theme.json");
    std::filesystem::remove_all(root, ignored);
    if (status != 0) error = root + ": cannot be used for the theme";
    return status == 0;
}

}  // namespace orvel_tools
