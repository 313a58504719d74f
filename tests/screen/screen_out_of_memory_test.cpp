// Every allocation of every call of a screen fails, one by one and with all later ones: the call
// then says so, raises nothing, leaks nothing, leaves the screen as it was, and does its work when
// it is made again.
#include <set>

#include "screens.h"
#include "system/out_of_memory.h"

namespace {

using namespace orvel_test;

const std::string kScene = scene(
    R"({"column": [{"row": [{"text": "${title} that is longer than short strings are"},
        {"button": "A button with many words", "icon": "mail", "id": "button",
         "tip": "What the button does, in words"}],
        "wrap": true, "ground": "surface"},
        {"window": {"each": "days", "as": "day", "text": "${day.name}", "wrap": true, "id": "day"},
         "title": "Window"},
        {"chart": "line", "series": [{"values": "${values}", "name": "A"}], "axes": true},
        {"picture": "any"}, {"image": "none"}, {"include": "other", "with": {"x": "${title}"}},
        {"textbox": "${title}", "id": "field"},
        {"dropdown": "A choice", "items": ["Something to choose", "${title}"], "id": "drop", "key": "f1"},
        {"checkbox": "Choose", "on": "${some.where.on}", "id": "check", "key": "f2"},
        {"tabs": ["One", "${title}"], "selected": 1, "theme": {"accent": "#123456"}}],
        "id": "root", "scroll": true})",
    R"("size": [90, 200], "face": "sans 11",
       "sample": {"title": "Title", "values": [1, 2, 3], "days": [{"name": "Monday"}],
                  "some": {"where": {"on": false}}}, )");

constexpr const char* kReplaced =
    R"({"title": "Another title, which is longer", "values": [3, 2], "days": [],
        "some": {"where": {"on": true}}})";

kit_screen_host host_of(CanvasPtr& picture) {
    kit_screen_host host = {};
    host.self = picture.get();
    host.picture = [](void* self, const char*) -> const orvel_canvas* {
        return static_cast<orvel_canvas*>(self);
    };
    host.include = [](void*, const char*, size_t* length) {
        static const char kText[] = R"({"orvel": 1, "root": {"text": "${x} is what was given"}})";
        *length = sizeof kText - 1;
        return kText;
    };
    return host;
}

/// What the calls work on; made anew for each.
struct Stage {
    Stage() : screen(opened(kScene, nullptr, &host)) {
        kit_screen_focus(screen.get(), "field");
        kit_screen_event event = {};
        event.kind = KIT_EVENT_MOVE;
        kit_box box = {};
        kit_screen_box(screen.get(), "button", &box);
        event.x = box.x + 1;
        event.y = box.y + 1;
        kit_screen_send(screen.get(), &event, 0);
        kit_screen_draw(screen.get(), canvas.get(), nullptr);
    }
    CanvasPtr picture = make_canvas(8, 8);
    kit_screen_host host = host_of(picture);
    CanvasPtr canvas = make_canvas(90, 200);
    ScreenPtr screen;
    char why[200] = "";
};

using Row = FailingRow<Stage>;

/// What kit_screen_send() says of an event in the middle of a node.
int sent(Stage& stage, const char* id, int kind) {
    kit_box box = {};
    kit_screen_box(stage.screen.get(), id, &box);
    kit_screen_event event = {};
    event.kind = kind;
    event.x = box.x + box.w / 2;
    event.y = box.y + box.h / 2;
    return kit_screen_send(stage.screen.get(), &event, 0);
}

/// The same of one for the text field that has the keyboard.
int sent_to_field(Stage& stage, int kind, const char* text, int key = 0) {
    kit_screen_event event = {};
    event.kind = kind;
    event.text = text;
    event.key = key;
    event.modifiers = KIT_MOD_CONTROL;
    return kit_screen_send(stage.screen.get(), &event, 0);
}

/// The same of an event that says nothing but its kind, and how far a wheel is turned.
int sent_at(Stage& stage, int kind, long long now, int key = 0) {
    kit_screen_event event = {};
    event.kind = kind;
    event.key = key;
    event.x = 3;
    event.y = 195;
    event.dy = -120;
    return kit_screen_send(stage.screen.get(), &event, now);
}

int told(const char* text) { return text && *text ? 0 : -1; }

