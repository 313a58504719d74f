#include <cstdlib>
#include <utility>

#include "core/files.h"
#include "core/state.h"

namespace orvel {
namespace {

/// The path of a resource. Asks of one extension after the other whether the file @p opens.
template <typename Opens>
std::string find(const std::string& folder, const std::string& name, Opens opens) {
    // The order is the only tie-break between files of one name, and every folder is probed with
    // all.
    constexpr const char* exts[] = {".wav", ".mp3", ".bmp", ".json", ".m4a", ".aiff", ".png"};

    std::string path = resource_path() + "/" + folder + "/" + name;
    if (name.find('.') != std::string::npos) return path;
    const std::size_t length = path.size();
    for (const char* extension : exts) {
        path.replace(length, std::string::npos, extension);
        if (opens(path.c_str())) return path;
    }
    path.resize(length);
    return path;
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

std::string resolve_resource(const std::string& folder, const std::string& name) {
    return find(folder, name, opens_for_reading);
}

File open_resource(const std::string& folder, const std::string& name) {
    File found;
    const std::string path = find(folder, name, [&found](const char* candidate) {
        found = open_for_reading(candidate);
        return found != nullptr;
    });
    return found ? std::move(found) : open_for_reading(path.c_str());
}

}  // namespace orvel
