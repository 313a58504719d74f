// A scene with its data, as the programs that show scenes open it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "orvel_screen.h"
#include "scene_folder.h"

namespace orvel_tools {

/// What a command line says about a scene.
struct SceneWishes {
    std::string scene;                // its file, "-" for the standard input
    std::string data;                 // a file of values, "-" for the standard input; may be empty
    std::vector<std::string> values;  // name=value
    bool sample = false;              // the scene's own values stand for the data
    std::string theme;                // "dark", "light" or a theme file; may be empty
    int width = 0, height = 0;        // 0: the scene's own
};

/// A scene that is open, and the files that it was made of.
class Scene {
public:
    /// On failure, open() is null and @p error says why.
    Scene(const SceneWishes& wishes, std::string& error);

    kit_screen* open() const { return screen_.get(); }
    const std::vector<std::string>& files() const { return folder_.files(); }
    /// The values of the file, with those of the command line set in them, as JSON.
    static std::optional<std::string> data_of(const SceneWishes& wishes, std::string& error);

    /// A line for each picture that the screen does without: where it stands, and why.
    std::vector<std::string> complaints() const;

    /// What the theme paints where nothing else is painted.
    orvel_color ground();

    /// The whole screen; null, and why, when it cannot be drawn.
    CanvasPtr draw(std::string& error) const;

private:
    struct CloseScreen {
        void operator()(kit_screen* screen) const { kit_screen_close(screen); }
    };
    using ScreenPtr = std::unique_ptr<kit_screen, CloseScreen>;

    bool dress(const SceneWishes& wishes, std::string& error);

    SceneFolder folder_;
    std::string theme_;  // of all nodes, as JSON
    ScreenPtr screen_;
};

}  // namespace orvel_tools
