// Random events on a screen of everything, and on random ones: it stays consistent, and what is
// drawn of each change is what would be drawn anew. ORVEL_SWEEP_CASE replays a storm by its number.
#include "live.h"
#include "random_screens.h"
#include "support/cases.h"
#include "support/random.h"

namespace {

using namespace orvel_test;

const std::string kEverything = scene(
    R"({"row": [
      {"column": [
        {"button": "Go", "id": "go", "key": "ctrl+g", "tip": "Goes", "sound": "click"},
        {"toggle": "${on}", "tip": "On?"}, {"checkbox": "Off", "on": "${on}", "key": "o"},
        {"row": [{"radio": "A", "selected": "${mode}", "value": "a"},
                 {"radio": "B", "selected": "${mode}", "value": "b", "if": "on"}]},
        {"slider": "${n}", "range": [0, 9, 0.5], "key": "f2"},
        {"stepper": "${n}", "range": [0, 9, 0.5]}, {"rating": "${n}", "range": [0, 9]},
        {"dropdown": "None", "items": "${rooms}", "selected": "${room}", "disabled": "${off}"},
        {"dropdown": "${mode}", "items": ["a", "b", "c", "d", "e", "f", "g", "h"]},
        {"textbox": "${words}", "hint": "Words"}, {"slider": 0.5, "id": "unbound"}],
       "width": 110, "pad": 2, "gap": 2},
      {"column": [{"tabs": ["One", "Two"], "selected": "${tab}", "height": 24},
        {"stack": [
          {"column": [{"each": "rooms", "as": "r", "id": "room", "list_item": "${r}", "tip": "${r}",
                       "selected": "${mode}", "value": "${r}"},
                      {"text": "One two three four five six seven eight nine ten eleven",
                       "wrap": true, "height": 30, "tip": "A paragraph"}], "scroll": true},
          {"panel": {"column": [{"menu": ["A", "B", "C"], "selected": "${tab}"},
            {"row": [{"each": "rooms", "button": "${item}", "id": "b"}], "scroll": 5}]}}],
         "show": "${tab}", "grow": 1}], "grow": 1}]})",
    R"("size": [220, 230], "sample": {"on": true, "off": false, "mode": "a", "n": 4, "room": 0,
       "rooms": ["Hall", "Bath", "Attic", "Cellar", "Garden", "Garage", "Hut", "Shed", "Barn"],
       "tab": 0, "words": "Words"}, )");

const std::string kFields = scene(
    R"({"column": [
      {"textbox": "${words}", "hint": "Words"},
      {"search": "${words}", "limit": 6, "width": 70},
      {"textbox": "${words}", "secret": "${on}", "id": "secret", "key": "f2", "tip": "Secret"},
      {"textbox": "Nobody's", "id": "unbound", "face": "bold 14"},
      {"row": [{"textbox": "${short}", "width": 40}, {"textbox": "${words}", "width": 15},
               {"button": "Go", "id": "go"}]},
      {"toggle": "${on}"}, {"textbox": "${words}", "id": "room", "disabled": "${on}"}]})",
    R"("size": [120, 190], "sample": {"on": true, "short": "one two",
       "words": "Words that don't fit, e\u0301 and \ud83c\udde9\ud83c\uddea"}, )");

kit_screen_event random_event(Random& random, int width, int height) {
    constexpr int kKeys[] = {KIT_KEY_ENTER,
                             KIT_KEY_TAB,
                             KIT_KEY_ESCAPE,
                             KIT_KEY_LEFT,
                             KIT_KEY_RIGHT,
                             KIT_KEY_UP,
                             KIT_KEY_DOWN,
                             KIT_KEY_HOME,
                             KIT_KEY_END,
                             KIT_KEY_DELETE,
                             KIT_KEY_BACKSPACE,
                             KIT_KEY_PAGE_UP,
                             KIT_KEY_PAGE_DOWN,
                             KIT_KEY_F2,
                             ' ',
                             'o',
                             'g',
                             'a',
                             'c',
                             'v',
                             'x',
                             'y',
                             'z'};
    constexpr const char* kTexts[] = {"a",
                                      "b",
                                      "H",
                                      "\xC3\xA4",
                                      " ",
                                      "\xFF",
                                      "ca",
                                      "",
                                      "Wort",
                                      "\xCC\x81",
                                      "\xF0\x9F\x87\xA9",
                                      "Two words, long ones\n"};
    kit_screen_event event = {};
    const int kind = random.between(0, 19);
    event.kind = kind <= KIT_EVENT_FOCUS ? kind : kind % 3 + 1;  // the pointer more often
    if (event.kind == KIT_EVENT_LEAVE && !random.one_in(5)) event.kind = KIT_EVENT_PRESS;
    event.x = random.between(-5, width + 5);
    event.y = random.between(-5, height + 5);
    event.dx = 60 * random.between(-3, 3);
    event.dy = 60 * random.between(-3, 3);
    event.button = random.one_in(20) ? 1 : 0;
    event.key = kKeys[random.between(0, static_cast<int>(std::size(kKeys)) - 1)];
    event.modifiers = random.one_in(3) ? static_cast<unsigned>(random.between(0, 7)) : 0;
    event.text = kTexts[random.between(0, static_cast<int>(std::size(kTexts)) - 1)];
    event.caret = random.between(-1, 5);
    return event;
}

