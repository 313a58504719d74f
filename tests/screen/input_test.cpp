// Events and changes themselves: their bounds, their order, and time.
#include <climits>

#include "live.h"

namespace {

using namespace orvel_test;

const std::string kToggles = scene(
    R"({"column": [{"toggle": "${a}", "id": "a", "width": 50, "height": 20},
                   {"toggle": "${b}", "width": 50, "height": 20},
                   {"toggle": true, "id": "c", "width": 50, "height": 20}]})",
    R"("size": [50, 60], "sample": {"a": false, "b": false}, )");

TEST(InputTest, ValuesOfOneNameInARowAreOneChange) {
    const Used used(kToggles);
    used.click(25, 10);
    used.click(25, 10);
    used.click(25, 10);
    used.click(25, 30);
    used.click(25, 10);
    used.click(25, 50);
    used.click(25, 50);
    EXPECT_EQ(used.changes(), "value #a a=true\nvalue b=true\nvalue #a a=false\nvalue #c=false\n");
    used.click(25, 10);
    EXPECT_EQ(used.changes(), "value #a a=true\n");
    used.click(25, 10);
    EXPECT_EQ(used.changes(), "value #a a=false\n");
}

TEST(InputTest, TheOldestChangesGoBeyond4096) {
    const Used used(kToggles);
    for (int i = 0; i < 2500; ++i) {
        used.click(25, 10);
        used.click(25, 30);
    }
    kit_change change = {};
    int count = 0;
    while (kit_screen_next(used.screen.get(), &change) == 1) ++count;
    EXPECT_EQ(count, 4096);
}

TEST(InputTest, AChangeStaysUntilTheNextIsAsked) {
    const Used used(kToggles);
    kit_change change = {};
    used.click(25, 10);
    EXPECT_EQ(kit_screen_next(used.screen.get(), &change), 1);
    used.click(25, 30);
    EXPECT_STREQ(change.id, "a");
    EXPECT_STREQ(change.name, "a");
    EXPECT_STREQ(change.value, "true");
    EXPECT_EQ(change.kind, KIT_CHANGE_VALUE);
}

TEST(InputTest, OtherButtonsOnlyMoveThePointer) {
    const Used used(kToggles);
    kit_screen_event event = {};
    for (const int kind : {KIT_EVENT_PRESS, KIT_EVENT_RELEASE}) {
        event.kind = kind;
        event.x = event.y = 10;
        event.button = 1;
        EXPECT_EQ(used.send(event), 0);
    }
    EXPECT_EQ(used.changes(), "");
    EXPECT_EQ(used.line("a"), "toggle off hover");
}

TEST(InputTest, EventsMayHoldAnything) {
    Used used(kToggles);
    constexpr int kInts[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, 25, 120, 0x110000, INT_MAX};
    constexpr long long kTimes[] = {LLONG_MIN, LLONG_MAX, 0, LLONG_MIN + 1, -1};
    const char* const texts[] = {nullptr, "", "\xFF\xC0\xED\xA0\x80", "a\tb", "\xF4\x90\x80\x80"};
    int count = 0;
    for (int kind = KIT_EVENT_TIME; kind <= KIT_EVENT_FOCUS; ++kind) {
        for (const int number : kInts) {
            kit_screen_event event = {};
            event.kind = kind;
            event.x = event.dx = event.key = event.caret = number;
            event.y = event.dy = kInts[(number & 7) + 1];
            event.button = number == 1 ? 1 : 0;
            event.modifiers = static_cast<unsigned>(number);
            event.text = texts[++count % 5];
            used.now = kTimes[count % 5];
            EXPECT_EQ(used.send(event), 0);
            EXPECT_GE(kit_screen_wait(used.screen.get(), kTimes[(count + 1) % 5]), -1);
        }
    }
    for (const int kind : {-1, 12, INT_MIN, INT_MAX}) {
        kit_screen_event event = {};
        event.kind = kind;
        EXPECT_EQ(used.send(event), -1);
    }
}

TEST(InputTest, TimeNeverGoesBack) {
    Used used(scene(R"({"column": [{"stepper": "${a}", "id": "a"}]})",
                    R"("size": [90, 24], "sample": {"a": 0}, )"));
    used.now = 1000;
    used.press(80, 12);
    EXPECT_EQ(kit_screen_wait(used.screen.get(), LLONG_MIN), 400);
    used.now = LLONG_MIN;
    used.plain(KIT_EVENT_TIME);
    EXPECT_EQ(used.value("a"), "1");
    EXPECT_EQ(kit_screen_wait(used.screen.get(), 1399), 1);
    used.now = 1400;
    used.plain(KIT_EVENT_TIME);
    EXPECT_EQ(used.value("a"), "2");
    used.now = LLONG_MAX;
    used.plain(KIT_EVENT_TIME);
    EXPECT_EQ(used.value("a"), "1000002");  // as often as it repeats at once
}

TEST(InputTest, TheSameEventsGiveTheSamePictures) {
    const auto run = [](long long start) {
        Used used(kToggles);
        used.now = start;
        for (int i = 0; i < 50; ++i) used.click(7 * i % 50, 11 * i % 60);
        return checksum(drawn(used.screen.get()).get());
    };
    EXPECT_EQ(run(0), run(-123456789));
}

TEST(InputTest, ThePointersShapeTellsWhatIsThere) {
    const Used used(scene(R"({"column": [{"textbox": "", "id": "a", "height": 20},
        {"search": "", "id": "b", "height": 20}, {"button": "B", "id": "c", "height": 20}]})",
                          R"("size": [50, 80], )"));
    const auto shape = [&](int y) {
        used.move(25, y);
        return kit_screen_pointer(used.screen.get());
    };
    EXPECT_EQ(shape(10), KIT_POINTER_TEXT);
    EXPECT_EQ(shape(30), KIT_POINTER_TEXT);
    EXPECT_EQ(shape(50), KIT_POINTER_HAND);
    EXPECT_EQ(shape(70), KIT_POINTER_ARROW);
}

TEST(InputTest, NodesOfOneIdAreToldApart) {
    const Used used(scene(R"({"column": [{"button": "A", "id": "a", "height": 20},
        {"button": "B", "id": "a", "height": 20}, {"button": "C", "id": "a", "height": 20}]})",
                          R"("size": [50, 60], )"));
    used.move(25, 30);
    EXPECT_EQ(described(used.screen.get()),
              "column 0,0 50x60\n  button \"A\" #a 0,0 50x20\n  button \"B\" hover #a 0,20 50x20\n"
              "  button \"C\" #a 0,40 50x20\n");
}

}  // namespace
