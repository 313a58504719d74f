#include "view/view.h"

#include <algorithm>
#include <filesystem>

#include "command_line.h"
#include "picture.h"
#include "scene_options.h"
#include "view/events.h"

namespace orvel_tools {
namespace {

constexpr long long kLong = 60000;  // milliseconds, when nothing is awaited

Sides size_of(const kit_screen* screen) {
    Sides size;
    kit_screen_size(screen, &size.w, &size.h);
    return size;
}

}  // namespace

void View::complain(const std::string& error) { program_.fail(error); }

bool View::open_lines(const std::string& path, Lines& lines) {
    if (path.empty()) return true;
    lines.reset(path == "-" ? stdout : std::fopen(path.c_str(), "w"));
    if (!lines) complain(path + ": cannot be written");
    return lines != nullptr;
}

bool View::open_window() {
    const Sides size = size_of(scene_->open());
    const std::string title = std::filesystem::path(w_.scene.scene).filename().string();
    window_ = std::make_unique<Window>(title, size, w_.zoom, !w_.size.empty());
    if (window_->error().empty()) return true;
    complain(window_->error());
    return false;
}

bool View::open() {
    std::string error;
    scene_ = std::make_unique<Scene>(w_.scene, error);
    watching_ = !reads_standard_input(w_.scene, {w_.scene.data});
    remember_files(*scene_);
    if (!scene_->open()) return complain(error), false;
    if (!w_.events.empty()) {
        auto session = read_session(w_.events, error);
        if (!session) return complain(error), false;
        session_ = std::move(*session);
    }
    ground_ = scene_->ground();
    for (const std::string& line : scene_->complaints()) complain(line);  // shown without it
    live_ = std::make_unique<LiveScene>(
        scene_->open(), [this](const kit_change& change, long long at) { heard(change, at); });
    if (!open_lines(w_.record, record_) || !open_lines(w_.changes, changes_)) return false;
    if (!w_.resources.empty()) orvel_set_resource_path(w_.resources.c_str());
    if (!open_window()) return false;
    if (!w_.silent) sounds_ = std::make_unique<Sounds>();
    start_ = SDL_GetTicks64();
    const Sides size = size_of(scene_->open());
    apply({SessionEvent::kSize, 0, {}, "", "", size.w, size.h, 0});
    return true;
}

int View::run() {
    if (!open()) return 2;
    resize();
    show();
    while (take_events()) {
        play();
        live_->pass(now());
        if (pasting_) paste();
        look_after_files();
        show();
    }
    return 0;
}

/// How long nothing but an event of the window's matters.
int View::timeout() {
    const long long time = now(), wait = live_->wait(time);
    long long next = kLong;
    if (watching_) next = std::min(next, looked_ + kLook - time);
    if (wait >= 0) next = std::min(next, wait);
    if (played_ < session_.size()) next = std::min(next, session_[played_].at - time);
    if (behind_) next = 0;
    return static_cast<int>(std::max({next, drawn_ + kFrame - time, 0LL}));
}

/// Waits for events, and takes them. False when the window is to close.
bool View::take_events() {
    SDL_Event event;
    if (!SDL_WaitEventTimeout(&event, timeout())) return true;
    do {
        if (!take(event)) return false;
    } while (SDL_PollEvent(&event));
    return true;
}

bool View::take(const SDL_Event& event) {
    SessionEvent translation;
    const bool resized =
        event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED;
    const bool exposed =
        event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_EXPOSED;
    if (event.type == SDL_QUIT) return false;
    if (resized) resize();
    if (resized || exposed) window_->expose();
    if (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_F12) {
        picturing_ = true;
    } else if (translated(event, *window_, translation)) {
        play();
        translation.at = now();
        apply(translation);
    }
    behind_ = true;
    return true;
}

/// What of the session is due.
void View::play() {
    for (; played_ < session_.size() && session_[played_].at <= now(); ++played_) {
        if (session_[played_].kind == SessionEvent::kPicture) {
            picturing_ = true;
        } else {
            apply(session_[played_]);
        }
        behind_ = true;
    }
}

void View::apply(SessionEvent event) {
    std::string error;
    event.at = last_ = std::max(event.at, last_);
    if (!live_->apply(event, error)) return complain(error);
    if (!record_) return;
    std::fputs(session_line(event).c_str(), record_.get());
    std::fflush(record_.get());
}

void View::heard(const kit_change& change, long long at) {
    const std::string text = change.kind == KIT_CHANGE_COPY || change.kind == KIT_CHANGE_SOUND
                                 ? text_of_json(change.value)
                                 : "";
    switch (change.kind) {
    case KIT_CHANGE_VALUE:
        if (*change.name) changed_.insert(change.name);
        break;
    case KIT_CHANGE_COPY: SDL_SetClipboardText(text.c_str()); break;
    case KIT_CHANGE_PASTE: pasting_ = true; break;
    case KIT_CHANGE_SOUND:
        if (sounds_ && !text.empty()) sounds_->play(text);
        break;
    default: break;
    }
    behind_ = true;
    if (!changes_) return;
    std::fputs(change_line(change, at).c_str(), changes_.get());
    std::fflush(changes_.get());
}

void View::paste() {
    pasting_ = false;
    char* const text = SDL_GetClipboardText();
    SessionEvent event;
    event.at = now();
    event.input.kind = KIT_EVENT_PASTE;
    event.text = text ? text : "";
    SDL_free(text);
    apply(event);
}

/// Lays the screen out for the window as it is.
void View::resize() {
    const Sides is = size_of(live_->screen()), wanted = window_->wanted();
    if (is.w != wanted.w || is.h != wanted.h) {
        apply({SessionEvent::kSize, now(), {}, "", "", wanted.w, wanted.h, 0});
    }
}

void View::show() {
    if (!behind_ && drawn_ > 0 && now() - drawn_ < kFrame) return;
    std::string error;
    kit_box dirty = {};
    const orvel_canvas* const canvas = live_->draw(dirty, error);
    if (!canvas) return complain(error);
    window_->show(canvas, dirty, ground_);
    behind_ = false;
    if (dirty.w > 0) drawn_ = now();
    if (picturing_) take_picture(canvas);
    point();
}

/// To the first file of the pattern that is not there yet.
void View::take_picture(const orvel_canvas* canvas) {
    picturing_ = false;
    const std::size_t at = w_.pictures.find("{}");
    std::string file, error;
    do {
        file = w_.pictures;
        file.replace(at, 2, std::to_string(++pictures_));
    } while (std::filesystem::exists(file));
    if (!write_png(picture_of(canvas), file, error)) return complain(error);
    apply({SessionEvent::kPicture, now(), {}, std::to_string(pictures_), "", 0, 0, 0});
}

/// The pointer's shape, and where an input method may open its window.
void View::point() {
    static constexpr SDL_SystemCursor kShapes[] = {SDL_SYSTEM_CURSOR_ARROW, SDL_SYSTEM_CURSOR_HAND,
                                                   SDL_SYSTEM_CURSOR_IBEAM};
    const int shape = kit_screen_pointer(live_->screen());
    if (shape != shape_) {
        SDL_Cursor* const before = SDL_GetCursor();
        SDL_SetCursor(SDL_CreateSystemCursor(kShapes[shape]));
        if (before != SDL_GetDefaultCursor()) SDL_FreeCursor(before);
        shape_ = shape;
    }
    kit_box caret = {};
    if (kit_screen_caret(live_->screen(), &caret) != 0) return;
    const SDL_Rect place = window_->place_of(caret);
    SDL_SetTextInputRect(&place);
}

}  // namespace orvel_tools
