#include "command_line.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>

#include "completion.h"
#include "names.h"
#include "orvel_kit.h"

namespace orvel_tools {
namespace {

constexpr int kError = 2;

/// What was given beyond what is known, first things first: CLI11 complains of what is missing
/// before it looks at that, and tells the rest from the back.
std::string unknown(const CLI::App& app) {
    std::string others;
    for (const std::string& word : app.remaining(true)) {
        if (word.size() > 1 && word[0] == '-') return "unknown option " + shown_name(word);
        others += " " + shown_name(word);
    }
    const bool asks = app.get_require_subcommand_min() > 0;
    if (others.empty()) return "";
    if (asks && app.get_subcommands().empty()) return "unknown command" + others;
    return "too many arguments:" + others;
}

/// CLI11 counts: with one argument missing of several it says how many there are.
std::string in_one_line(const std::string& text) {
    std::string line = text;
    for (char& letter : line) {
        if (letter == '\n') letter = ' ';
    }
    return line;
}

/// A name that a script lost would else count as none given.
std::string emptiness(const std::string& value) { return value.empty() ? "is empty" : ""; }

}  // namespace

CommandLine::CommandLine(const char* name, const char* about, const char* statuses)
    : app_(std::make_shared<CLI::App>(about, name)), shell_(std::make_shared<std::string>()) {
    app_->footer(std::string("Exit status: ") + statuses);
    app_->set_version_flag("--version", KIT_VERSION, "Print the version and exit");
    app_->set_help_flag("-h,--help", "Print this help and exit");
    app_->add_option("--completion", *shell_,
                     "Print the completion script for bash, zsh or fish, and exit")
        ->type_name("SHELL")
        ->check(CLI::IsMember({"bash", "zsh", "fish"}));
}

CommandLine::CommandLine(CommandLine& program, const char* name, const char* about)
    : app_(program.app_, program.app_->add_subcommand(name, about)), shell_(program.shell_) {
    program.app_->require_subcommand(1);
}

void CommandLine::argument(const char* name, std::string& value, const char* about) {
    app_->add_option(name, value, about)->required()->check(emptiness);
}

void CommandLine::arguments(const char* name, std::vector<std::string>& values, const char* about) {
    app_->add_option(name, values, about)->required()->check(emptiness);
}

void CommandLine::option(const char* name, std::string& value, const char* kind,
                         const char* about) {
    app_->add_option(name, value, about)->type_name(kind)->check(emptiness);
}

void CommandLine::option(const char* name, double& value, const char* about) {
    app_->add_option(name, value, about);
}

void CommandLine::option(const char* name, std::vector<std::string>& values, const char* kind,
                         const char* about) {
    app_->add_option(name, values, about)
        ->type_name(kind)
        ->allow_extra_args(false)
        ->check(emptiness);
}

void CommandLine::option(const char* name, std::string& value,
                         const std::vector<std::string>& allowed, const char* about) {
    app_->add_option(name, value, about)->check(CLI::IsMember(allowed));
}

void CommandLine::option(const char* name, int& value, int lowest, int highest, const char* about) {
    app_->add_option(name, value, about)->check(CLI::Range(lowest, highest))->capture_default_str();
}

void CommandLine::flag(const char* name, bool& value, const char* about) {
    app_->add_flag(name, value, about);
}

std::optional<int> CommandLine::parse(int argc, const char* const* argv) {
    std::string mistake;
    try {
        app_->parse(argc, argv);
    } catch (const CLI::Success& help) {
        return end(app_->exit(help));
    } catch (const CLI::ParseError& error) {
        mistake = in_one_line(error.what());
        const std::string stranger = unknown(*app_);
        const bool about_a_value = dynamic_cast<const CLI::ConversionError*>(&error) ||
                                   dynamic_cast<const CLI::ValidationError*>(&error);
        if (!stranger.empty() && !about_a_value) mistake = stranger;
        if (!shell_->empty() && !about_a_value && stranger.empty()) mistake.clear();
    }
    if (!mistake.empty()) return misused(mistake);
    if (shell_->empty()) return std::nullopt;
    std::cout << completion(*app_, *shell_);
    return end(0);
}

bool CommandLine::given() const { return app_->parsed(); }

int CommandLine::fail(const std::string& message) const {
    const CLI::App* program = app_.get();
    while (program->get_parent()) program = program->get_parent();
    std::cerr << program->get_name() << ": " << message << '\n';
    return kError;
}

int CommandLine::misused(const std::string& message) const {
    const CLI::App* program = app_.get();
    while (program->get_parent()) program = program->get_parent();
    return fail(message + " (" + program->get_name() + " --help tells more)");
}

int CommandLine::end(int status) const {
    const bool written = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    // After an error there is a line already.
    return written || status == kError ? status : fail("standard output: it cannot be written");
}

}  // namespace orvel_tools