std::string written(const kit_screen_event& event) {
    std::string text = "kind " + std::to_string(event.kind);
    for (const int number : {event.x, event.y, event.dx, event.dy, event.button, event.key,
                             static_cast<int>(event.modifiers)}) {
        text += ' ' + std::to_string(number);
    }
    return text + ' ' + event.text;
}

int count_of(const std::string& all, const std::string& part) {
    int count = 0;
    for (std::size_t at = all.find(part); at != std::string::npos; at = all.find(part, at + 1)) {
        ++count;
    }
    return count;
}

/// At most one of each, and nobody without a reason.
void expect_consistent(kit_screen* screen) {
    const std::string all = described(screen);
    const bool open = count_of(all, " open ") > 0;
    EXPECT_LE(count_of(all, " hover "), 1) << all;
    EXPECT_LE(count_of(all, " pressed "), 1) << all;
    EXPECT_LE(count_of(all, " open "), 1) << all;
    EXPECT_LE(count_of(all, " focus "), open ? 2 : 1) << all;
    EXPECT_EQ(count_of(all, "\ncolumn"), open ? 1 : 0) << all;
    EXPECT_LE(count_of(all, "\ntooltip"), open ? 0 : 1) << all;
    EXPECT_EQ(count_of(all, "disabled hover"), 0) << all;
    EXPECT_EQ(count_of(all, "disabled pressed"), 0) << all;
    EXPECT_EQ(count_of(all, "disabled focus"), 0) << all;
    EXPECT_GE(kit_screen_wait(screen, 0), -1);
}

/// What was drawn in a part is what would be drawn anew.
void expect_redrawn(kit_screen* screen, orvel_canvas* canvas) {
    kit_box dirty = {};
    ASSERT_EQ(kit_screen_draw(screen, canvas, &dirty), 0);
    ASSERT_EQ(checksum(drawn(screen).get()), checksum(canvas)) << dirty << described(screen);
}

void storm(const ScreenPtr& screen, Random& random, int events) {
    int width = 0, height = 0;
    kit_screen_size(screen.get(), &width, &height);
    const CanvasPtr canvas = drawn(screen.get());
    long long now = 0;
    std::string last;
    for (int i = 0; i < events && !testing::Test::HasFailure(); ++i) {
        const kit_screen_event event = random_event(random, width, height);
        SCOPED_TRACE("event " + std::to_string(i) + ", " + written(event) + ", after " + last);
        now += random.one_in(4) ? random.between(0, 900) : random.between(0, 20);
        ASSERT_EQ(kit_screen_send(screen.get(), &event, now), 0);
        expect_consistent(screen.get());
        expect_redrawn(screen.get(), canvas.get());
        last = written(event);
    }
    kit_change change = {};
    while (kit_screen_next(screen.get(), &change) == 1) {
        const bool known = change.kind >= KIT_CHANGE_VALUE && change.kind <= KIT_CHANGE_SOUND;
        EXPECT_TRUE(known) << change.kind;
    }
}

void storms(std::uint64_t count, int events) {
    for (const std::uint64_t number : some_cases(count)) {
        SCOPED_TRACE("case " + std::to_string(number));
        Random random(number + 77);
        if (number % 4 != 0) {
            storm(opened(number % 4 == 1 ? kFields : kEverything), random, events);
        } else {
            RandomScreens screens(number);
            const std::string text = screens.scene(), data = screens.data();
            storm(opened(text, data.c_str()), random, events / 4);
        }
        if (testing::Test::HasFailure()) return;
    }
}

TEST(StormTest, EveryChangeEqualsAWholeRedraw) { storms(20, 150); }

TEST(StormTest, ManyStormsLeaveTheScreenConsistent) { storms(100, 400); }

/// Changes of the data and of the tree between events.
TEST(StormTest, TheHostMayChangeAnythingMeanwhile) {
    for (const std::uint64_t number : some_cases(20)) {
        SCOPED_TRACE("case " + std::to_string(number));
        Random random(number);
        const ScreenPtr screen = opened(number % 2 == 0 ? kEverything : kFields);
        const CanvasPtr canvas = drawn(screen.get());
        for (int i = 0; i < 100 && !testing::Test::HasFailure(); ++i) {
            const kit_screen_event event = random_event(random, 220, 230);
            ASSERT_EQ(kit_screen_send(screen.get(), &event, 100LL * i), 0);
            const char* const yes = random.one_in(2) ? "true" : "false";
            switch (random.between(0, 7)) {
            case 5:
                set(screen.get(), "words", random.one_in(2) ? "\"\"" : "\"Other words\"");
                break;
            case 6:
                kit_screen_change(screen.get(), "unbound", "textbox", "\"Nobody'sa\"", nullptr, 0);
                break;
            case 0: set(screen.get(), "on", yes); break;
            case 1: set(screen.get(), "off", yes); break;
            case 2: set(screen.get(), "tab", random.one_in(2) ? "0" : "1"); break;
            case 3: set(screen.get(), "rooms", random.one_in(2) ? "[]" : R"(["A", "B"])"); break;
            case 4:
                kit_screen_change(screen.get(), "go", "disabled", random.one_in(2) ? yes : nullptr,
                                  nullptr, 0);
                break;
            default: kit_screen_focus(screen.get(), random.one_in(2) ? "go" : "room[1]"); break;
            }
            expect_consistent(screen.get());
            expect_redrawn(screen.get(), canvas.get());
        }
    }
}

}  // namespace
