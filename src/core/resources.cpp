#include <cstdlib>

#include "core/files.h"
#include "core/state.h"

namespace orvel {
namespace {

/// The first path with an extension that @p opens; the one without where none does, or where the
/// name has a dot.
template <typename Opens>
std::string candidate(const std::string& folder, const std::string& name, const Opens& opens) {
    // The order is the only tie-break between files of one name, and every folder is probed with
    // all.
    constexpr const char* exts[] = {".wav", ".mp3", ".bmp", ".json", ".m4a", ".aiff", ".png"};

    const std::string base = resource_path() + "/" + folder + "/" + name;
    if (name.find('.') != std::string::npos) return base;
    for (const char* extension : exts) {
        std::string path = base + extension;
        if (opens(path)) return path;
    }
    return base;
}

}  // namespace

std::string resource_path() {
    // Deliberate: the host's root is the Resources folder itself, the environment names its parent.
    if (!state().custom_resource_path.empty()) return state().custom_resource_path;
    const char* variable = std::getenv("ORVELSDK_PATH");
    std::string base = variable && *variable ? variable : ".";
    if (base.size() > 1 && base.back() == '/') base.pop_back();
    return base + "/Resources";
}

bool open_resource(File& file, const std::string& folder, const std::string& name) {
    bool is_open = false;
    const std::string path = candidate(folder, name, [&](const std::string& tried) {
        is_open = file.open_for_reading(tried.c_str());
        return is_open;
    });
    return is_open || file.open_for_reading(path.c_str());
}

std::string resolve_resource(const std::string& folder, const std::string& name) {
    return candidate(folder, name,
                     [](const std::string& path) { return File().open_for_reading(path.c_str()); });
}

}  // namespace orvel
