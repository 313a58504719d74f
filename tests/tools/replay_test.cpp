// orvel-render plays recorded sessions.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/files.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"

namespace {

namespace fs = std::filesystem;
using orvel_test::Finished;
using orvel_test::kBlack;
using orvel_test::read_file;
using orvel_test::read_png;
using orvel_test::write_file;
using orvel_tools::Picture;

constexpr const char* kRender = ORVEL_BINARY_DIR "/orvel-render";

/// A black bar on white, as long as the data say, above a switch.
constexpr const char* kScene = R"({"orvel": 1, "size": [40, 40],
  "root": {"column": [
    {"rect": "#000000", "width": "${bar}", "height": 4},
    {"toggle": "${on}", "id": "switch", "width": 36, "height": 24},
    {"button": "Go", "id": "go", "width": 36, "height": 12}],
   "ground": "#ffffff", "align": "start"},
  "sample": {"bar": 8, "on": false}})";

class Replay : public testing::Test {
protected:
    orvel_test::TempFolder folder;
    const std::string scene = folder / "scene.json", session = folder / "session.jsonl";

    void SetUp() override { write_file(scene, kScene); }

    Finished play(const std::string& lines, std::vector<std::string> arguments) const {
        write_file(session, lines);
        arguments.insert(arguments.begin(), {kRender, scene, "--sample", "--events", session});
        return orvel_test::run(arguments);
    }

    std::string refusal(const std::string& lines, const std::vector<std::string>& arguments) const {
        const Finished done = play(lines, arguments);
        EXPECT_EQ(done.status, 2);
        EXPECT_EQ(done.error.rfind("orvel-render: ", 0), 0u) << done.error;
        return done.error.substr(std::min<std::size_t>(done.error.size(), 14));
    }

    int bar(const std::string& file) const {
        const Picture picture = read_png(folder / file);
        int x = 0;
        while (x < picture.width && picture.at(x, 0) == kBlack) ++x;
        return x;
    }
};

TEST_F(Replay, WritesThePicturesThatTheSessionMarks) {
    const Finished done = play(R"({"at": 0, "picture": "first"}
{"at": 10, "set": {"bar": 20}}
{"at": 20, "picture": "then"}
{"at": 20, "size": [60, 50]}
{"at": 20, "picture": "wide"})",
                               {"-o", folder / "{}.png"});
    EXPECT_EQ(done.status, 0) << done.error;
    EXPECT_EQ(done.output + done.error, "");
    EXPECT_EQ(bar("first.png"), 8);
    EXPECT_EQ(bar("then.png"), 20);
    EXPECT_EQ(read_png(folder / "wide.png").width, 60);
    EXPECT_EQ(read_png(folder / "wide.png").height, 50);
}

TEST_F(Replay, WithOneNameDrawsTheEnd) {
    const std::string lines =
        "{\"at\": 0, \"picture\": \"a\"}\n{\"at\": 1, \"set\": {\"bar\": 3}}\n";
    EXPECT_EQ(play(lines, {"-o", folder / "end.png"}).status, 0);
    EXPECT_EQ(bar("end.png"), 3);
    EXPECT_FALSE(fs::exists(folder / "a.png"));
}

TEST_F(Replay, PicturesOfPartsDrawnAnewAreThoseOfTheWhole) {
    const std::string lines = R"({"at": 0, "picture": "start"}
{"at": 5, "move": [18, 15]}
{"at": 6, "press": [18, 15]}
{"at": 7, "picture": "held"}
{"at": 8, "release": [18, 15]}
{"at": 9, "picture": "on"})";
    EXPECT_EQ(play(lines, {"-o", folder / "{}.png"}).status, 0);
    EXPECT_EQ(play(lines, {"-o", folder / "end.png"}).status, 0);
    EXPECT_EQ(read_file(folder / "on.png"), read_file(folder / "end.png"));
    EXPECT_NE(read_file(folder / "on.png"), read_file(folder / "start.png"));
}

TEST_F(Replay, TellsWhatControlsChanged) {
    const std::string lines = R"({"at": 5, "press": [18, 15]}
{"at": 6, "release": [18, 15]}
{"at": 9, "press": [18, 34]}
{"at": 12, "release": [18, 34]})";
    const std::string told =
        R"({"at":6,"change":"value","id":"switch","name":"on","value":true}
{"at":12,"change":"press","id":"go","name":"","value":null}
)";
    EXPECT_EQ(play(lines, {"--changes", "-"}).output, told);
    EXPECT_EQ(play(lines, {"--changes", folder / "changes.jsonl"}).output, "");
    EXPECT_EQ(read_file(folder / "changes.jsonl"), told);
    const std::string end = play(lines, {"--describe"}).output;
    EXPECT_NE(end.find("toggle on #switch"), std::string::npos) << end;
    EXPECT_EQ(play(lines, {"--describe", "--changes", "-"}).output, told + end);
}

TEST_F(Replay, ASessionMayComeFromTheStandardInput) {
    const std::string command = "printf '{\"at\": 1, \"set\": {\"bar\": 2}}' | '" +
                                std::string(kRender) + "' '" + scene +
                                "' --sample --events - -o '" + (folder / "out.png") + "'";
    EXPECT_EQ(orvel_test::run({"sh", "-c", command}).status, 0);
    EXPECT_EQ(bar("out.png"), 2);
}

TEST_F(Replay, WhatCannotBePlayedIsRefusedWithItsLine) {
    const std::vector<std::string> out = {"-o", folder / "{}.png"};
    EXPECT_EQ(refusal("{\"at\": 0}\n{\"at\": 1, \"set\": {\"bar\": \"x\"}}", out),
              session + ":2: " + scene +
                  ":3:34: root.column[0].width: found \"x\", expected 0 to 32767 pixels\n");
    EXPECT_EQ(refusal("{\"at\": 0, \"picture\": \"a\"}\n{\"at\": 1, \"picture\": \"a\"}", out),
              session + ":2: \"picture\": \"a\" is taken already\n");
    EXPECT_EQ(
        refusal("{\"at\": 0, \"size\": [32767, 32767]}\n{\"at\": 1, \"picture\": \"a\"}", out),
        session +
            ":2: a screen of 32767 x 32767 pixels is too large: 16 million are the "
            "most\n");
    EXPECT_EQ(refusal("{}", out), session + ":1: \"at\" is missing, the time in milliseconds\n");
}

TEST_F(Replay, OptionsThatMakeNoSenseAreRefused) {
    EXPECT_EQ(refusal("", {"--check"}), "--check draws nothing\n");
    EXPECT_EQ(refusal("", {"-o", "{}.png", "--changed-from", "a.png"}),
              "--changed-from goes with one picture\n");
    EXPECT_EQ(refusal("", {"-o", "-", "--changes", "-"}),
              "the standard output cannot take a picture and lines of text\n");
    const Finished done = orvel_test::run({kRender, scene, "-o", "a.png", "--changes", "-"});
    EXPECT_EQ(done.error, "orvel-render: --changes goes with --events\n");
    const Finished twice = orvel_test::run({kRender, "-", "--events", "-"});
    EXPECT_EQ(twice.error, "orvel-render: the standard input can be read once only\n");
}

TEST_F(Replay, WithoutASessionBracesAreANameLikeAnyOther) {
    EXPECT_EQ(orvel_test::run({kRender, scene, "--sample", "-o", folder / "{}.png"}).status, 0);
    EXPECT_EQ(bar("{}.png"), 8);
}

}  // namespace
