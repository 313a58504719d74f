#include "scene_folder.h"

#include <algorithm>
#include <array>

#include "bmp_file.h"
#include "file_bytes.h"
#include "picture.h"
#include "png_file.h"
#include "theme_check.h"
#include "theme_file.h"

namespace orvel_tools {
namespace {

namespace fs = std::filesystem;

constexpr long long kMostInFolder = 64LL << 20;

long long pixels_of(const orvel_canvas* canvas) {
    return static_cast<long long>(orvel_canvas_width(canvas)) * orvel_canvas_height(canvas);
}

bool leaves(const fs::path& name) {
    return name.empty() || name.has_root_path() ||
           std::any_of(name.begin(), name.end(), [](const fs::path& part) { return part == ".."; });
}

SceneFolder& self_of(void* self) { return *static_cast<SceneFolder*>(self); }

}  // namespace

CanvasPtr canvas_from(const std::string& path, std::string& error) {
    Bytes bytes;
    Picture picture;
    if (!read_picture_bytes(path, bytes, error)) return nullptr;
    if ((is_png(bytes) || is_bmp(bytes)) && claimed_pixels(bytes) > kMostScenePixels) {
        error = path + ": more than 16 million pixels";
        return nullptr;
    }
    if (!decode_picture(bytes, path, picture, error)) return nullptr;
    CanvasPtr canvas(kit_canvas(picture.width, picture.height));
    if (!canvas) {
        error = path + ": too large for the memory";
        return nullptr;
    }
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            orvel_canvas_pixel(canvas.get(), x, y, picture.at(x, y));
        }
    }
    return canvas;
}

std::unique_ptr<orvel_theme> theme_from(const std::string& path, std::string& error) {
    std::string text;
    if (!read_text(path, text, error)) return nullptr;
    const auto findings = check_theme(text);
    if (!findings.empty()) {
        error = path + ": " + findings.front().key + ": " + findings.front().message;
        return nullptr;
    }
    auto theme = std::make_unique<orvel_theme>();
    return load_theme(text, *theme, error) ? std::move(theme) : nullptr;
}

SceneFolder::SceneFolder(const std::string& scene)
    : written_(scene.substr(0, scene.rfind('/') + 1)) {  // with the slash; empty without one
    std::error_code none;
    folder_ = fs::canonical(written_.empty() ? "." : written_, none);
}

kit_screen_host SceneFolder::host() {
    kit_screen_host host = {};
    host.self = this;
    host.picture = [](void* self, const char* name) { return self_of(self).picture(name); };
    host.theme = [](void* self, const char* name) { return self_of(self).theme(name); };
    host.face = [](void* self, const char* name) { return self_of(self).face(name); };
    host.include = [](void* self, const char* name, std::size_t* length) {
        return self_of(self).scene(name, length);
    };
    return host;
}

bool SceneFolder::add_theme(const std::string& path, std::string& error) {
    auto& theme = themes_[path];
    theme = theme_from(path, error);
    return theme != nullptr;
}

bool SceneFolder::lacks_pictures() const {
    return std::any_of(pictures_.begin(), pictures_.end(),
                       [](const auto& picture) { return picture.second == nullptr; });
}

std::string SceneFolder::explained(const std::string& reason) const {
    for (const auto& [name, why] : refused_) {
        const bool about_it = reason.find('"' + name + '"') != std::string::npos;
        if (about_it) return std::string(reason).append(" (").append(why).append(")");
    }
    return reason;
}

std::string SceneFolder::refuse(const std::string& name, const std::string& why) {
    refused_[name] = why;
    return "";
}

std::string SceneFolder::resolved(const std::string& name) {
    if (leaves(name)) return refuse(name, "only files in the scene's folder can be used");
    const fs::path path = folder_ / name;
    files_.push_back(path.string());
    std::error_code error;
    const fs::path real = fs::canonical(path, error);
    if (error) return refuse(name, error.message());
    const auto ends = std::mismatch(folder_.begin(), folder_.end(), real.begin(), real.end());
    if (ends.first != folder_.end()) return refuse(name, "leads out of the scene's folder");
    if (!fs::is_regular_file(real, error)) return refuse(name, "not a file");
    return real.string();
}

const orvel_canvas* SceneFolder::picture(const std::string& name) {
    const auto [at, made] = pictures_.try_emplace(name);
    const std::string path = made ? resolved(name) : "";
    if (path.empty()) return at->second.get();
    std::string error;
    CanvasPtr canvas = canvas_from(path, error);
    pixels_ += canvas ? pixels_of(canvas.get()) : 0;
    if (pixels_ > kMostInFolder) {
        error = "more than 64 million pixels together with the scene's other pictures";
        pixels_ -= pixels_of(canvas.get());
        canvas.reset();
    }
    if (!canvas) refuse(name, error);
    at->second = std::move(canvas);
    return at->second.get();
}

const orvel_theme* SceneFolder::theme(const std::string& name) {
    if (name == "dark" || name == "light") return nullptr;  // the library's own
    const auto [at, made] = themes_.try_emplace(name);
    const std::string path = made ? resolved(name) : "";
    if (path.empty()) return at->second.get();
    std::string error;
    at->second = theme_from(path, error);
    if (!at->second) refuse(name, error);
    return at->second.get();
}

const kit_face* SceneFolder::face(const std::string& name) {
    if (const kit_face* known = kit_face_named(name.c_str())) return known;
    if (name.find('.') == std::string::npos) return nullptr;  // a file's name has one
    const auto [at, made] = faces_.try_emplace(name);
    const std::string path = made ? resolved(name) : "";
    if (path.empty()) return at->second.get();
    std::array<char, 256> why = {};
    at->second.reset(kit_face_open(path.c_str(), why.data(), why.size()));
    if (!at->second) refuse(name, why.data());
    return at->second.get();
}

const char* SceneFolder::scene(const std::string& path_to, std::size_t* length) {
    // It comes as what the scene is called, up to the last slash, and the name from there.
    const bool beside = path_to.compare(0, written_.size(), written_) == 0;
    const std::string name = beside ? path_to.substr(written_.size()) : path_to;
    std::string& text = scenes_[name];
    const std::string path = resolved(name);
    if (path.empty()) return nullptr;
    std::string error;
    if (!read_text(path, text, error)) {
        refuse(name, error);
        return nullptr;
    }
    *length = text.size();
    return text.c_str();
}

}  // namespace orvel_tools
