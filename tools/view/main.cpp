// orvel-view: shows a scene alive, in a window.
#include <filesystem>

#include "command_line.h"
#include "scene_options.h"
#include "view/view.h"

namespace {

using orvel_tools::CommandLine;
using orvel_tools::ViewWishes;

void describe_options(CommandLine& program, ViewWishes& wishes) {
    orvel_tools::describe_scene_options(program, wishes.scene, wishes.size);
    program.option("--data", wishes.scene.data, "FILE",
                   "A JSON file of the values to show; - as above");
    program.option("--scale", wishes.zoom, 0, 16,
                   "Show every pixel as a square of this side; 0 is what suits the display");
    program.option("--events", wishes.events, "FILE", "Play this session; - as above");
    program.option("--record", wishes.record, "FILE", "Write what happens as a session");
    program.option("--changes", wishes.changes, "FILE",
                   "Write what controls change, a line of JSON for each; - is the standard output");
    program.option("-o,--output", wishes.pictures, "FILE",
                   "Where F12 saves pictures, {} in it stands for a number");
    program.option("--resources", wishes.resources, "FOLDER",
                   "The folder with Sounds, and Icons for images");
    program.flag("--silent", wishes.silent, "Play no sounds");
}

/// What is wrong with the options together; empty when nothing is.
std::string settle(ViewWishes& wishes) {
    const std::string stem = std::filesystem::path(wishes.scene.scene).stem().string();
    if (wishes.pictures.empty()) wishes.pictures = (stem == "-" ? "scene" : stem) + "-{}.png";
    if (wishes.pictures.find("{}") == std::string::npos) {
        return "-o " + wishes.pictures + ": expected {} in it, picture-{}.png for instance";
    }
    std::vector<std::string> data;
    if (!wishes.scene.data.empty()) data.push_back(wishes.scene.data);
    return orvel_tools::settle_scene(wishes.scene, wishes.size, data, {wishes.events});
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine program("orvel-view",
                        "Shows a scene, a screen described in a JSON file, alive in a window.",
                        "0 when the window was closed, 2 on an error.");
    ViewWishes wishes;
    describe_options(program, wishes);
    if (const auto done = program.parse(argc, argv)) return *done;
    const std::string mistake = settle(wishes);
    if (!mistake.empty()) return program.fail(mistake);
    return program.end(orvel_tools::View(program, wishes).run());
}
