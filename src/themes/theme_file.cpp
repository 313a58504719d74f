// Theme files look like JSON and are read as plain text: a key in quotes, then the next quoted text
// after the next colon.
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "core/files.h"
#include "core/state.h"
#include "themes/hex.h"

namespace orvel {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

struct ThemeKey {
    std::string_view key;
    std::size_t offset;  // of the field in orvel_theme
};

constexpr ThemeKey kThemeKeys[] = {
    {"background", offsetof(orvel_theme, background)},
    {"surface", offsetof(orvel_theme, surface)},
    {"text", offsetof(orvel_theme, text)},
    {"accent", offsetof(orvel_theme, accent)},
    {"border", offsetof(orvel_theme, border)},
    {"button", offsetof(orvel_theme, button)},
    {"button_hover", offsetof(orvel_theme, button_hover)},
    {"button_text", offsetof(orvel_theme, button_text)},
    {"error", offsetof(orvel_theme, error)},
};
constexpr std::size_t kKeyCount = sizeof kThemeKeys / sizeof *kThemeKeys;

std::string read_all(File& file) {
    std::string text;
    char block[4096];
    while (const std::size_t size = file.read(block, 1, sizeof block)) text.append(block, size);
    return text;
}

/// For each key the position of the quote that closes its first appearance in quotes, or kNone.
/// A key holds no quote, so it appears just where it is all there is between one quote and the
/// next: one pass finds them all, whatever the text.
std::array<std::size_t, kKeyCount> find_keys(std::string_view text) {
    std::array<std::size_t, kKeyCount> ends;
    ends.fill(kNone);
    std::size_t open = text.find('"');
    if (open == kNone) return ends;
    for (std::size_t close; (close = text.find('"', open + 1)) != kNone; open = close) {
        const std::string_view word = text.substr(open + 1, close - open - 1);
        for (std::size_t i = 0; i < kKeyCount; ++i) {
            if (word == kThemeKeys[i].key && ends[i] == kNone) ends[i] = close;
        }
    }
    return ends;
}

/// The quoted text after the first colon at or after @p from; empty when there is none.
std::string value_after(std::string_view text, std::size_t from) {
    const std::size_t colon = text.find(':', from);
    if (colon == kNone) return {};
    const std::size_t open = text.find('"', colon + 1);
    if (open == kNone) return {};
    const std::size_t close = text.find('"', open + 1);
    if (close == kNone) return {};
    return std::string(text.substr(open + 1, close - open - 1));
}

/// The text of a colour, without its alpha.
struct HexText {
    char text[8];
    explicit HexText(orvel_color c) {
        std::snprintf(text, sizeof text, "#%02x%02x%02x", c.r, c.g, c.b);
    }
};

}  // namespace
}  // namespace orvel

using namespace orvel;

int orvel_theme_load(orvel_theme* theme, const char* name) {
    if (!theme || !name) return -1;
    File file;
    if (!open_resource(file, "UI", name)) return -1;
    const std::string text = read_all(file);
    file.close();

    orvel_theme loaded = *theme;  // memory may run out at a value; the host's record is then whole
    const auto ends = find_keys(text);
    for (std::size_t i = 0; i < kKeyCount; ++i) {
        if (ends[i] == kNone) continue;
        const std::string value = value_after(text, ends[i] + 1);
        // Deliberate: an empty value keeps the colour, a short one makes it white.
        if (value.empty()) continue;
        const orvel_color color = color_from_hex(value.c_str());
        std::memcpy(reinterpret_cast<char*>(&loaded) + kThemeKeys[i].offset, &color, sizeof color);
    }
    *theme = loaded;
    return 0;
}

int orvel_theme_save(const orvel_theme* theme, const char* name) {
    if (!theme || !name) return -1;
    const std::string path = resolve_resource("UI", name);
    File file;
    if (!file.open_for_writing(path.c_str())) return -1;
    char text[300];  // of which 264 are filled, whatever the colours
    const int size = std::snprintf(text, sizeof text,
                                   "{\n"
                                   "  \"background\":   \"%s\",\n"
                                   "  \"surface\":      \"%s\",\n"
                                   "  \"text\":         \"%s\",\n"
                                   "  \"accent\":       \"%s\",\n"
                                   "  \"border\":       \"%s\",\n"
                                   "  \"button\":       \"%s\",\n"
                                   "  \"button_hover\": \"%s\",\n"
                                   "  \"button_text\":  \"%s\",\n"
                                   "  \"error\":        \"%s\"\n"
                                   "}\n",
                                   HexText(theme->background).text, HexText(theme->surface).text,
                                   HexText(theme->text).text, HexText(theme->accent).text,
                                   HexText(theme->border).text, HexText(theme->button).text,
                                   HexText(theme->button_hover).text,
                                   HexText(theme->button_text).text, HexText(theme->error).text);
    // Deliberate: neither the write nor the close is checked, and alpha is not stored.
    file.write(text, static_cast<std::size_t>(size));
    return 0;
}
