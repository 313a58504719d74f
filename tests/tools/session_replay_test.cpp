// Recorded sessions as every machine plays them, those without tools, too: by the tools' own
// replay, which needs nothing but screens.
#include "replay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <set>

#include "live_scene.h"
#include "screen/screens.h"
#include "support/files.h"
#include "support/golden.h"
#include "support/picture.h"
#include "support/random.h"
#include "tools/recorded.h"

namespace {

using namespace orvel_test;
using orvel_tools::LiveScene;
using orvel_tools::replay;
using orvel_tools::Replayed;
using orvel_tools::SessionEvent;

/// Sessions_test, which reads the pictures, has the same checksums from them.
TEST(SessionReplay, GivesTheChecksumsOfThePicturesOnEveryMachine) {
    for (const Recorded& recorded : kSessions) {
        SCOPED_TRACE(recorded.session);
        const std::string scene = std::string(ORVEL_SOURCE_DIR "/") + recorded.scene;
        const ScreenPtr screen(kit_screen_open(scene.c_str(), nullptr, nullptr, nullptr, 0));
        ASSERT_NE(screen, nullptr);
        if (*recorded.name) set(screen.get(), recorded.name, recorded.value);
        std::set<std::string> lines;
        const auto take = [&lines](const std::string& name, const orvel_canvas* canvas,
                                   std::string&) {
            lines.insert(checksum_line(name, checksum(canvas)));
            return true;
        };
        const Replayed played = replay(screen.get(), recorded.folder() + "/session.jsonl", take);
        EXPECT_EQ(played.error, "");
        std::string all;
        for (const std::string& line : lines) all += line;
        expect_golden_text(kSessionChecksums, recorded.session, all);
        EXPECT_EQ(played.changes + described(screen.get()),
                  read_file(recorded.folder() + kSessionWords));
    }
}

/// A stepper that is held by its right end, in steps of a tenth.
class HeldStepper : public testing::Test {
protected:
    static constexpr long long kPressed = 1000, kReleased = 181000;

    static ScreenPtr stepper() {
        return opened(scene(R"({"stepper": "${n}", "range": [0, 9999, 0.1], "id": "s"})",
                            R"("size": [90, 30], "sample": {"n": 0}, )"));
    }

    static SessionEvent pointer(long long at, int kind) {
        SessionEvent event;
        event.at = at;
        event.input.kind = kind;
        event.input.x = 84;
        event.input.y = 15;
        return event;
    }

    /// What comes of the session @p lines.
    std::string changes(const std::string& lines) const {
        write_file(file, lines);
        const Replayed played = replay(stepper().get(), file, nullptr);
        EXPECT_EQ(played.error, "");
        return played.changes;
    }

    TempFolder folder;
    const std::string file = folder / "session.jsonl";
};

TEST_F(HeldStepper, HasTheSameValuesInEveryReplayOfMinutes) {
    std::string heard, recorded, error;
    const ScreenPtr screen = stepper();
    LiveScene live(screen.get(), [&heard](const kit_change& change, long long at) {
        heard += orvel_tools::change_line(change, at);
    });
    const auto happens = [&](const SessionEvent& event) {
        EXPECT_TRUE(live.apply(event, error)) << error;
        recorded += orvel_tools::session_line(event);
    };
    happens(pointer(kPressed, KIT_EVENT_PRESS));
    Random random(1);
    // Windows wake at any time, and hands shake.
    for (long long at = kPressed; (at += random.between(1, 3000)) < kReleased;) {
        happens(pointer(at, random.one_in(2) ? KIT_EVENT_TIME : KIT_EVENT_MOVE));
    }
    happens(pointer(kReleased, KIT_EVENT_RELEASE));
    happens(pointer(kReleased + 60000, KIT_EVENT_TIME));

    // One at once, one after 400 ms, and one each 60 ms of the 179.6 s that are left.
    EXPECT_EQ(std::count(heard.begin(), heard.end(), '\n'), 2 + 2993);
    EXPECT_STREQ(kit_screen_get(screen.get(), "n"), "299.5");
    EXPECT_NE(heard.find(R"({"at":1400,"change":"value","id":"s","name":"n","value":0.2})"),
              std::string::npos);
    EXPECT_NE(heard.find(R"({"at":61400,"change":"value","id":"s","name":"n","value":100.2})"),
              std::string::npos);
    EXPECT_EQ(changes(recorded), heard);
    EXPECT_EQ(changes(R"({"at": 1000, "press": [84, 15]}
                         {"at": 181000, "release": [84, 15]}
                         {"at": 999000})"),
              heard);
}

}  // namespace
