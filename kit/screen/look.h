// Colours, themes and faces by their names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "orvel_screen.h"

namespace kit {

/// What a node takes from those above it.
struct Look {
    orvel_theme theme = {};
    const kit_face* face = nullptr;
};

/// "#rrggbb"
bool read_hex(std::string_view text, orvel_color& color);

/// The field of a role of the theme; null where it has none of that name.
orvel_color* role_of(orvel_theme& theme, std::string_view name);

/// A colour as scenes write it: "#rrggbb", a role, or "quiet".
bool read_color(std::string_view text, const Look& look, orvel_color& color);

/// The names that read_color() knows.
std::vector<std::string_view> role_names();

/// "dark", "light" or one of the host's.
bool named_theme(const kit_screen_host& host, const std::string& name, orvel_theme& theme);

/// A face of the kit's or of the host's; null where there is none of that name.
const kit_face* named_face(const kit_screen_host& host, const std::string& name);

/// The colour of words that stand back: the text mixed with the background, as far as it can still
/// be read on the background and on surfaces.
orvel_color quiet_of(const orvel_theme& theme);

}  // namespace kit
