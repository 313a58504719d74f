// What a scene may see: the files in its folder, and below it.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "orvel_screen.h"
#include "scene_canvas.h"

namespace orvel_tools {

/// The canvas of a picture file; null, and why, when there is none.
CanvasPtr canvas_from(const std::string& path, std::string& error);

/// A theme file; null, and why, also when one of the nine colours is missing or misread.
std::unique_ptr<orvel_theme> theme_from(const std::string& path, std::string& error);

/// Serves pictures, themes, faces and included scenes by their names. It must outlive the screen.
class SceneFolder {
public:
    explicit SceneFolder(const std::string& scene);
    SceneFolder(const SceneFolder&) = delete;
    SceneFolder& operator=(const SceneFolder&) = delete;

    kit_screen_host host();

    /// Has the theme file @p path, wherever it is, stand for its name. False, and why, if it
    /// cannot.
    bool add_theme(const std::string& path, std::string& error);

    /// The files that were asked for, also those that are not there.
    const std::vector<std::string>& files() const { return files_; }

    /// Whether a picture was asked for that is not there.
    bool lacks_pictures() const;

    /// @p reason, and behind it why there is nothing of a name in it.
    std::string explained(const std::string& reason) const;

private:
    /// The file of a name; empty when it is none of the folder's.
    std::string resolved(const std::string& name);
    std::string refuse(const std::string& name, const std::string& why);
    const orvel_canvas* picture(const std::string& name);
    const orvel_theme* theme(const std::string& name);
    const kit_face* face(const std::string& name);
    const char* scene(const std::string& path_to, std::size_t* length);

    struct CloseFace {
        void operator()(kit_face* face) const { kit_face_close(face); }
    };

    std::string written_;  // the scene's folder as the command line calls it
    std::filesystem::path folder_;
    std::vector<std::string> files_;
    std::map<std::string, std::string> refused_;  // names, and why
    std::map<std::string, CanvasPtr> pictures_;
    long long pixels_ = 0;  // of all pictures
    std::map<std::string, std::unique_ptr<orvel_theme>> themes_;
    std::map<std::string, std::unique_ptr<kit_face, CloseFace>> faces_;
    std::map<std::string, std::string> scenes_;
};

}  // namespace orvel_tools
