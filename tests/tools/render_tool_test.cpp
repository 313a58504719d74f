// What orvel-render draws, describes and checks.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include "picture_file.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"
#include "tools/render_tool.h"

namespace {

namespace fs = std::filesystem;
using orvel_test::Finished;
using orvel_test::kRender;
using orvel_test::kScene;
using orvel_test::read_file;
using orvel_test::read_png;
using orvel_test::RenderTool;
using orvel_test::write_file;
using orvel_tools::Picture;

constexpr orvel_color kWhite = {255, 255, 255, 255};
constexpr orvel_color kRed = {255, 0, 0, 255};

/// How many pixels from the left are black in the first row.
int bar_of(const Picture& picture) {
    int x = 0;
    while (x < picture.width && picture.at(x, 0) == orvel_test::kBlack) ++x;
    return x;
}

TEST_F(RenderTool, ASceneIsDrawnWithItsSample) {
    drawn("out.png");
    const Picture picture = read_png(png);
    EXPECT_EQ(picture.width, 40);
    EXPECT_EQ(picture.height, 20);
    EXPECT_EQ(bar_of(picture), 8);
    EXPECT_EQ(picture.at(39, 19), kWhite);
    int red = 0;
    for (const orvel_color& color : picture.pixels) red += color == kRed ? 1 : 0;
    EXPECT_GT(red, 40);
}

TEST_F(RenderTool, DataComeFromFilesAndFromTheCommandLine) {
    write_file(folder / "data.json", R"({"bar": 5})");
    EXPECT_EQ(run({"--data", folder / "data.json", "-o", png}).status, 0);
    EXPECT_EQ(bar_of(read_png(png)), 5);
    EXPECT_EQ(run({"--data", folder / "data.json", "--set", "bar=7", "-o", png}).status, 0);
    EXPECT_EQ(bar_of(read_png(png)), 7);
    EXPECT_EQ(run({"--set", "bar=9", "--set", "word=a \"b\" \\ c", "-o", png}).error, "");
    EXPECT_EQ(bar_of(read_png(png)), 9);
    EXPECT_EQ(run({"--sample", "--set", "bar=3", "-o", png}).status, 0);
    EXPECT_EQ(bar_of(read_png(png)), 3);
}

TEST_F(RenderTool, WithoutSampleItIsNotShown) {
    const std::string why = scene + ":3:34: root.column[0].width: there is no bar in the data";
    expect_refused({"-o", png}, why + " (--sample shows the scene's own)");
    expect_refused({"-o", png, "--set", "word=x"}, why);
}

TEST_F(RenderTool, TheStandardStreamsAreDashes) {
    const std::string command = "printf '{\"bar\": 6}' | '" + std::string(kRender) + "' '" + scene +
                                "' --data - -o - > '" + png + "'";
    EXPECT_EQ(orvel_test::run({"sh", "-c", command}).status, 0);
    EXPECT_EQ(bar_of(read_png(png)), 6);
    const Finished raw = run({"--sample", "-o", "-", "--format", "ppm"});
    EXPECT_EQ(raw.output.substr(0, 13), "P6\n40 20\n255\n");
    const std::string from =
        "'" + std::string(kRender) + "' - --sample --describe < '" + scene + "'";
    EXPECT_EQ(orvel_test::run({"sh", "-c", from}).output, run({"--sample", "--describe"}).output);
}

TEST_F(RenderTool, EveryFormatShowsTheSamePixels) {
    drawn("out.png");
    const Picture picture = read_png(png);
    drawn("out.bmp");
    std::string error;
    EXPECT_EQ(orvel_tools::read_picture(folder / "out.bmp", error)->pixels, picture.pixels);
    const std::string ppm = drawn("out.ppm"), raw = drawn("out.raw"), pbm = drawn("out.pbm");
    const auto bytes = orvel_tools::encoded(picture, "ppm", error);
    ASSERT_TRUE(bytes) << error;
    EXPECT_EQ(ppm, std::string(bytes->begin(), bytes->end()));
    EXPECT_EQ(raw.size(), 40u * 20 * 4);
    EXPECT_EQ(raw.substr(0, 4), std::string("\0\0\0\xFF", 4));
    EXPECT_EQ(pbm.size(), 9u + 5 * 20);
    EXPECT_EQ(pbm.substr(0, 10), "P4\n40 20\n\xFF");
    drawn("out.bin", {"--format", "raw"});
    EXPECT_EQ(read_file(folder / "out.bin"), raw);
}

TEST_F(RenderTool, APanelGetsItsBytesAndThePictureShowsThem) {
    EXPECT_EQ(drawn("out.raw", {"--panel", "mono"}).substr(0, 5),
              std::string("\0\xFF\xFF\xFF\xFF", 5));
    EXPECT_EQ(drawn("out.raw", {"--panel", "mono"}).size(), 100u);
    EXPECT_EQ(drawn("out.raw", {"--panel", "gray4"}).size(), 200u);
    EXPECT_EQ(drawn("out.raw", {"--panel", "gray16"}).size(), 400u);
    EXPECT_EQ(drawn("out.raw", {"--panel", "rgb565"}).size(), 1600u);
    EXPECT_EQ(drawn("out.raw", {"--panel", "red"}).size(), 200u);
    EXPECT_EQ(drawn("out.raw", {"--panel", "seven"}).size(), 400u);
    drawn("out.png", {"--panel", "mono"});
    for (const orvel_color& color : read_png(png).pixels) {
        ASSERT_TRUE(color == kWhite || color == orvel_test::kBlack);
    }
    for (const char* dither : {"none", "ordered", "diffused"}) {
        drawn("out.png", {"--panel", "seven", "--dither", dither});
        EXPECT_EQ(bar_of(read_png(png)), 8);
    }
}

TEST_F(RenderTool, PicturesAreTurnedScaledAndResized) {
    drawn("out.png", {"--rotate", "90"});
    Picture picture = read_png(png);
    EXPECT_EQ(picture.width, 20);
    EXPECT_EQ(picture.height, 40);
    EXPECT_EQ(picture.at(19, 0), orvel_test::kBlack);
    EXPECT_EQ(picture.at(0, 0), kWhite);
    drawn("out.png", {"--scale", "3"});
    picture = read_png(png);
    EXPECT_EQ(picture.width, 120);
    EXPECT_EQ(bar_of(picture), 24);
    drawn("out.png", {"--size", "64x32"});
    picture = read_png(png);
    EXPECT_EQ(picture.width, 64);
    EXPECT_EQ(picture.height, 32);
}

TEST_F(RenderTool, WhatChangedIsPrinted) {
    const std::vector<std::string> to = {"--set", "bar=8", "-o", png, "--changed-from", png};
    EXPECT_EQ(run(to).output, "0 0 40 20\n");
    EXPECT_EQ(run(to).output, "0 0 0 0\n");
    std::vector<std::string> longer = to;
    longer[1] = "bar=11";
    EXPECT_EQ(run(longer).output, "8 0 3 4\n");
    longer[1] = "bar=13";
    longer.insert(longer.end(), {"--panel", "mono"});
    EXPECT_EQ(run({"--set", "bar=8", "-o", png, "--panel", "mono"}).status, 0);
    EXPECT_EQ(run(longer).output, "8 0 8 4\n");
    write_file(png, "no picture");
    const Finished bad = run(to);
    EXPECT_EQ(bad.status, 2);
    EXPECT_EQ(bad.error.substr(0, 16 + png.size()), "orvel-render: " + png + ": ");
}

TEST_F(RenderTool, TheScreenIsDescribed) {
    const Finished done = run({"--sample", "--describe"});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.output,
              "column 0,0 40x20\n"
              "  rect 0,0 8x4\n"
              "  text \"none\" 0,4 " +
                  std::string(done.output.substr(done.output.rfind(' ') + 1)));
}

