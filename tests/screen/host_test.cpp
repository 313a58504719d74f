// What a screen asks its host for, and the files beside a scene.
#include <sys/stat.h>

#include "screens.h"
#include "support/files.h"

namespace {

using namespace orvel_test;

std::string refused_with(Files files, const std::string& root) {
    const kit_screen_host host = including(files);
    return refusal(scene(root), nullptr, &host);
}

TEST(HostTest, GivesThemesAndFacesBesideThoseThatAreThere) {
    kit_screen_host host = {};
    static orvel_theme theme = {};
    theme.background = {1, 2, 3, 255};
    host.theme = [](void*, const char* name) -> const orvel_theme* {
        return std::string(name) == "own" ? &theme : nullptr;
    };
    host.face = [](void*, const char* name) {
        return std::string(name) == "big" ? kit_sans_40() : nullptr;
    };
    const std::string text =
        scene(R"({"row": [{"text": "X", "face": "big"}, {"text": "X", "face": "sans 12"},
                          {"text": "X", "theme": "dark"}]})",
              "\"theme\": \"own\", \"size\": [200, 60], ");
    const ScreenPtr screen = opened(text, nullptr, &host);
    ASSERT_TRUE(screen);
    EXPECT_EQ(orvel_canvas_pixel_get(drawn(screen.get()).get(), 199, 0), theme.background);
    const std::string all = described(screen.get());
    EXPECT_NE(all.find("text \"X\" 0,0 " + std::to_string(kit_text_width(kit_sans_40(), "X"))),
              std::string::npos)
        << all;
}

TEST(HostTest, GivesPicturesWhichNeedNotBeThere) {
    kit_screen_host host = {};
    static const CanvasPtr red = make_canvas(10, 6);
    orvel_canvas_clear(red.get(), {255, 0, 0, 255});
    host.picture = [](void*, const char* name) -> const orvel_canvas* {
        return std::string(name) == "red" ? red.get() : nullptr;
    };
    const std::string text = scene(
        R"({"row": [{"picture": "red"}, {"picture": "red", "width": 4, "height": 4},
                    {"picture": "none"}, {"picture": "red", "width": 14, "height": 6}],
            "ground": "#000000", "align": "start"})",
        "\"size\": [30, 7], ");
    const ScreenPtr screen = opened(text, nullptr, &host);
    const Palette palette = {{'.', kBlack}, {'r', {255, 0, 0, 255}}};
    EXPECT_EQ(picture(drawn(screen.get()).get(), palette),
              "rrrrrrrrrrrrrr..rrrrrrrrrr....\n"
              "rrrrrrrrrrrrrr..rrrrrrrrrr....\n"
              "rrrrrrrrrrrrrr..rrrrrrrrrr....\n"
              "rrrrrrrrrrrrrr..rrrrrrrrrr....\n"
              "rrrrrrrrrr......rrrrrrrrrr....\n"
              "rrrrrrrrrr......rrrrrrrrrr....\n"
              "..............................\n");
    EXPECT_EQ(described(opened(text).get()),
              "row 0,0 30x7\n  picture 0,0 4x4\n  picture 4,0 14x6\n");
}

TEST(HostTest, IncludesSeeOnlyWhatTheyAreGiven) {
    Files files = {{"a.json", scene(R"({"text": "${x} ${y|none}", "id": "inner"})",
                                    "\"theme\": \"light\", ")}};
    const kit_screen_host host = including(files);
    const std::string root = R"({"column": [{"include": "a.json", "with": {"x": "${y}", "z": [1]},
        "width": 90, "id": "outer"}, {"include": "a.json", "with": {"x": 2}}]})";
    const ScreenPtr screen = opened(scene(root, "\"size\": [99, 40], "), R"({"y": 7})", &host);
    EXPECT_EQ(described(screen.get()),
              "column 0,0 99x40\n"
              "  include #outer 0,0 90x15\n    text \"7 none\" #inner 0,0 90x15\n"
              "  include 0,15 99x15\n    text \"2 none\" #inner 0,15 99x15\n");
    EXPECT_EQ(refused_with({{"a.json", scene(R"({"text": "${x}"})")}}, R"({"include": "a.json"})"),
              "a.json:1:31: root.text: there is no x in the data");
}

