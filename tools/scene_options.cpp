#include "scene_options.h"

#include <algorithm>
#include <filesystem>

namespace orvel_tools {
namespace {

/// One to five digits; 0 for anything else.
int side_of(const std::string& text) {
    const bool digits = text.find_first_not_of("0123456789") == std::string::npos;
    return digits && !text.empty() && text.size() <= 5 ? std::stoi(text) : 0;
}

/// WIDTHxHEIGHT
bool read_size(const std::string& text, int& width, int& height) {
    const std::size_t by = std::min(text.find('x'), text.size());
    width = side_of(text.substr(0, by));
    height = side_of(text.substr(std::min(by + 1, text.size())));
    return width > 0 && height > 0;
}

}  // namespace

void describe_scene_options(CommandLine& program, SceneWishes& wishes, std::string& size) {
    program.argument("SCENE", wishes.scene, "The scene file; - is the standard input");
    program.option("--set", wishes.values, "NAME=VALUE", "Set one value");
    program.flag("--sample", wishes.sample, "Show the scene's own sample values");
    program.option("--size", size, "WIDTHxHEIGHT", "Another size than the scene's");
    program.option("--theme", wishes.theme, "FILE", "dark, light or a theme file");
}

std::string settle_scene(SceneWishes& wishes, const std::string& size,
                         const std::vector<std::string>& data,
                         const std::vector<std::string>& others) {
    if (!size.empty() && !read_size(size, wishes.width, wishes.height)) {
        return "--size " + size + ": expected WIDTHxHEIGHT, 800x480 for instance";
    }
    if (!data.empty() && wishes.sample) return "--data and --sample exclude each other";
    const auto dashes = std::count(data.begin(), data.end(), "-") +
                        std::count(others.begin(), others.end(), "-") +
                        (wishes.scene == "-" ? 1 : 0);
    return dashes > 1 ? "the standard input can be read once only" : "";
}

bool reads_standard_input(const SceneWishes& wishes, const std::vector<std::string>& others) {
    return wishes.scene == "-" || std::count(others.begin(), others.end(), "-") > 0;
}

std::vector<std::string> files_of(const SceneWishes& wishes, const Scene& scene) {
    std::vector<std::string> files = scene.files();
    files.insert(files.end(), {wishes.scene, wishes.theme});
    return files;
}

std::string traces(const std::vector<std::string>& files) {
    std::string traces;
    for (const std::string& file : files) {
        std::error_code none;
        const auto time = std::filesystem::last_write_time(file, none).time_since_epoch().count();
        traces += std::to_string(time) + ' ' +
                  std::to_string(std::filesystem::file_size(file, none)) + '\n';
    }
    return traces;
}

}  // namespace orvel_tools
