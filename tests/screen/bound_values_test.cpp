// Which value of the data a control is bound to, through repetitions and what is included.
#include "live.h"

namespace {

using namespace orvel_test;

/// What comes of a click on each tenth row of a screen that includes a scene with this root.
std::string clicked(const std::string& part, const std::string& root, const std::string& head) {
    Files files = {{"part", scene(part)}};
    const kit_screen_host host = including(files);
    const Used used(scene(root, head), nullptr, &host);
    for (int y = 5; y < 100; y += 10) used.click(5, y);
    return used.changes();
}

TEST(BoundValuesTest, NamesAreThoseOfTheWholeData) {
    EXPECT_EQ(clicked(R"({"column": [{"toggle": "${light.on}", "id": "a", "height": 10},
                                     {"toggle": "${given}", "id": "b", "height": 10},
                                     {"toggle": "${list[1].x}", "id": "c", "height": 10},
                                     {"toggle": "${made}", "id": "d", "height": 10},
                                     {"toggle": "${list[0]}", "id": "e", "height": 10}]})",
                      R"({"column": [{"each": "rooms", "as": "room", "column": [
                          {"each": "room.lights", "include": "part", "with": {"light": "${item}",
                           "given": "${room.on}", "list": ["${item.on|true}", {"x": "${all.on}"}],
                           "made": "${room.on|true}"}}]}]})",
                      R"("size": [99, 99], "sample": {"all": {"on": true}, "rooms": [
                          {"on": false, "lights": [{"on": true}]},
                          {"on": true, "lights": [{"on": true}]}]}, )"),
              "value #a[0][0] rooms[0].lights[0].on=false\nvalue #b[0][0] rooms[0].on=true\n"
              "value #c[0][0] all.on=false\nvalue #d[0][0]=false\nvalue #e[0][0]=true\n"
              "value #a[1][0] rooms[1].lights[0].on=false\nvalue #b[1][0] rooms[1].on=false\n"
              "value #c[1][0] all.on=true\nvalue #d[1][0]=true\nvalue #e[1][0]=true\n");
}

TEST(BoundValuesTest, WithMayBeOneValue) {
    EXPECT_EQ(clicked(R"({"toggle": "${on}", "width": 30, "height": 10})",
                      R"({"column": [{"include": "part", "with": "${a}"}], "align": "start"})",
                      R"("size": [99, 99], "sample": {"a": {"on": true}}, )"),
              "value a.on=false\n");
}

TEST(BoundValuesTest, NamesThatAreNotThereOrWereMadeAreNotBound) {
    EXPECT_NE(refusal(scene(R"({"toggle": "${none}"})")), "");
    EXPECT_EQ(clicked(R"({"column": [{"toggle": "${made.x}", "id": "a", "height": 10},
                                     {"toggle": "${list[0]}", "id": "b", "height": 10}]})",
                      R"({"include": "part", "with": {"made": {"x": true}, "list": [false]}})",
                      R"("size": [60, 40], )"),
              "value #a=false\nvalue #b=true\n");
}

TEST(BoundValuesTest, WhatIsMadeOfValuesIsNotBound) {
    EXPECT_EQ(clicked(R"({"column": [{"toggle": "${x.on}", "id": "a", "height": 10},
                                     {"stepper": "${n}", "id": "b", "height": 10},
                                     {"slider": "${m}", "id": "c", "height": 10},
                                     {"dropdown": "${t}", "id": "d", "height": 10}]})",
                      R"({"include": "part", "with": {"x": {"on": "${on}"}, "n": "${n:1}",
                                                      "m": 0.5, "t": "It is ${n}"}})",
                      R"("size": [60, 60], "sample": {"on": true, "n": 2}, )"),
              "value #a on=false\nvalue #b=1\nvalue #c=0.02\npress #d\n");
}

TEST(BoundValuesTest, ItemsOfAListThatWasMadeAreNotBound) {
    EXPECT_EQ(clicked(R"({"column": [{"each": "list", "toggle": "${item.on}", "id": "a",
                                      "height": 10}]})",
                      R"({"include": "part", "with": {"list": [{"on": true}, {"on": false}]}})",
                      R"("size": [60, 60], )"),
              "value #a[0]=false\nvalue #a[1]=true\n");
}

TEST(BoundValuesTest, WaysThatLeadNowhereInWhatWasMadeAreRefused) {
    for (const std::string way : {"x.y", "x.y.z", "x[0]", "list[7]", "list.x", "list[0].x.y"}) {
        Files files = {{"part", scene(R"({"toggle": "${)" + way + R"(}"})")}};
        const kit_screen_host host = including(files);
        const std::string why = refusal(
            scene(R"({"include": "part", "with": {"x": {"on": true}, "list": [{"on": true}]}})"),
            nullptr, &host);
        EXPECT_NE(why.find("in the data"), std::string::npos) << way << ": " << why;
    }
}

/// A way of so many steps of one name.
std::string steps(const std::string& name, int count) {
    std::string way;
    for (; count > 0; --count) way += '.' + name;
    return way;
}

/// A value so deep in objects with one member each.
std::string deep(const std::string& name, int count, const std::string& value) {
    std::string json;
    for (int i = 0; i < count; ++i) json += "{\"" + name + "\": ";
    return json + value + std::string(static_cast<std::size_t>(count), '}');
}

TEST(BoundValuesTest, WaysOfMoreThan64StepsAreNotBound) {
    const auto pressed = [](int below) {
        Files files = {
            {"middle",
             scene(R"({"include": "last", "with": {"k": "${m)" + steps("y", 30) + R"(}"}})")},
            {"last", scene(R"({"toggle": "${k)" + steps("x", below) + R"(}", "id": "it"})")}};
        const kit_screen_host host = including(files);
        const Used used(
            scene(R"({"include": "middle", "with": {"m": )" + deep("y", 30, "\"${d}\"") + "}}",
                  R"("size": [60, 40], "sample": {"d": )" + deep("x", below, "true") + "}, "),
            nullptr, &host);
        used.focus("it");
        used.key(' ');
        return used.changes();
    };
    EXPECT_EQ(pressed(33), "value #it d" + steps("x", 33) + "=false\n");
    EXPECT_EQ(pressed(34), "value #it=false\n");
}

}  // namespace
