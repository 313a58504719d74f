// Random events on a screen of everything, and on random ones: it stays consistent, and what is
// drawn of each change is what would be drawn anew. ORVEL_SWEEP_CASE replays a storm by its number.
#include <cstdio>
#include <cstring>

#include "canvas/canvas.h"
#include "live.h"
#include "random_screens.h"
#include "stormy.h"
#include "support/cases.h"
#include "support/random.h"

namespace {

using namespace orvel_test;

kit_screen_event random_event(Random& random, const kit_screen* screen) {
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
    int width = 0, height = 0;
    kit_screen_size(screen, &width, &height);
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

void expect_consistent(kit_screen* screen) {
    EXPECT_EQ(inconsistency(described(screen)), "");
    EXPECT_GE(kit_screen_wait(screen, 0), -1);
}

/// The screen drawn twice: what changes after each event, and all of it anew.
class Redrawn {
public:
    explicit Redrawn(kit_screen* screen) : screen_(screen) {
        int width = 0, height = 0;
        kit_screen_size(screen, &width, &height);
        size_ = sizeof(orvel_color) * static_cast<std::size_t>(width) *
                static_cast<std::size_t>(height);
        changed_ = make_canvas(width, height);
        anew_ = make_canvas(width, height);
    }

    /// What was drawn in a part is what is drawn anew. The pixels are compared where they lie: to
    /// fetch them would take four times as long as all the rest.
    void expect_the_same() {
        kit_box dirty = {};
        ASSERT_EQ(kit_screen_draw(screen_, changed_.get(), &dirty), 0);
        orvel_canvas_clear(anew_.get(), {1, 2, 3, 4});
        kit_screen_expose(screen_, nullptr);
        ASSERT_EQ(kit_screen_draw(screen_, anew_.get(), nullptr), 0);
        ASSERT_EQ(std::memcmp(changed_->pixels.get(), anew_->pixels.get(), size_), 0)
            << dirty << described(screen_);
    }

private:
    kit_screen* screen_;
    CanvasPtr changed_, anew_;
    std::size_t size_ = 0;
};

void storm(const ScreenPtr& screen, Random& random, int events) {
    Redrawn redrawn(screen.get());
    long long now = 0;
    std::string last;
    for (int i = 0; i < events && !testing::Test::HasFailure(); ++i) {
        const kit_screen_event event = random_event(random, screen.get());
        SCOPED_TRACE("event " + std::to_string(i) + ", " + written(event) + ", after " + last);
        now += random.one_in(4) ? random.between(0, 900) : random.between(0, 20);
        ASSERT_EQ(kit_screen_send(screen.get(), &event, now), 0);
        expect_consistent(screen.get());
        redrawn.expect_the_same();
        last = written(event);
    }
    kit_change change = {};
    while (kit_screen_next(screen.get(), &change) == 1) {
        const bool known = change.kind >= KIT_CHANGE_VALUE && change.kind <= KIT_CHANGE_SOUND;
        EXPECT_TRUE(known) << change.kind;
    }
}

/// Tells how many events there were, in long runs from time to time.
class StormTest : public testing::Test {
protected:
    static void TearDownTestSuite() { std::printf("%lld events\n", s_events); }

    static void count(long long events) {
        constexpr long long kMany = 100000;
        if ((s_events + events) / kMany > s_events / kMany) {
            std::printf("%lld events so far\n", s_events + events);
            std::fflush(stdout);
        }
        s_events += events;
    }

    static void storms(std::uint64_t many, int events) {
        for (const std::uint64_t number : some_cases(many)) {
            SCOPED_TRACE("case " + std::to_string(number));
            Random random(number << 16 | static_cast<std::uint64_t>(events));
            if (number % 2 != 0) {
                storm(opened(number % 4 == 1 ? kFields : kEverything), random, events);
            } else {
                RandomScreens screens(number);
                const std::string text = screens.scene(), data = screens.data();
                storm(opened(text, data.c_str()), random, events / 2);
            }
            if (HasFailure()) return;
            count(number % 2 != 0 ? events : events / 2);
        }
    }

private:
    inline static long long s_events = 0;
};

TEST_F(StormTest, EveryChangeEqualsAWholeRedraw) { storms(20, 150); }

TEST_F(StormTest, ManyStormsLeaveTheScreenConsistent) { storms(100, 400); }

/// Other data, or another tree.
void change_something(kit_screen* screen, Random& random) {
    const char* const yes = random.one_in(2) ? "true" : "false";
    switch (random.between(0, 7)) {
    case 0: set(screen, "on", yes); break;
    case 1: set(screen, "off", yes); break;
    case 2: set(screen, "tab", random.one_in(2) ? "0" : "1"); break;
    case 3: set(screen, "rooms", random.one_in(2) ? "[]" : R"(["A", "B"])"); break;
    case 4:
        kit_screen_change(screen, "go", "disabled", random.one_in(2) ? yes : nullptr, nullptr, 0);
        break;
    case 5: set(screen, "words", random.one_in(2) ? "\"\"" : "\"Other words\""); break;
    case 6: kit_screen_change(screen, "unbound", "textbox", "\"Nobody'sa\"", nullptr, 0); break;
    default: kit_screen_focus(screen, random.one_in(2) ? "go" : "room[1]"); break;
    }
}

TEST_F(StormTest, TheHostMayChangeAnythingMeanwhile) {
    constexpr int kEvents = 100;
    for (const std::uint64_t number : some_cases(30)) {
        SCOPED_TRACE("case " + std::to_string(number));
        Random random(number);
        RandomScreens screens(number + 9);
        const std::string text = screens.scene(), data = screens.data();
        const ScreenPtr screen = number % 3 == 2 ? opened(text, data.c_str())
                                                 : opened(number % 3 == 0 ? kEverything : kFields);
        Redrawn redrawn(screen.get());
        for (int i = 0; i < kEvents && !HasFailure(); ++i) {
            const kit_screen_event event = random_event(random, screen.get());
            ASSERT_EQ(kit_screen_send(screen.get(), &event, 100LL * i), 0);
            if (number % 3 == 2) {
                std::string name, json;
                screens.change(name, json);
                // Refused where a slider has made of a whole number a fraction that is a width now.
                set(screen.get(), name.c_str(), json.c_str());
            } else {
                change_something(screen.get(), random);
            }
            expect_consistent(screen.get());
            redrawn.expect_the_same();
        }
        if (HasFailure()) return;
        count(kEvents);
    }
}

}  // namespace