TEST_F(RenderTool, CheckSaysWhatIsWrongWithAnyOfTheData) {
    write_file(folder / "good.json", R"({"bar": 5, "word": "ok"})");
    write_file(folder / "bad.json", R"({"bar": 90, "word": "far too long a word \u4e2d"})");
    const Finished good = run({"--check", "--data", folder / "good.json"});
    EXPECT_EQ(good.output + good.error,
              scene + ":4:5: root.column[1]: contrast: 3.9 to 1, 4.5 is the least\n");
    EXPECT_EQ(good.status, 1);
    const Finished both =
        run({"--check", "--data", folder / "good.json", "--data", folder / "bad.json"});
    EXPECT_EQ(both.status, 1);
    EXPECT_NE(both.output.find("with " + (folder / "bad.json") + ":\n"), std::string::npos);
    for (const char* kind : {": overflow: ", ": cut: ", ": missing: "}) {
        EXPECT_NE(both.output.find(kind), std::string::npos) << kind << both.output;
    }
    write_file(
        scene,
        R"({"orvel": 1, "size": [90, 20], "root": {"text": "All is well", "ground": "background"}})");
    const Finished fine = run({"--check"});
    EXPECT_EQ(fine.output + fine.error, "");
    EXPECT_EQ(fine.status, 0);
}