const Row kRows[] = {
    {"kit_screen_read kit_screen_close ",
     [](Stage& stage) {
         const ScreenPtr made(kit_screen_read(kScene.data(), kScene.size(), "name", nullptr,
                                              &stage.host, stage.why, sizeof stage.why));
         return made ? 0 : -1;
     }},
    {"kit_screen_open ",
     [](Stage& stage) {
         const ScreenPtr made(kit_screen_open(ORVEL_SOURCE_DIR "/tests/screen/small.json",
                                              "{\"a\": 1}", nullptr, stage.why, sizeof stage.why));
         return made ? 0 : -1;
     }},
    {"kit_screen_resize ",
     [](Stage& stage) {
         return kit_screen_resize(stage.screen.get(), 50, 60, stage.why, sizeof stage.why);
     }},
    {"kit_screen_set ",
     [](Stage& stage) {
         return kit_screen_set(stage.screen.get(), "days[1].name", "\"Tuesday and more\"",
                               stage.why, sizeof stage.why);
     }},
    {"kit_screen_set ",
     [](Stage& stage) {
         return kit_screen_set(stage.screen.get(), "", kReplaced, stage.why, sizeof stage.why);
     }},
    {"kit_screen_get ",
     [](Stage& stage) { return told(kit_screen_get(stage.screen.get(), "days")); }},
    {"kit_screen_add ",
     [](Stage& stage) {
         return kit_screen_add(stage.screen.get(), "root", 1, R"({"text": "Something new here"})",
                               stage.why, sizeof stage.why);
     }},
    {"kit_screen_remove ",
     [](Stage& stage) {
         return kit_screen_remove(stage.screen.get(), "button", stage.why, sizeof stage.why);
     }},
    {"kit_screen_change ",
     [](Stage& stage) {
         return kit_screen_change(stage.screen.get(), "button", "button", "\"New words for it\"",
                                  stage.why, sizeof stage.why);
     }},
    {"kit_screen_send ", [](Stage& stage) { return sent(stage, "button", KIT_EVENT_PRESS); }},
    {"kit_screen_send ", [](Stage& stage) { return sent(stage, "field", KIT_EVENT_PRESS); }},
    {"kit_screen_send ",
     [](Stage& stage) {
         return sent_to_field(stage, KIT_EVENT_TEXT,
                              "What was typed, longer than what it replaces");
     }},
    {"kit_screen_send ",
     [](Stage& stage) {
         return sent_to_field(stage, KIT_EVENT_COMPOSE, "What an input method composes");
     }},
    {"kit_screen_send ",
     [](Stage& stage) { return sent_to_field(stage, KIT_EVENT_KEY, nullptr, 'x'); }},
    {"kit_screen_send ",
     [](Stage& stage) { return sent_to_field(stage, KIT_EVENT_KEY, nullptr, KIT_KEY_HOME); }},
    {"kit_screen_send ", [](Stage& stage) { return sent_at(stage, KIT_EVENT_WHEEL, 0); }},
    {"kit_screen_send ", [](Stage& stage) { return sent_at(stage, KIT_EVENT_TIME, 600); }},
    {"kit_screen_send ", [](Stage& stage) { return sent_at(stage, KIT_EVENT_KEY, 0, KIT_KEY_F1); }},
    {"kit_screen_send ", [](Stage& stage) { return sent_at(stage, KIT_EVENT_KEY, 0, KIT_KEY_F2); }},
    {"kit_screen_focus ",
     [](Stage& stage) { return kit_screen_focus(stage.screen.get(), "button"); }},
    {"kit_screen_draw kit_screen_expose ",
     [](Stage& stage) {
         kit_screen_expose(stage.screen.get(), nullptr);
         return kit_screen_draw(stage.screen.get(), stage.canvas.get(), nullptr);
     }},
    {"kit_screen_draw ",
     [](Stage& stage) {
         const kit_box part = {10, 10, 40, 90};
         kit_screen_expose(stage.screen.get(), &part);
         return kit_screen_draw(stage.screen.get(), stage.canvas.get(), nullptr);
     }},
    {"kit_screen_describe ",
     [](Stage& stage) { return told(kit_screen_describe(stage.screen.get())); }},
    {"kit_screen_report ",
     [](Stage& stage) { return told(kit_screen_report(stage.screen.get())); }},
    {"kit_screen_report_on ",
     [](Stage& stage) {
         kit_format panel = {};
         panel.layout = KIT_GREY1;
         return told(kit_screen_report_on(stage.screen.get(), &panel));
     }},
};

long allocations_of(const Row& row) {
    Stage stage;
    const long before = allocations_made();
    EXPECT_EQ(row.act(stage), 0) << stage.why;
    return allocations_made() - before;
}

class ScreenOutOfMemoryTest : public testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(, ScreenOutOfMemoryTest, testing::ValuesIn(kRows), name_of_row<Row>);

TEST_P(ScreenOutOfMemoryTest, EveryAllocationThatFailsIsToldAndDoesNoHarm) {
    const Row& row = GetParam();
    const long count = allocations_of(row);
    RecordProperty("allocations", static_cast<int>(count));
    ASSERT_GT(count, 0);
    for (long failing = 1; failing <= count; ++failing) {
        for (const bool alone : {true, false}) {
            const long live = allocations_live();
            {
                Stage stage;
                const std::string before = described(stage.screen.get());
                const Outcome failed =
                    while_failing(failing, alone, [&] { return row.act(stage); });
                EXPECT_FALSE(failed.raised) << failing << " of " << count;
                EXPECT_LT(failed.status, 0) << failing << " of " << count;
                const std::string why = stage.why;
                EXPECT_TRUE(why.empty() || why == "out of memory") << why;
                EXPECT_EQ(described(stage.screen.get()), before) << failing << " of " << count;
                EXPECT_EQ(row.act(stage), 0) << stage.why;
            }
            EXPECT_EQ(allocations_live(), live) << failing << " of " << count;
            if (HasFailure()) return;
        }
    }
}

TEST(ScreenOutOfMemoryTableTest, CallsEveryFunctionThatCanAllocate) {
    const std::set<std::string> others = {
        "kit_screen_version", "kit_screen_size",  "kit_screen_box",    "kit_screen_next",
        "kit_screen_wait",    "kit_screen_caret", "kit_screen_pointer"};
    const auto needs_none = [&](const std::string& name) { return others.count(name) == 1; };
    EXPECT_GT(expect_rows_for(ORVEL_SOURCE_DIR "/tests/screen/exports.txt", kRows, needs_none), 10);
}

}  // namespace
