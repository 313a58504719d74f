// How all tools speak: results on the standard output, one-line errors on the standard error.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;  // its header is large and is compiled in few places
}

namespace orvel_tools {

/// What a program takes, and its --help, --version and --completion. The values must outlive
/// parse().
class CommandLine {
public:
    CommandLine(const char* name, const char* about, const char* statuses);
    /// The subcommand @p name of @p program, which then asks for one of its subcommands.
    CommandLine(CommandLine& program, const char* name, const char* about);

    void argument(const char* name, std::string& value, const char* about);
    /// One or more arguments.
    void arguments(const char* name, std::vector<std::string>& values, const char* about);
    /// An option with a value, which in the help is called @p kind; FILE is completed as a file.
    void option(const char* name, std::string& value, const char* kind, const char* about);
    void option(const char* name, double& value, const char* about);
    /// An option that may be given several times.
    void option(const char* name, std::vector<std::string>& values, const char* kind,
                const char* about);
    /// An option that takes one of @p allowed.
    void option(const char* name, std::string& value, const std::vector<std::string>& allowed,
                const char* about);
    /// An option from @p lowest to @p highest, whose default is what @p value holds.
    void option(const char* name, int& value, int lowest, int highest, const char* about);
    void flag(const char* name, bool& value, const char* about);

    /// Reads the arguments. A value means that the program is done and ends with it: 0 after --help
    /// and --version, 2 after a mistake.
    std::optional<int> parse(int argc, const char* const* argv);
    /// Whether this subcommand was given.
    bool given() const;

    /// Says what went wrong; returns the status to end with, 2.
    int fail(const std::string& message) const;
    /// The same for a mistake in the arguments.
    int misused(const std::string& message) const;
    /// The status to end with: @p status, unless the standard output has lost what was printed.
    int end(int status) const;

private:
    std::shared_ptr<CLI::App> app_;
    std::shared_ptr<std::string> shell_;  // of --completion
};

}  // namespace orvel_tools
