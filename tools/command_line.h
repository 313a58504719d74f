// How all tools speak: results on the standard output, one-line errors on the standard error.
#pragma once

#include <CLI/CLI.hpp>
#include <iostream>
#include <optional>
#include <string>

#include "orvel.h"

namespace orvel_tools {

constexpr int kError = 2;

inline int fail(const CLI::App& app, const std::string& message) {
    std::cerr << app.get_name() << ": " << message << '\n';
    return kError;
}

/// Reads the arguments. A value means that the program is done and ends with it: 0 after --help and
/// --version, kError after a mistake.
inline std::optional<int> parse(CLI::App& app, int argc, const char* const* argv) {
    app.set_version_flag("--version", ORVEL_VERSION, "Print the version and exit");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.failure_message([](const CLI::App* failed, const CLI::Error& error) {
        const std::string& name = failed->get_name();
        return name + ": " + error.what() + " (" + name + " --help tells more)\n";
    });
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kError;
    }
    return std::nullopt;
}

}  // namespace orvel_tools
