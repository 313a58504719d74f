// orvel-theme: says what the library makes of a theme file.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "command_line.h"
#include "theme_check.h"
#include "theme_file.h"
#include "theme_preview.h"

namespace {

using orvel_tools::CommandLine;
using orvel_tools::Finding;
using orvel_tools::Pair;

std::optional<std::string> read_text(const std::string& path, std::string& error) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (!std::filesystem::is_directory(path) && file && (file.peek() < 0 || text << file.rdbuf())) {
        return text.str();
    }
    error = path + ": " + (file.is_open() ? "not a file" : std::strerror(errno));
    return std::nullopt;
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
    print(file, findings);
    const int below = print_contrasts(theme, wanted);
    if (!preview.empty() &&
        !orvel_tools::write_png(orvel_tools::theme_preview(theme), preview, error)) {
        return program.fail(error);
    }
    return findings.empty() && below == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine program("orvel-theme",
                        "Says what the library makes of a theme file. Loading one never complains: "
                        "what is missing or wrong just shows.",
                        "0 when all is well, 1 when something was found, 2 on an error.");
    CommandLine command(
        program, "check",
        "List the keys that are missing, empty, too short or otherwise misread, and "
        "the contrast of every pair of colours that words are drawn in");
    std::string file, preview;
    double wanted = 0;
    command.argument("FILE", file, "A theme file, wherever it is");
    command.option("--min-contrast", wanted, "Also object to ratios below this one");
    command.option("--preview", preview,
                   "Write a PNG of widgets in the theme and its nine colours");
    if (const auto done = program.parse(argc, argv)) return *done;
    return check(program, file, wanted, preview);
}
