#include "whole/torture/host.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "support/files.h"
#include "system/shared.h"
#include "system/system.h"

namespace orvel_test::torture {
namespace {

/// Shared with forked children: what they reach is reached.
struct Reached {
    const void* functions[256];
    int count;

    bool has(const void* function) const {
        return std::find(functions, functions + count, function) != functions + count;
    }
};
Reached& s_reached = shared<Reached>();

void strip(std::string& text, const std::string& part) {
    for (std::size_t at; (at = text.find(part)) != std::string::npos;) text.erase(at, part.size());
}

}  // namespace

bool is_reached(const void* function) { return s_reached.has(function); }

std::string pixels_of(const orvel_canvas* canvas) {
    std::string pixels;
    for (int y = 0; y < orvel_canvas_height(canvas); ++y) {
        for (int x = 0; x < orvel_canvas_width(canvas); ++x) {
            const orvel_color color = orvel_canvas_pixel_get(canvas, x, y);
            pixels.append(reinterpret_cast<const char*>(&color), sizeof color);
        }
    }
    return pixels;
}

std::string bytes_of(const orvel_theme& theme) {
    return {reinterpret_cast<const char*>(&theme), sizeof theme};
}

Host::Host(const std::string& root, Memory& memory)
    : root_(root), memory_(memory), canvas_(make_canvas(48, 32)) {
    orvel_theme_light(&theme_);
}

void Host::reach(void* function) {
    if (!s_reached.has(function)) s_reached.functions[s_reached.count++] = function;
}

void Host::live(const HostFunction& constructor, const HostArguments& arguments) {
    reach(reinterpret_cast<void*>(constructor.address));
    Stage stage;
    stage.canvas = canvas();
    stage.theme = &theme_;
    orvel_widget* widget = nullptr;
    if (guarded([&] { widget = constructor.call(stage, arguments).widget; }))
        tell(in_words(widget));
    draw_and_destroy(widget);
}

void Host::draw_and_destroy(orvel_widget* widget) {
    call(orvel_widget_draw, widget);
    tell_canvas();
    orvel_widget_draw(widget);
    if (widget) tell_unless_as_ever(pixels_of(canvas()), "not drawn afterwards");
    call(orvel_widget_destroy, widget);
}

void Host::provide(const std::string& name, const std::string& bytes) const {
    const std::string file = path(name);
    if (!std::filesystem::exists(file) || read_file(file) != bytes) write_file(file, bytes);
}

void Host::tell(const std::string& words) { told_ += (told_.empty() ? "" : ", ") + words; }

void Host::tell_unless_as_ever(const std::string& now, const char* words) {
    if (!is_as_ever(now)) tell(words);
}

void Host::tell_canvas() {
    const auto blank = make_canvas(48, 32);
    tell_change(pixels_of(canvas()), pixels_of(blank.get()), "untouched", "drawn", "partly drawn");
}

void Host::tell_theme(const orvel_theme& theme, const orvel_theme& before) {
    tell_change(bytes_of(theme), bytes_of(before), "kept", "loaded", "partly loaded");
}

void Host::tell_file(const std::string& path) {
    const std::string bytes = read_file(path);
    const bool whole = is_as_ever(bytes);
    if (!std::filesystem::exists(path)) return tell("no file");
    if (bytes == "old") return tell("old");
    tell(whole ? "whole" : std::to_string(bytes.size()) + " bytes");
}

void Host::tell_log() {
    std::string lines = taken_log();
    if (lines.empty()) return tell("silent");
    if (lines.back() != '\n') return tell("a cut line");
    strip(lines, "[OrvelSDK] ");
    strip(lines, root_ + "/");
    lines.pop_back();
    tell(lines);
}

void Host::tell_players() { tell(players()); }

void Host::tell_change(const std::string& now, const std::string& before, const char* unchanged,
                       const char* changed, const char* between) {
    const bool as_ever = is_as_ever(now);
    tell(now == before ? unchanged : as_ever ? changed : between);
}

std::string Host::in_words(orvel_color color) {
    return std::to_string(color.r) + " " + std::to_string(color.g) + " " + std::to_string(color.b) +
           " " + std::to_string(color.a);
}

std::string Host::in_words(std::string path) const {
    if (path.rfind(root_, 0) == 0) path.replace(0, root_.size(), "ROOT");
    return path;
}

bool Host::is_as_ever(const std::string& now) {
    if (!memory_.complete) memory_.seen.push_back(now);
    return memory_.seen.at(compared_++) == now;
}

}  // namespace orvel_test::torture
