#include "scene.h"

#include <array>
#include <new>
#include <nlohmann/json.hpp>
#include <sstream>

#include "file_bytes.h"

namespace orvel_tools {
namespace {

using Why = std::array<char, 1024>;

/// A screen without anything to show.
constexpr char kNothing[] = R"({"orvel": 1, "size": [1, 1], "root": {"column": []}})";

/// A text as JSON.
std::string quoted(const std::string& text) {
    constexpr char kHex[] = "0123456789abcdef";
    std::string json = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') json += '\\';
        const auto byte = static_cast<unsigned char>(letter);
        if (byte >= 0x20) {
            json += letter;
        } else {
            json += "\\u00";
            json += kHex[byte / 16];
            json += kHex[byte % 16];
        }
    }
    return json + '"';
}

/// Whether a value is meant as JSON, even where it is none.
bool is_meant_as_json(const std::string& value) {
    return !value.empty() && (value[0] == '[' || value[0] == '{' || value[0] == '"');
}

/// Sets NAME=VALUE, where a value that is no JSON is a text.
bool set(kit_screen* screen, const std::string& pair, std::string& error) {
    const std::size_t equals = pair.find('=');
    if (equals == std::string::npos || equals == 0) {
        error = "--set " + pair + ": expected NAME=VALUE";
        return false;
    }
    const std::string name = pair.substr(0, equals), value = pair.substr(equals + 1);
    Why why = {};
    const auto try_json = [&](const std::string& json) {
        return kit_screen_set(screen, name.c_str(), json.c_str(), why.data(), why.size()) == 0;
    };
    if (try_json(value)) return true;
    if (!is_meant_as_json(value) && try_json(quoted(value))) return true;
    error = "--set " + pair + ": " + why.data();
    return false;
}

/// A reason that calls the data by the name of their file.
std::string about_data(const SceneWishes& wishes, const std::string& reason) {
    constexpr std::size_t kPrefix = 4;  // that of "data:"
    if (wishes.data.empty() || reason.compare(0, kPrefix + 1, "data:") != 0) return reason;
    return (wishes.data == "-" ? "standard input" : wishes.data) + reason.substr(kPrefix);
}

}  // namespace

/// As a screen without anything to show has them.
std::optional<std::string> Scene::data_of(const SceneWishes& wishes, std::string& error) {
    std::string text = "{}";
    if (!wishes.data.empty() && !read_text(wishes.data, text, error)) {
        return std::nullopt;
    }
    if (wishes.values.empty()) return text;
    Why why = {};
    const ScreenPtr values(kit_screen_read(kNothing, sizeof kNothing - 1, "values", text.c_str(),
                                           nullptr, why.data(), why.size()));
    if (!values) {
        error = about_data(wishes, why.data());
        return std::nullopt;
    }
    for (const std::string& pair : wishes.values) {
        if (!set(values.get(), pair, error)) return std::nullopt;
    }
    const char* const all = kit_screen_get(values.get(), "");
    if (all) return all;
    error = "the values are too large for the memory";
    return std::nullopt;
}

Scene::Scene(const SceneWishes& wishes, std::string& error) : folder_(wishes.scene) {
    std::string text;
    if (!read_text(wishes.scene, text, error)) return;
    std::optional<std::string> data;
    if (!wishes.sample) {
        data = data_of(wishes, error);
        if (!data) return;
    }
    const auto document = nlohmann::json::parse(text, nullptr, false);
    if (document.is_object() && document.contains("theme")) theme_ = document["theme"].dump();
    const kit_screen_host host = folder_.host();
    const std::string name = wishes.scene == "-" ? "standard input" : wishes.scene;
    Why why = {};
    screen_.reset(kit_screen_read(text.data(), text.size(), name.c_str(),
                                  data ? data->c_str() : nullptr, &host, why.data(), why.size()));
    if (!screen_) {
        error = about_data(wishes, folder_.explained(why.data()));
        const bool none = !wishes.sample && wishes.data.empty() && wishes.values.empty();
        if (none && error.find(" in the data") != std::string::npos) {
            error += " (--sample shows the scene's own)";
        }
    } else if (!dress(wishes, error)) {
        screen_.reset();
    }
}

/// Sets what the command line says beside the data.
bool Scene::dress(const SceneWishes& wishes, std::string& error) {
    Why why = {};
    if (wishes.sample) {
        for (const std::string& pair : wishes.values) {
            if (!set(screen_.get(), pair, error)) return false;
        }
    }
    const bool own = wishes.theme != "dark" && wishes.theme != "light" && !wishes.theme.empty();
    if (own && !folder_.add_theme(wishes.theme, error)) return false;
    if (!wishes.theme.empty()) theme_ = quoted(wishes.theme);
    if (!wishes.theme.empty() && kit_screen_change(screen_.get(), nullptr, "theme", theme_.c_str(),
                                                   why.data(), why.size()) != 0) {
        error = why.data();
        return false;
    }
    if (wishes.width > 0 && kit_screen_resize(screen_.get(), wishes.width, wishes.height,
                                              why.data(), why.size()) != 0) {
        error = "--size " + std::to_string(wishes.width) + "x" + std::to_string(wishes.height) +
                ": " + why.data();
        return false;
    }
    return true;
}

orvel_color Scene::ground() {
    const kit_screen_host host = folder_.host();
    const ScreenPtr bare(
        kit_screen_read(kNothing, sizeof kNothing - 1, "nothing", nullptr, &host, nullptr, 0));
    const CanvasPtr canvas(kit_canvas(1, 1));
    if (!bare || !canvas) throw std::bad_alloc();
    if (!theme_.empty()) {
        kit_screen_change(bare.get(), nullptr, "theme", theme_.c_str(), nullptr, 0);
    }
    kit_screen_draw(bare.get(), canvas.get(), nullptr);
    return orvel_canvas_pixel_get(canvas.get(), 0, 0);
}

std::vector<std::string> Scene::complaints() const {
    if (!folder_.lacks_pictures()) return {};  // to report takes longer than to draw
    const char* const report = kit_screen_report(screen_.get());
    if (!report) throw std::bad_alloc();
    std::vector<std::string> lines;
    std::istringstream all(report);
    for (std::string line; std::getline(all, line);) {
        // Within a text of the scene, the quote would have a backslash.
        const std::string kind = ": unknown: ";
        const std::size_t at = line.find(kind + "there is no \"");
        if (at == std::string::npos) continue;
        line.replace(at, kind.size(), ": ");
        lines.push_back(folder_.explained(line));
    }
    return lines;
}

CanvasPtr Scene::draw(std::string& error) const {
    CanvasPtr canvas = canvas_for(screen_.get(), error);
    if (!canvas || kit_screen_draw(screen_.get(), canvas.get(), nullptr) == 0) return canvas;
    error = "the memory is too small for the picture";
    return nullptr;
}

}  // namespace orvel_tools
