#include "replay.h"

#include <set>

#include "file_bytes.h"
#include "live_scene.h"

namespace orvel_tools {
namespace {

bool draw(LiveScene& live, const std::string& name, const TakePicture& take, std::string& error) {
    kit_box dirty = {};
    const orvel_canvas* const canvas = live.draw(dirty, error);
    return canvas && take(name, canvas, error);
}

}  // namespace

Replayed replay(kit_screen* screen, const std::string& file, const TakePicture& take) {
    Replayed result;
    const auto session = read_session(file, result.error);
    if (!session) return result;
    LiveScene live(screen, [&result](const kit_change& change, long long at) {
        result.changes += change_line(change, at);
    });
    std::set<std::string> taken;
    for (const SessionEvent& event : *session) {
        std::string error;
        bool done = live.apply(event, error);
        if (done && event.kind == SessionEvent::kPicture) {
            done = taken.insert(event.text).second;
            error = "\"picture\": \"" + event.text + "\" is taken already";
            done = done && draw(live, event.text, take, error);
        }
        if (done) continue;
        result.error =
            shown_path(file, "standard input") + ":" + std::to_string(event.line) + ": " + error;
        break;
    }
    return result;
}

}  // namespace orvel_tools
