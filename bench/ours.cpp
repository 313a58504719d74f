#include "ours.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "dashboard.h"
#include "screen.h"

namespace bench {
namespace {

/// A screen as a host keeps it.
struct Screen {
    orvel_theme theme;
    std::vector<orvel_widget*> widgets;

    explicit Screen(orvel_canvas* canvas) {
        orvel_theme_default(&theme);
        widgets = make_screen(canvas, &theme);
    }
    ~Screen() { destroy_screen(widgets); }
    Screen(const Screen&) = delete;
};

/// Sends the status lines of the tones nowhere while it lives.
struct Silence {
    int stream = dup(STDERR_FILENO);
    Silence() {
        if (!std::freopen("/dev/null", "w", stderr)) std::abort();
    }
    ~Silence() {
        std::fflush(stderr);
        dup2(stream, STDERR_FILENO);
        close(stream);
    }
    Silence(const Silence&) = delete;
};

/// The library with what it offers beyond shapes.
struct Whole : Ours {
    using Ours::Ours;

    void bitmap(const Workload& work) {
        orvel_icon_draw_bitmap(canvas, work.resource.c_str(), work.x, work.y);
    }

    static std::function<void(int)> own(std::shared_ptr<Whole> self, const Workload& work) {
        switch (work.task) {
        case Task::icons:
            return [self, size = work.size](int times) {
                while (times-- > 0) draw_all_icons(self->canvas, size);
            };
        case Task::redraw:
            return [self, screen = std::make_shared<Screen>(self->canvas)](int times) {
                while (times-- > 0) draw_screen(screen->widgets);
            };
        case Task::rebuild:
            return [self](int times) {
                while (times-- > 0) draw_screen(Screen(self->canvas).widgets);
            };
        case Task::dashboard:
            return [self](int times) {
                while (times-- > 0) draw_dashboard(self->canvas, kit_text_box);
            };
        case Task::tone:
            return [](int times) {
                const Silence silence;
                while (times-- > 0) orvel_play_tone(440.0, 1000);
            };
        default: return {};
        }
    }
};

}  // namespace

Implementation ours() {
    return implementation<Whole>(std::string("OrvelSDK ") + orvel_version(), Role::ours);
}

}  // namespace bench
