// What the programs that show scenes take on the command line alike.
#pragma once

#include <string>
#include <vector>

#include "command_line.h"
#include "scene.h"

namespace orvel_tools {

/// The scene, with what is set, its size and its theme. @p size is what was written.
void describe_scene_options(CommandLine& program, SceneWishes& wishes, std::string& size);

/// What is wrong with these together, when the values are read from @p data and @p others are read,
/// too; empty when nothing is. Takes the size over.
std::string settle_scene(SceneWishes& wishes, const std::string& size,
                         const std::vector<std::string>& data,
                         const std::vector<std::string>& others);

/// Whether any of them is the standard input.
bool reads_standard_input(const SceneWishes& wishes, const std::vector<std::string>& others);

/// Everything that a scene was made of, but for its data.
std::vector<std::string> files_of(const SceneWishes& wishes, const Scene& scene);

/// When the files were last written, and how large they are.
std::string traces(const std::vector<std::string>& files);

}  // namespace orvel_tools
