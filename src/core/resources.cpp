#include <cstdlib>

#include "core/files.h"
#include "core/state.h"

namespace orvel {

std::string resource_path() {
    // Deliberate: the host's root is the Resources folder itself, the environment names its parent.
    if (!state().custom_resource_path.empty()) return state().custom_resource_path;
    const char* variable = std::getenv("ORVELSDK_PATH");
    std::string base = variable && *variable ? variable : ".";
    if (base.size() > 1 && base.back() == '/') base.pop_back();
    return base + "/Resources";
}

std::string resolve_resource(const std::string& folder, const std::string& name) {
    // The order is the only tie-break between files of one name, and every folder is probed with
    // all.
    constexpr const char* exts[] = {".wav", ".mp3", ".bmp", ".json", ".m4a", ".aiff", ".png"};

    const std::string base = resource_path() + "/" + folder + "/" + name;
    if (name.find('.') != std::string::npos) return base;
    for (const char* extension : exts) {
        std::string candidate = base + extension;
        if (opens_for_reading(candidate.c_str())) return candidate;
    }
    return base;
}

}  // namespace orvel
