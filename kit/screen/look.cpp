#include "screen/look.h"

#include <algorithm>
#include <iterator>

#include "screen/contrast.h"

namespace kit {
namespace {

struct Role {
    std::string_view name;
    orvel_color orvel_theme::*field;
};

constexpr Role kRoles[] = {
    {"background", &orvel_theme::background},
    {"surface", &orvel_theme::surface},
    {"text", &orvel_theme::text},
    {"accent", &orvel_theme::accent},
    {"border", &orvel_theme::border},
    {"button", &orvel_theme::button},
    {"button_hover", &orvel_theme::button_hover},
    {"button_text", &orvel_theme::button_text},
    {"error", &orvel_theme::error},
};
static_assert(std::size(kRoles) * sizeof(orvel_color) == sizeof(orvel_theme));

constexpr std::string_view kQuiet = "quiet";

/// The value of a hexadecimal digit; -1 for what is none.
int digit_of(char letter) {
    if (letter >= '0' && letter <= '9') return letter - '0';
    if (letter >= 'a' && letter <= 'f') return letter - 'a' + 10;
    if (letter >= 'A' && letter <= 'F') return letter - 'A' + 10;
    return -1;
}

}  // namespace

bool read_hex(std::string_view text, orvel_color& color) {
    if (text.size() != 7 || text[0] != '#') return false;
    unsigned char channels[3] = {};
    for (std::size_t i = 0; i < 3; ++i) {
        const int high = digit_of(text[1 + 2 * i]), low = digit_of(text[2 + 2 * i]);
        if (high < 0 || low < 0) return false;
        channels[i] = static_cast<unsigned char>(16 * high + low);
    }
    color = {channels[0], channels[1], channels[2], 255};
    return true;
}

orvel_color* role_of(orvel_theme& theme, std::string_view name) {
    for (const Role& role : kRoles) {
        if (role.name == name) return &(theme.*role.field);
    }
    return nullptr;
}

bool read_color(std::string_view text, const Look& look, orvel_color& color) {
    if (read_hex(text, color)) return true;
    orvel_theme theme = look.theme;
    if (const orvel_color* role = role_of(theme, text)) {
        color = *role;
        return true;
    }
    if (text == kQuiet) color = quiet_of(look.theme);
    return text == kQuiet;
}

orvel_color quiet_of(const orvel_theme& theme) {
    constexpr int kFarthest = 45;  // percent of the way to the background
    for (int percent = kFarthest; percent > 0; --percent) {
        const orvel_color color = kit_mix(theme.text, theme.background, percent);
        const int least =
            std::min(contrast_of(color, theme.background), contrast_of(color, theme.surface));
        if (least >= kLeastContrast) return color;
    }
    return theme.text;
}

std::vector<std::string_view> role_names() {
    std::vector<std::string_view> names;
    for (const Role& role : kRoles) names.push_back(role.name);
    names.push_back(kQuiet);
    return names;
}

bool named_theme(const kit_screen_host& host, const std::string& name, orvel_theme& theme) {
    if (host.theme) {
        if (const orvel_theme* own = host.theme(host.self, name.c_str())) {
            theme = *own;
            return true;
        }
    }
    if (name == "dark") orvel_theme_default(&theme);
    if (name == "light") orvel_theme_light(&theme);
    return name == "dark" || name == "light";
}

const kit_face* named_face(const kit_screen_host& host, const std::string& name) {
    if (host.face) {
        if (const kit_face* own = host.face(host.self, name.c_str())) return own;
    }
    return kit_face_named(name.c_str());
}

}  // namespace kit