TEST(HostTest, IncludesAreCheckedAndNeitherRoundNorDeep) {
    EXPECT_EQ(
        refused_with({{"a.json", scene(R"({"row": [{"tixt": ""}]})")}}, R"({"include": "a.json"})"),
        R"(a.json:1:32: root.row[0].tixt: unknown kind; did you mean "text"?)");
    EXPECT_EQ(refused_with({}, R"({"include": "a.json"})"),
              R"(scene:1:34: root.include: there is no scene "a.json")");
    EXPECT_EQ(refused_with({{"a.json", "{"}}, R"({"include": "a.json"})").substr(0, 11),
              "a.json:1:2:");
    EXPECT_EQ(refused_with({{"a.json", scene(R"({"include": "b.json"})")},
                            {"b.json", scene(R"({"include": "a.json"})")}},
                           R"({"include": "a.json"})"),
              R"(b.json:1:34: root.include: "a.json" includes itself)");
    Files deep;
    const auto name = [](int i) { return "f" + std::to_string(i) + ".json"; };
    for (int i = 1; i < 9; ++i) {
        deep[name(i)] =
            scene(i == 8 ? R"({"text": "End"})" : "{\"include\": \"" + name(i + 1) + "\"}");
    }
    EXPECT_EQ(refused_with(deep, R"({"include": "f1.json"})"), "");
    deep["f8.json"] = scene(R"({"include": "f9.json"})");
    deep["f9.json"] = scene(R"({"text": "End"})");
    EXPECT_EQ(refused_with(deep, R"({"include": "f1.json"})"),
              "f8.json:1:34: root.include: found more than 8 includes in each other");
    // What was seen before, and is high by itself.
    EXPECT_EQ(refused_with(deep, R"({"column": [{"include": "f2.json"}, {"include": "f1.json"}]})"),
              "f1.json:1:34: root.include: found more than 8 includes in each other");
}

TEST(HostTest, NamesOfIncludesStayInTheFolder) {
    for (const char* name :
         {"", "/etc/passwd", "../a", "a/../../b", "./a", "a//b", "a/", "a\\\\b", "c:a", ".."}) {
        const std::string why = refused_with({}, std::string("{\"include\": \"") + name + "\"}");
        EXPECT_NE(why.find("expected the name of a file in this folder"), std::string::npos) << why;
    }
}

TEST(HostTest, ScenesAreOpenedFromFilesWithWhatTheyInclude) {
    const TempFolder folder;
    write_file(folder / "main.json", scene(R"({"include": "sub/a.json"})"));
    write_file(folder / "sub/a.json", scene(R"({"include": "b.json"})"));
    write_file(folder / "sub/b.json", scene(R"({"txt": "B"})"));
    const std::string path = folder / "main.json";
    char why[400] = "";
    EXPECT_EQ(kit_screen_open(path.c_str(), nullptr, nullptr, why, sizeof why), nullptr);
    EXPECT_EQ(why, folder / "sub/b.json" + ":1:23: root.txt: unknown kind; did you mean \"text\"?");
    write_file(folder / "sub/b.json", scene(R"({"text": "B"})"));
    const ScreenPtr screen(kit_screen_open(path.c_str(), nullptr, nullptr, why, sizeof why));
    ASSERT_TRUE(screen) << why;
    EXPECT_NE(described(screen.get()).find("text \"B\""), std::string::npos);
}

