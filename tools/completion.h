// What the shells need to complete a tool's arguments, made of what the tool takes.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace orvel_tools {

/// The completion of @p app for bash, zsh or fish.
std::string completion(const CLI::App& app, const std::string& shell);

}  // namespace orvel_tools
