#include "command_line.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "orvel.h"

namespace orvel_tools {
namespace {

constexpr int kError = 2;

}  // namespace

CommandLine::CommandLine(const char* name, const char* about, const char* statuses)
    : app_(std::make_shared<CLI::App>(about, name)) {
    app_->footer(std::string("Exit status: ") + statuses);
    app_->set_version_flag("--version", ORVEL_VERSION, "Print the version and exit");
    app_->set_help_flag("-h,--help", "Print this help and exit");
    app_->failure_message([](const CLI::App* failed, const CLI::Error& error) {
        const std::string& program = failed->get_name();
        return program + ": " + error.what() + " (" + program + " --help tells more)\n";
    });
}

CommandLine::CommandLine(CommandLine& program, const char* name, const char* about)
    : app_(program.app_, program.app_->add_subcommand(name, about)) {
    program.app_->require_subcommand(1);
}

void CommandLine::argument(const char* name, std::string& value, const char* about) {
    app_->add_option(name, value, about)->required();
}

void CommandLine::option(const char* name, std::string& value, const char* about) {
    app_->add_option(name, value, about);
}

void CommandLine::option(const char* name, double& value, const char* about) {
    app_->add_option(name, value, about);
}

void CommandLine::option(const char* name, std::vector<std::string>& values, const char* about) {
    app_->add_option(name, values, about)->allow_extra_args(false);
}

void CommandLine::option(const char* name, std::string& value,
                         const std::vector<std::string>& allowed, const char* about) {
    app_->add_option(name, value, about)->check(CLI::IsMember(allowed));
}

void CommandLine::flag(const char* name, bool& value, const char* about) {
    app_->add_flag(name, value, about);
}

void CommandLine::option(const char* name, int& value, int lowest, int highest, const char* about) {
    app_->add_option(name, value, about)->check(CLI::Range(lowest, highest))->capture_default_str();
}

std::optional<int> CommandLine::parse(int argc, const char* const* argv) {
    try {
        app_->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app_->exit(error) == 0 ? 0 : kError;
    }
    return std::nullopt;
}

int CommandLine::fail(const std::string& message) const {
    std::cerr << app_->get_name() << ": " << message << '\n';
    return kError;
}

}  // namespace orvel_tools
