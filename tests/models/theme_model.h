// Theme files read by one plain search a key, each from the start of the text.
#pragma once

#include <cstdlib>
#include <string>

#include "orvel.h"

namespace orvel_test {

inline orvel_color color_model(std::string value) {
    value = value.c_str();  // up to the first zero byte
    if (!value.empty() && value[0] == '#') value.erase(0, 1);
    if (value.size() < 6) return {255, 255, 255, 255};
    for (std::size_t i = 0; i < 6; ++i) {
        if (std::string("0123456789abcdefABCDEF").find(value[i]) == std::string::npos) {
            value[i] = '0';
        }
    }
    const unsigned long rgb = std::strtoul(value.substr(0, 6).c_str(), nullptr, 16);
    return {static_cast<unsigned char>(rgb / 65536), static_cast<unsigned char>(rgb / 256 % 256),
            static_cast<unsigned char>(rgb % 256), 255};
}

/// Changes the colour whose key this is, if the text gives it a value.
inline void load_model(const std::string& text, const std::string& key, orvel_color& color) {
    const auto npos = std::string::npos;
    const std::string pattern = "\"" + key + "\"";
    const std::size_t p = text.find(pattern);
    const std::size_t c = p == npos ? npos : text.find(':', p + pattern.size());
    const std::size_t q1 = c == npos ? npos : text.find('"', c + 1);
    const std::size_t q2 = q1 == npos ? npos : text.find('"', q1 + 1);
    if (q2 == npos || q2 == q1 + 1) return;
    color = color_model(text.substr(q1 + 1, q2 - q1 - 1));
}

/// What loading the text makes of the theme.
inline orvel_theme theme_model(const std::string& text, orvel_theme theme) {
    load_model(text, "background", theme.background);
    load_model(text, "surface", theme.surface);
    load_model(text, "text", theme.text);
    load_model(text, "accent", theme.accent);
    load_model(text, "border", theme.border);
    load_model(text, "button", theme.button);
    load_model(text, "button_hover", theme.button_hover);
    load_model(text, "button_text", theme.button_text);
    load_model(text, "error", theme.error);
    return theme;
}

}  // namespace orvel_test
