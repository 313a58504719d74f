// The icons by name.
#include <array>
#include <cstddef>
#include <cstring>
#include <iterator>

#include "icons/icon.h"

namespace orvel {
namespace {

struct Design {
    const char* name;
    void (Icon::*draw)() const;
};

constexpr Design kDesigns[] = {
    // the order is part of the interface
    {"folder", &Icon::folder},     {"file", &Icon::file},
    {"settings", &Icon::settings}, {"home", &Icon::home},
    {"trash", &Icon::trash},       {"search", &Icon::search},
    {"play", &Icon::play},         {"pause", &Icon::pause},
    {"music", &Icon::music},       {"volume", &Icon::volume},
    {"wifi", &Icon::wifi},         {"battery", &Icon::battery},
    {"app", &Icon::app},           {"heart", &Icon::heart},
    {"star", &Icon::star},         {"arrow-right", &Icon::arrow_right},
    {"power", &Icon::power},       {"lock", &Icon::lock},
    {"user", &Icon::user},         {"mail", &Icon::mail},
    {"calendar", &Icon::calendar}, {"clock", &Icon::clock},
    {"bell", &Icon::bell},         {"check", &Icon::check},
    {"close", &Icon::close},       {"plus", &Icon::plus},
    {"minus", &Icon::minus},       {"camera", &Icon::camera},
    {"phone", &Icon::phone},       {"cloud", &Icon::cloud},
    {"sun", &Icon::sun},           {"moon", &Icon::moon},
    {"download", &Icon::download}, {"upload", &Icon::upload},
    {"refresh", &Icon::refresh},   {"save", &Icon::save},
    {"edit", &Icon::edit},         {"share", &Icon::share},
    {"message", &Icon::message},   {"menu", &Icon::menu},
    {"list", &Icon::list},         {"more", &Icon::more},
    {"logout", &Icon::logout},     {"key", &Icon::key},
    {"wallet", &Icon::wallet},     {"cart", &Icon::cart},
    {"gift", &Icon::gift},         {"info", &Icon::info},
    {"help", &Icon::help},         {"warning", &Icon::warning},
    {"shield", &Icon::shield},     {"eye", &Icon::eye},
    {"mic", &Icon::mic},           {"image", &Icon::image},
    {"code", &Icon::code},         {"terminal", &Icon::terminal},
    {"link", &Icon::link},         {"world", &Icon::world},
    {"pin", &Icon::pin},           {"send", &Icon::send},
    {"back", &Icon::back},         {"up", &Icon::up},
    {"down", &Icon::down},         {"bluetooth", &Icon::bluetooth},
    {"airplane", &Icon::airplane}, {"signal", &Icon::signal},
    {"print", &Icon::print},       {"alarm", &Icon::alarm},
};
constexpr std::size_t kCount = std::size(kDesigns);
static_assert(kCount == 68);

constexpr std::array<const char*, kCount> names() {
    std::array<const char*, kCount> all{};
    for (std::size_t i = 0; i < kCount; ++i) all[i] = kDesigns[i].name;
    return all;
}
constexpr std::array<const char*, kCount> kBuiltinIcons = names();

const Design* find(const char* name) {
    for (const Design& design : kDesigns) {
        if (design.name[0] == name[0] && std::strcmp(design.name, name) == 0) return &design;
    }
    return nullptr;
}

Icon icon_in(orvel_canvas* canvas, int x, int y, int size, orvel_color color, orvel_color accent,
             orvel_color background) {
    const auto left = static_cast<unsigned>(x), top = static_cast<unsigned>(y);
    const auto s = static_cast<unsigned>(size);
    const unsigned h = s / 2;
    return {canvas, left, top, s, h, left + h, top + h, color, accent, background};
}

}  // namespace
}  // namespace orvel

using namespace orvel;

const char** orvel_icon_list(int* count) {
    if (count) *count = static_cast<int>(kCount);
    return const_cast<const char**>(kBuiltinIcons.data());  // the interface's type
}

int orvel_icon_exists(const char* name) { return name && find(name) ? 1 : 0; }

int orvel_draw_icon(orvel_canvas* canvas, const char* name, int x, int y, int size,
                    orvel_color color) {
    if (!canvas || !name || size < 1) return -1;
    orvel_color background = orvel_canvas_pixel_get(canvas, x, y);
    if (background.a == 0) background = {0, 0, 0, 255};
    return orvel_draw_icon_ex(canvas, name, x, y, size, color, color, background);
}

int orvel_draw_icon_ex(orvel_canvas* canvas, const char* name, int x, int y, int size,
                       orvel_color color, orvel_color accent, orvel_color background) {
    if (!canvas || !name || size < 1) return -1;
    const Icon icon = icon_in(canvas, x, y, size, color, accent, background);
    const Design* design = find(name);
    if (!design) {
        icon.frame(icon.x, icon.y, icon.s, icon.s, icon.c);
        return -1;
    }
    (icon.*design->draw)();
    return 0;
}
