// orvel-theme: says what the library makes of a theme file.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "command_line.h"
#include "file_bytes.h"
#include "names.h"
#include "theme_check.h"
#include "theme_file.h"
#include "theme_preview.h"

namespace {

using orvel_tools::CommandLine;
using orvel_tools::Finding;
using orvel_tools::Pair;
using orvel_tools::shown_name;

std::optional<std::string> read_text(const std::string& path, std::string& error) {
    if (path != "-" && std::filesystem::is_directory(path)) {
        error = shown_name(path) + ": not a file";
        return std::nullopt;
    }
    const auto bytes = orvel_tools::read_bytes(path, error);
    if (!bytes) return std::nullopt;
    return std::string(bytes->begin(), bytes->end());
}

void print(const std::string& file, const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        const std::string line = finding.line ? std::to_string(finding.line) + ":" : "";
        std::printf("%s:%s %s: %s\n", file.c_str(), line.c_str(), finding.key.c_str(),
                    finding.message.c_str());
    }
    if (findings.empty()) std::printf("%s: all nine colours are there\n", file.c_str());
}

/// Prints the ratio of every pair; returns how many are below @p wanted.
int print_contrasts(const orvel_theme& theme, double wanted) {
    int below = 0;
    for (const Pair& pair : orvel_tools::text_pairs()) {
        const double ratio = orvel_tools::contrast(theme.*pair.text, theme.*pair.ground);
        if (ratio < wanted) ++below;
        std::printf("  %5.2f  %-28s %s%s\n", ratio, pair.name, pair.where,
                    ratio < wanted ? "  <- too low" : "");
    }
    return below;
}

int check(const CommandLine& program, const std::string& file, double wanted,
          const std::string& preview) {
    std::string error;
    const auto text = read_text(file, error);
    if (!text) return program.fail(error);
    orvel_theme theme;
    if (!orvel_tools::load_theme(*text, theme, error)) return program.fail(error);
    const auto findings = orvel_tools::check_theme(*text);
    print(orvel_tools::shown_path(file, "standard input"), findings);
    const int below = print_contrasts(theme, wanted);
    if (!preview.empty() &&
        !orvel_tools::write_png(orvel_tools::theme_preview(theme), preview, error)) {
        return program.fail(error);
    }
    return findings.empty() && below == 0 ? 0 : 1;
}

int check_all(const CommandLine& program, const std::vector<std::string>& files, double wanted,
              const std::string& preview) {
    if (files.size() > 1 && !preview.empty()) {
        return program.misused("--preview is for one FILE");
    }
    int status = 0;
    for (const std::string& file : files) {
        status = std::max(status, check(program, file, wanted, preview));
    }
    return status;
}

/// The folder that this program lies in, found as a shell finds a program called @p name.
std::filesystem::path own_folder(const std::string& name) {
    std::error_code failed;
    const auto folder_of = [&](const std::filesystem::path& program) {
        return std::filesystem::canonical(program, failed).parent_path();
    };
    if (name.find('/') != std::string::npos) return folder_of(name);
    const char* const path = std::getenv("PATH");
    std::istringstream folders(path ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');) {
        const auto program = std::filesystem::path(folder.empty() ? "." : folder) / name;
        if (std::filesystem::is_regular_file(program, failed)) return folder_of(program);
    }
    return "";
}

/// Prints where the themes that come with it lie: installed beside this program, or in the sources
/// that it was built from.
int print_path(const CommandLine& program, const std::string& name) {
    std::error_code failed;
    const std::filesystem::path here = own_folder(name);
    for (const char* below : {ORVEL_THEMES_FROM_PROGRAMS, "../../share/themes"}) {
        const auto folder = std::filesystem::weakly_canonical(here / below, failed);
        if (here.empty() || !std::filesystem::is_directory(folder, failed)) continue;
        std::printf("%s\n", folder.c_str());
        return 0;
    }
    return program.fail("the themes that come with OrvelSDK are not installed beside this program");
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine program("orvel-theme",
                        "Checks theme files. The library loads any file without complaint: "
                        "what is missing or wrong just shows.",
                        "0 when all is well, 1 when something was found, 2 on an error.");
    CommandLine command(
        program, "check",
        "List the keys that are missing, empty, too short or otherwise misread, and "
        "the contrast of every pair of colours that words are drawn in");
    std::vector<std::string> files;
    std::string preview;
    double wanted = 0;
    command.arguments("FILE", files, "Theme files, wherever they are; - is the standard input");
    command.option("--min-contrast", wanted, "Also object to ratios below this one");
    command.option("--preview", preview, "FILE",
                   "Write a PNG of widgets in the theme and its nine colours");
    const CommandLine path(program, "path",
                           "Print the folder of the theme files that come with OrvelSDK");
    if (const auto done = program.parse(argc, argv)) return *done;
    if (path.given()) return program.end(print_path(program, argv[0]));
    return program.end(check_all(program, files, wanted, preview));
}