TEST_F(RenderTool, CheckJudgesContrastOnThePanel) {
    write_file(scene, R"({"orvel": 1, "size": [90, 20], "theme": {"background": "#ffffff"},
 "root": {"text": "Grey", "color": "#606060"}})");
    const auto checked = [this](std::vector<std::string> panel) {
        panel.insert(panel.begin(), "--check");
        const Finished done = run(panel);
        EXPECT_EQ(done.status, done.output.empty() ? 0 : 1);
        return done.output;
    };
    EXPECT_EQ(checked({}), "");
    EXPECT_EQ(checked({"--panel", "gray4"}), "");
    EXPECT_EQ(checked({"--panel", "mono"}), "");
    EXPECT_EQ(
        checked({"--panel", "mono", "--dither", "ordered"}),
        scene + ":2:10: root: contrast: #606060 is no colour of the panel, and becomes dots\n");
    write_file(scene, R"({"orvel": 1, "size": [90, 20], "theme": {"background": "#ffffff"},
 "root": {"text": "Dark red", "color": "#aa2020"}})");
    EXPECT_EQ(checked({"--panel", "red"}),
              scene + ":2:10: root: contrast: 3.9 to 1, 4.5 is the least\n");
}

TEST_F(RenderTool, AnotherThemeCanBeGiven) {
    write_file(scene, R"({"orvel": 1, "size": [4, 4], "root": {"rect": "background"}})");
    const auto corner = [this](const std::vector<std::string>& theme) {
        drawn("out.png", theme);
        return read_png(png).at(0, 0);
    };
    orvel_theme dark, light;
    orvel_theme_default(&dark);
    orvel_theme_light(&light);
    EXPECT_EQ(corner({}), dark.background);
    EXPECT_EQ(corner({"--theme", "dark"}), dark.background);
    EXPECT_EQ(corner({"--theme", "light"}), light.background);
    const orvel_color paper = {0xfb, 0xf7, 0xee, 255};
    EXPECT_EQ(corner({"--theme", ORVEL_SOURCE_DIR "/share/themes/paper.json"}), paper);
    fs::remove(png);
    write_file(folder / "bad.json", R"({"background": "#000000"})");
    expect_refused({"-o", png, "--theme", folder / "bad.json"},
                   folder /
                       "bad.json: surface: missing, so the colour stays what it was before the "
                       "load");
}

TEST_F(RenderTool, FilesBesideTheSceneAreUsed) {
    drawn("dot.png");
    fs::create_directory(folder / "more");
    fs::copy(ORVEL_SOURCE_DIR "/share/themes/paper.json", folder / "more/paper.json");
    write_file(folder / "more/part.json", R"({"orvel": 1, "root": {"picture": "${name}"}})");
    write_file(scene,
               R"({"orvel": 1, "size": [40, 24], "theme": "more/paper.json", "root": {"column": [
        {"include": "more/part.json", "with": {"name": "dot.png"}}], "ground": "background"}})");
    drawn("out.png");
    const Picture picture = read_png(png);
    EXPECT_EQ(bar_of(picture), 8);
    EXPECT_EQ(picture.at(0, 23), (orvel_color{0xfb, 0xf7, 0xee, 255}));
}