TEST(HostTest, FilesThatAreMissingOrTooLargeAreTold) {
    const TempFolder folder;
    char why[400] = "";
    const kit_screen_host host = {};
    write_file(folder / "main.json", scene(R"({"include": "none.json"})"));
    EXPECT_EQ(kit_screen_open((folder / "main.json").c_str(), nullptr, &host, why, sizeof why),
              nullptr);
    EXPECT_EQ(why, folder / "main.json" + ":1:34: root.include: there is no scene \"" +
                       (folder / "none.json") + "\"");
    write_file(folder / "large.json", std::string((std::size_t{16} << 20) + 9, ' '));
    EXPECT_EQ(kit_screen_open((folder / "large.json").c_str(), nullptr, &host, why, sizeof why),
              nullptr);
    EXPECT_EQ(std::string(why).find(folder / "large.json" + ":"), 0u) << why;
}

TEST(HostTest, WhatIsNoFileIsToldAndNotWaitedFor) {
    const TempFolder folder;
    char why[400] = "";
    for (const std::string& path : {std::string("/no/such"), folder.path(), std::string()}) {
        EXPECT_EQ(kit_screen_open(path.c_str(), nullptr, nullptr, why, sizeof why), nullptr);
        EXPECT_EQ(why, path + ": the file cannot be read");
    }
    const std::string fifo = folder / "fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(kit_screen_open(fifo.c_str(), nullptr, nullptr, why, sizeof why), nullptr);
    EXPECT_EQ(kit_screen_open(nullptr, nullptr, nullptr, why, sizeof why), nullptr);
}

TEST(BoundsTest, TenThousandNodesAreTheMost) {
    const std::string text =
        scene(R"({"column": [{"each": "list", "rect": "accent"}]})", "\"size\": [10, 10], ");
    const auto data = [](int count) {
        std::string list = "{\"list\": [0";
        for (int i = 1; i < count; ++i) list += ",0";
        return list + "]}";
    };
    EXPECT_EQ(refusal(text, data(9999).c_str()), "");
    EXPECT_EQ(refusal(text, data(10000).c_str()),
              "scene:1:52: root.column[0]: found more than 10000 nodes");
}

TEST(BoundsTest, AMillionNodesAreTheMostThatCanBeLeftOut) {
    const std::string text = scene(R"({"column": [{"each": "list", "as": "a", "column": [
        {"each": "list", "as": "b", "if": "b", "rect": "accent"}]}]})",
                                   "\"size\": [10, 10], ");
    const auto data = [](int count) {
        std::string list = "{\"list\": [false";
        for (int i = 1; i < count; ++i) list += ",false";
        return list + "]}";
    };
    EXPECT_EQ(refusal(text, data(999).c_str()), "");
    EXPECT_EQ(refusal(text, data(1000).c_str()),
              "scene:1:52: root.column[0]: found more than 1000000 nodes with those that are left "
              "out");
}

TEST(BoundsTest, WhatWouldBePaintedForMinutesIsRefused) {
    const std::string text =
        scene(R"({"stack": [{"each": "list", "rect": "accent"}]})", "\"size\": [4096, 4096], ");
    std::string list = "{\"list\": [0";
    for (int i = 1; i < 64; ++i) list += ",0";
    EXPECT_EQ(refusal(text, (list + "]}").c_str()), "");
    EXPECT_EQ(refusal(text, (list + ",0]}").c_str()),
              "scene: found nodes that cover 1040 million pixels together, 1024 are the most");
}

TEST(BoundsTest, DataThatIncludesMultiplyAreRefused) {
    std::string with = R"("with": {"x": [)";
    for (int i = 0; i < 100; ++i) with += i == 0 ? "\"${x}\"" : ", \"${x}\"";
    with += "]}";
    Files files;
    for (int i = 1; i < 6; ++i) {
        files["f" + std::to_string(i)] =
            scene("{\"include\": \"f" + std::to_string(i + 1) + "\", " + with + "}");
    }
    files["f6"] = scene(R"({"text": ""})");
    const std::string why =
        refused_with(files, "{\"include\": \"f1\", \"with\": {\"x\": \"0123456789\"}}");
    EXPECT_NE(why.find("the data make the screen larger than 32 MiB"), std::string::npos) << why;
}

}  // namespace
