// Any text as a theme file: no finding of the sanitizers, the colours of the model, and a file
// that is saved gives them back.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>

#include "harness.h"
#include "models/theme_model.h"
#include "orvel.h"

namespace {

using fuzz::require;

bool equal(const orvel_theme& a, const orvel_theme& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

unsigned char* bytes_of(orvel_theme& theme) { return reinterpret_cast<unsigned char*>(&theme); }

orvel_theme without_alpha(orvel_theme theme) {
    for (std::size_t i = 3; i < sizeof theme; i += 4) bytes_of(theme)[i] = 255;
    return theme;
}

/// A theme that is saved comes back. That depends on nothing but its colours, so those of which it
/// was seen lately are passed over: saving takes more time than all the rest.
void check_saving(const orvel_theme& theme, const fuzz::Resources& resources) {
    static std::array<orvel_theme, 4096> seen;
    const std::string_view colors(reinterpret_cast<const char*>(&theme), sizeof theme);
    orvel_theme& place = seen[std::hash<std::string_view>()(colors) % seen.size()];
    if (equal(place, theme)) return;
    require(orvel_theme_save(&theme, "output.json") == 0, "a theme that was not saved");
    require(resources.get("UI/output.json").size() == 264, "a saved file of another size");
    orvel_theme again;
    std::memset(&again, 0, sizeof again);
    require(orvel_theme_load(&again, "output.json") == 0, "a saved file that was not loaded");
    require(equal(again, without_alpha(theme)), "other colours after saving and loading");
    place = theme;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Resources resources;
    const std::string text(data, data + size);
    resources.put("UI/input.json", text);
    orvel_theme before;
    for (std::size_t i = 0; i < sizeof before; ++i) {
        bytes_of(before)[i] = static_cast<unsigned char>(5 * i + 3);
    }
    orvel_theme theme = before;
    require(orvel_theme_load(&theme, "input.json") == 0, "a file that was not loaded");
    require(equal(theme, orvel_test::theme_model(text, before)), "other colours than the model's");

    check_saving(theme, resources);
    return 0;
}