TEST_F(RenderTool, NothingOutsideTheScenesFolderIsUsed) {
    const orvel_test::TempFolder outside;
    write_file(outside / "part.json", R"({"orvel": 1, "root": {"space": 1}})");
    fs::copy(ORVEL_SOURCE_DIR "/share/themes/paper.json", outside / "paper.json");
    fs::create_symlink(outside / "part.json", folder / "link.json");
    fs::create_directory_symlink(outside.path(), folder / "door");
    const std::vector<std::string> names = {"../part.json",
                                            outside / "part.json",
                                            "link.json",
                                            "door/part.json",
                                            "none.json",
                                            "door",
                                            "."};
    for (const std::string& name : names) {
        write_file(scene, R"({"orvel": 1, "size": [9, 9], "root": {"include": ")" + name + "\"}}");
        EXPECT_EQ(run({"-o", png}).status, 2) << name;
        write_file(scene, R"({"orvel": 1, "size": [9, 9], "root": {"space": 1}, "theme": ")" +
                              name + "\"}");
        EXPECT_EQ(run({"-o", png}).status, 2) << name;
        EXPECT_FALSE(fs::exists(png)) << name;
    }
    write_file(scene,
               R"({"orvel": 1, "size": [9, 9], "theme": "door/paper.json", "root": {"space": 1}})");
    expect_refused({"-o", png}, scene +
                                    ":1:39: theme: there is no theme \"door/paper.json\" "
                                    "(leads out of the scene's folder)");
}

TEST_F(RenderTool, APictureThatIsNotThereIsToldAndDoneWithout) {
    write_file(scene, R"({"orvel": 1, "size": [9, 9], "root": {"picture": "none.png"}})");
    const Finished done = run({"-o", png});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error,
              "orvel-render: " + scene +
                  ":1:38: root: there is no \"none.png\" (No such file or directory)\n");
    EXPECT_EQ(read_png(png).width, 9);
    EXPECT_EQ(run({"--check"}).status, 1);
}

TEST_F(RenderTool, EachPictureThatIsNotThereIsToldWithItsPlace) {
    write_file(folder / "text.png", "no picture");
    write_file(scene, R"({"orvel": 1, "size": [9, 9], "root": {"stack": [
 {"picture": "none.png"}, {"picture": "text.png"}, {"picture": "none.png"}]}})");
    const Finished done = run({"-o", png});
    const std::string line = "orvel-render: " + scene + ":2:";
    EXPECT_EQ(done.error.find(line + "2: root.stack[0]: there is no \"none.png\" ("), 0u)
        << done.error;
    EXPECT_NE(done.error.find(line + "27: root.stack[1]: there is no \"text.png\" ("),
              std::string::npos);
    EXPECT_NE(done.error.find(line + "52: root.stack[2]: there is no \"none.png\" (No such file"),
              std::string::npos);
    // Not why there is nothing of a name that ends alike.
    write_file(scene, R"({"orvel": 1, "size": [9, 9], "root": {"stack": [
 {"picture": "t.png"}, {"picture": "text.png"}]}})");
    EXPECT_EQ(run({"-o", png}).error.find("No such file"),
              run({"-o", png}).error.rfind("No such file"));
    // A page of a stack that does not show needs none.
    write_file(scene, R"({"orvel": 1, "size": [9, 9], "root": {"stack": [{"space": 1},
 {"picture": "none.png"}], "show": 0}})");
    EXPECT_EQ(run({"-o", png}).error, "");
}

