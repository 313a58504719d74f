// Trees that are made and changed by calls.
#include "screens.h"

namespace {

using namespace orvel_test;

const std::string kEmpty =
    R"({"orvel": 1, "size": [80, 60], "root": {"column": [], "id": "root"}})";

struct Edited {
    ScreenPtr screen = opened(kEmpty);
    char why[300] = "";

    std::string add(const char* parent, int at, const char* json) {
        *why = '\0';
        const int status = kit_screen_add(screen.get(), parent, at, json, why, sizeof why);
        EXPECT_EQ(status, *why == '\0' ? 0 : -1);
        return why;
    }
    std::string remove(const char* id) {
        *why = '\0';
        const int status = kit_screen_remove(screen.get(), id, why, sizeof why);
        EXPECT_EQ(status, *why == '\0' ? 0 : -1);
        return why;
    }
    std::string change(const char* id, const char* key, const char* json) {
        *why = '\0';
        const int status = kit_screen_change(screen.get(), id, key, json, why, sizeof why);
        EXPECT_EQ(status, *why == '\0' ? 0 : -1);
        return why;
    }
    std::string told() const { return described(screen.get()); }
};

TEST(EditingTest, ATreeIsMadeByCalls) {
    Edited tree;
    EXPECT_EQ(tree.add("root", -1, R"({"rect": "accent", "height": 10, "id": "a"})"), "");
    EXPECT_EQ(tree.add("root", 99, R"({"panel": {"row": [], "id": "inner"}, "id": "c"})"), "");
    EXPECT_EQ(tree.add("root", 1, R"({"rect": "accent", "height": 11, "id": "b"})"), "");
    EXPECT_EQ(tree.add("inner", 0, R"({"rect": "accent", "width": 5, "height": 6})"), "");
    EXPECT_EQ(tree.told(),
              "column #root 0,0 80x60\n"
              "  rect #a 0,0 80x10\n"
              "  rect #b 0,10 80x11\n"
              "  panel #c 0,21 80x8\n"
              "    row #inner 1,22 78x6\n"
              "      rect 1,22 5x6\n");
    EXPECT_EQ(tree.change("b", "height", "20"), "");
    EXPECT_EQ(tree.change("a", "height", nullptr), "");
    EXPECT_EQ(tree.change("a", "gone", nullptr), "");
    EXPECT_EQ(tree.change("a", "grow", "1"), "");
    EXPECT_EQ(tree.remove("c"), "");
    EXPECT_EQ(tree.told(), "column #root 0,0 80x60\n  rect #a 0,0 80x40\n  rect #b 0,40 80x20\n");
}

TEST(EditingTest, OnlyWhatChangedIsDrawn) {
    Edited tree;
    tree.add("root", -1, R"({"rect": "accent", "height": 10, "id": "a"})");
    const CanvasPtr canvas = drawn(tree.screen.get());
    EXPECT_EQ(tree.add("root", -1, R"({"rect": "error", "height": 5})"), "");
    kit_box dirty;
    EXPECT_EQ(kit_screen_draw(tree.screen.get(), canvas.get(), &dirty), 0);
    EXPECT_EQ(dirty, (kit_box{0, 10, 80, 5}));
}

TEST(EditingTest, WhatIsRefusedChangesNothing) {
    Edited tree;
    tree.add("root", -1, R"({"panel": {"rect": "accent", "id": "b"}, "height": 10, "id": "a"})");
    const std::string before = tree.told();
    EXPECT_EQ(tree.add("root", 0, R"({"tixt": "A"})"),
              R"(scene: root.column[0].tixt: unknown kind; did you mean "text"?)");
    EXPECT_EQ(tree.add("root", 0, "{"),
              R"(node:1:2: found the end of the file, expected a key in quotes)");
    EXPECT_EQ(tree.add("root", 0, nullptr).substr(0, 9), "node:1:1:");
    EXPECT_EQ(tree.add("nobody", 0, R"({"text": "A"})"),
              R"(scene: there is no node with the id "nobody")");
    EXPECT_EQ(tree.add(nullptr, 0, R"({"text": "A"})"),
              R"(scene: there is no node with the id "")");
    EXPECT_EQ(tree.add("a", 0, R"({"text": "A"})"), R"(scene: "a" is no row, column or stack)");
    EXPECT_EQ(tree.remove("b"), R"(scene: "b" is in no row, column or stack)");
    EXPECT_EQ(tree.remove("root"), R"(scene: "root" is in no row, column or stack)");
    EXPECT_EQ(tree.change("b", "rect", "\"blau\"").substr(0, 41),
              R"(scene: root.column[0].panel.rect: found ")");
    EXPECT_EQ(tree.change("b", "rect", "blau").substr(0, 10), "value:1:1:");
    EXPECT_EQ(tree.change("b", nullptr, "1"),
              R"(scene: root.column[0].panel.: unknown key of a rect)");
    EXPECT_EQ(tree.change("b", "rect", nullptr),
              R"(scene: root.column[0].panel: found a node without a kind, like "row")");
    EXPECT_EQ(tree.told(), before);
    EXPECT_EQ(kit_screen_add(nullptr, "root", 0, "{}", nullptr, 0), -1);
    EXPECT_EQ(kit_screen_remove(nullptr, "root", nullptr, 0), -1);
    EXPECT_EQ(kit_screen_change(nullptr, "root", "id", "1", nullptr, 0), -1);
}

TEST(EditingTest, NodesDoNotLieDeeperThanInAFile) {
    Edited tree;
    std::string last;
    std::string id = "root";
    for (int i = 0; i < 40 && last.empty(); ++i) {
        const std::string next = "n" + std::to_string(i);
        last = tree.add(id.c_str(), 0, ("{\"row\": [], \"id\": \"" + next + "\"}").c_str());
        id = next;
    }
    EXPECT_EQ(last, "scene: nodes lie too deep");
}

TEST(EditingTest, FramesWithoutANodeAreLookedThrough) {
    Edited tree;
    EXPECT_EQ(tree.add("root", -1, R"({"panel": null})"), "");
    EXPECT_EQ(tree.add("root", -1, R"({"rect": "accent", "height": 6, "id": "x"})"), "");
    EXPECT_EQ(tree.change("x", "height", "7"), "");
    EXPECT_EQ(tree.told(), "column #root 0,0 80x60\n  panel 0,0 80x2\n  rect #x 0,2 80x7\n");
}

TEST(EditingTest, WithoutAnIdTheSceneItselfIsMeant) {
    Edited tree;
    EXPECT_EQ(tree.change(nullptr, "theme", "\"light\""), "");
    EXPECT_EQ(tree.change(nullptr, "face", "\"sans 14\""), "");
    EXPECT_EQ(tree.change(nullptr, "face", nullptr), "");
    EXPECT_EQ(tree.change(nullptr, "size", "[1, 1]"),
              "scene: of the scene itself, only theme and face can be changed");
}

TEST(EditingTest, AnIncludeThatWasRefusedIsReadAgain) {
    Files files;
    const kit_screen_host host = including(files);
    const ScreenPtr screen = opened(kEmpty, nullptr, &host);
    char why[200] = "";
    for (const char* wrong : {R"({"orvel": 1, "root": {"tixt": "A"}})", "{"}) {
        files["a"] = wrong;
        EXPECT_EQ(kit_screen_add(screen.get(), "root", 0, R"({"include": "a"})", why, sizeof why),
                  -1);
        EXPECT_EQ(std::string(why).substr(0, 4), "a:1:") << why;
    }
    files["a"] = scene(R"({"text": "A"})");
    EXPECT_EQ(kit_screen_add(screen.get(), "root", 0, R"({"include": "a"})", why, sizeof why), 0);
}

TEST(EditingTest, IdsStandForTheFirstNodeThatHasThem) {
    Edited tree;
    tree.add("root", -1, R"({"row": [{"rect": "accent", "width": 3, "id": "x"}], "height": 4})");
    tree.add("root", -1, R"({"rect": "accent", "height": 6, "id": "x"})");
    EXPECT_EQ(tree.remove("x"), "");
    EXPECT_EQ(tree.told(), "column #root 0,0 80x60\n  row 0,0 80x4\n  rect #x 0,4 80x6\n");
}

}  // namespace
