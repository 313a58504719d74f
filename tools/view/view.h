// A scene in a window, until it is closed.
#pragma once

#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "live_scene.h"
#include "scene.h"
#include "view/sounds.h"
#include "view/window.h"

namespace orvel_tools {

class CommandLine;

struct ViewWishes {
    SceneWishes scene;
    std::string size, events, record, changes, pictures, resources;
    int zoom = 0;  // 0: what suits the display
    bool silent = false;
};

class View {
public:
    View(const CommandLine& program, const ViewWishes& wishes) : program_(program), w_(wishes) {}

    /// Returns the status to end with.
    int run();

private:
    static constexpr long long kFrame = 16;  // milliseconds
    static constexpr long long kLook = 250;  // between two looks at the files

    struct Close {
        void operator()(std::FILE* file) const {
            if (file != stdout) std::fclose(file);
        }
    };
    /// A file that is written line by line.
    using Lines = std::unique_ptr<std::FILE, Close>;

    bool open();
    bool open_window();
    bool open_lines(const std::string& path, Lines& lines);
    void complain(const std::string& error);

    long long now() const { return static_cast<long long>(SDL_GetTicks64() - start_); }
    int timeout();
    bool take_events();
    bool take(const SDL_Event& event);
    void play();
    void apply(SessionEvent event);
    void heard(const kit_change& change, long long at);
    void paste();
    void resize();

    void show();
    void take_picture(const orvel_canvas* canvas);
    void point();

    void remember_files(const Scene& scene);
    void look_after_files();
    void set_data();
    void reopen();

    const CommandLine& program_;
    ViewWishes w_;
    std::unique_ptr<Scene> scene_;
    std::unique_ptr<LiveScene> live_;
    std::unique_ptr<Sounds> sounds_;
    std::unique_ptr<Window> window_;
    Lines record_, changes_;
    Session session_;
    std::size_t played_ = 0;          // of the session
    std::set<std::string> changed_;   // names of values that controls have set
    std::vector<std::string> files_;  // that are watched, beside the data
    std::string traces_, data_trace_;
    orvel_color ground_ = {};
    Uint64 start_ = 0;
    long long last_ = 0, drawn_ = 0, looked_ = 0;  // times: of an event, a picture, the files
    bool behind_ = false;                          // there may be more to show
    bool watching_ = true;
    bool pasting_ = false, picturing_ = false;
    int pictures_ = 0, shape_ = KIT_POINTER_ARROW;
};

}  // namespace orvel_tools