TEST_F(RenderTool, ListsOnTheCommandLineHaveToBeLists) {
    write_file(scene, R"({"orvel": 1, "size": [9, 9], "root": {"column": [
 {"each": "list", "text": "${item}"}]}, "sample": {"list": ["a"]}})");
    EXPECT_EQ(run({"--set", R"(list=["b", "c"])", "--describe"}).error, "");
    expect_refused({"--set", "list=[b, c]", "-o", png},
                   "--set list=[b, c]: list:1:2: found \"b\", expected a value");
    expect_refused({"--set", "list={", "-o", png},
                   "--set list={: list:1:2: found the end of the file, expected a key in quotes");
    expect_refused({"--set", "list=\"b", "-o", png},
                   "--set list=\"b: list:1:1: found a text that is wrong: missing closing quote");
    expect_refused({"--set", "list=b", "-o", png},
                   scene + ":2:11: root.column[0].each: list is a text in the data, not a list");
    expect_refused({"--sample", "--set", "list[3]=b", "-o", png},
                   "--set list[3]=b: list has only 1 items");
}

TEST_F(RenderTool, PicturesHaveABoundTogether) {
    std::string error, nodes;
    const Picture large = {4096, 4000, std::vector<orvel_color>(4096 * 4000, kRed)};
    const auto bytes = orvel_tools::encoded(large, "png", error);
    ASSERT_TRUE(bytes) << error;
    for (const char* name : {"a.png", "b.png", "c.png", "d.png", "e.png"}) {
        write_file(folder / name, {bytes->begin(), bytes->end()});
        nodes += std::string(nodes.empty() ? "" : ",") + R"({"picture": ")" + name + "\"}";
    }
    write_file(scene, R"({"orvel": 1, "size": [9, 9], "root": {"stack": [)" + nodes + "]}}");
    const Finished done = run({"-o", png});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(done.error,
              "orvel-render: " + scene +
                  ":1:133: root.stack[4]: there is no \"e.png\" (more than 64 million pixels "
                  "together with the scene's other pictures)\n");
    EXPECT_EQ(read_png(png).at(0, 0), kRed);
}

TEST_F(RenderTool, WordsThatReadLikeAComplaintAreNone) {
    const std::string word = "word=\U0001f600: unknown: there is no \"x\"";
    const Finished done = run({"--sample", "--set", word, "-o", png});
    EXPECT_EQ(done.error, "");
    EXPECT_NE(run({"--sample", "--set", word, "--check"}).output.find(": unknown: "),
              std::string::npos);
}

TEST_F(RenderTool, AFileMayBeginWithAByteOrderMark) {
    const std::string plain = drawn("plain.png"), mark = "\xEF\xBB\xBF";
    write_file(folder / "data.json", mark + R"({"bar": 8})");
    write_file(scene, mark + kScene);
    EXPECT_EQ(run({"-o", png, "--data", folder / "data.json", "--set", "other=1"}).error, "");
    EXPECT_EQ(read_file(png), plain);
}

TEST_F(RenderTool, AWatchedSceneIsDrawnAgainWhenAFileChanges) {
    write_file(folder / "data.json", R"({"bar": 5})");
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const std::string data = folder / "data.json";
        execl(kRender, kRender, scene.c_str(), "--watch", "--data", data.c_str(), "-o", png.c_str(),
              static_cast<char*>(nullptr));
        _exit(127);
    }
    const auto becomes = [this](int bar) {
        for (int i = 0; i < 200; ++i) {
            if (fs::exists(png) && bar_of(read_png(png)) == bar) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    };
    EXPECT_TRUE(becomes(5));
    write_file(folder / "data.json", R"({"bar": 12})");
    EXPECT_TRUE(becomes(12));
    write_file(folder / "data.json", R"({"bar": )");
    std::string wider = kScene;
    wider.replace(wider.find("\"${bar}\""), 8, "17");
    write_file(scene, wider);
    write_file(folder / "data.json", "{}");
    EXPECT_TRUE(becomes(17));
    write_file(folder / "bar.json", R"({"orvel": 1, "root": {"rect": "#000000", "width": 21}})");
    write_file(scene, R"({"orvel": 1, "size": [40, 20], "root": {"row": [{"include": "bar.json"}],
                         "ground": "#ffffff"}})");
    EXPECT_TRUE(becomes(21));
    write_file(folder / "bar.json", R"({"orvel": 1, "root": {"rect": "#000000", "width": 24}})");
    EXPECT_TRUE(becomes(24));
    kill(child, SIGTERM);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
}

}  // namespace
