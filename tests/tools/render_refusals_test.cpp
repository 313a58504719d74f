// What orvel-render refuses, in one line.
#include <algorithm>

#include "support/random.h"
#include "tools/render_tool.h"

namespace {

namespace fs = std::filesystem;
using namespace orvel_test;

TEST_F(RenderTool, MistakesAreToldInOneLine) {
    expect_refused({}, "nothing to do without -o, --describe, --check or --events");
    expect_refused({"-o", png, "--check"}, "--check draws nothing");
    expect_refused({"-o", png, "--sample", "--data", "x"},
                   "--data and --sample exclude each other");
    expect_refused({"-o", png, "--data", "x", "--data", "y"},
                   "several --data go with --check only");
    expect_refused({"--check", "--data", "-", "--data", "-"},
                   "the standard input can be read once only");
    expect_refused({"-o", png, "--watch", "--data", "-"},
                   "--watch reads again, which the standard input cannot");
    expect_refused({"-o", png, "--size", "800"},
                   "--size 800: expected WIDTHxHEIGHT, 800x480 for instance");
    expect_refused({"-o", png, "--size", "0x9"},
                   "--size 0x9: expected WIDTHxHEIGHT, 800x480 for instance");
    expect_refused({"-o", png, "--size", "9x9x"},
                   "--size 9x9x: expected WIDTHxHEIGHT, 800x480 for instance");
    expect_refused({"-o", png, "--sample", "--size", "99999x99999"},
                   "--size 99999x99999: found 99999 x 99999, expected 1 to 32767 pixels each");
    expect_refused({"--describe", "--changed-from", png}, "--changed-from goes with -o only");
    expect_refused({"-o", png, "--dither", "ordered"}, "--dither goes with --panel only");
    const std::string itself = folder / "./scene.json";
    expect_refused({"-o", itself, "--format", "bmp"}, itself + ": would be written over " + scene);
    EXPECT_EQ(read_file(scene), kScene);
    expect_refused({"-o", "a.gif"},
                   "a.gif: not .png, .bmp, .ppm, .pbm or .raw; --format says which");
    expect_refused({"-o", "a.pbm", "--panel", "red"}, "a .pbm is for --panel mono only");
    expect_refused({"-o", "a.raw", "--scale", "2"}, "--scale is not for raw bytes");
    expect_refused({"-o", "-", "--describe"},
                   "the standard output cannot take a picture and lines of text");
    expect_refused({"-o", png, "--set", "bar"}, "--set bar: expected NAME=VALUE");
    expect_refused({"-o", png, "--set", "=1"}, "--set =1: expected NAME=VALUE");
    expect_refused({"-o", png, "--set", "a b=1"},
                   "--set a b=1: \"a b\" is no path like now.temp or days[2].name");
    const std::string none = folder / "none.json";
    expect_refused({"-o", png, "--data", none}, none + ": No such file or directory");
    write_file(folder / "data.json", "{\"bar\": 1,}");
    expect_refused({"-o", png, "--data", folder / "data.json"},
                   folder / "data.json:1:11: found \"}\", expected a key in quotes");
    expect_refused({"-o", png, "--data", folder / "data.json", "--set", "bar=2"},
                   folder / "data.json:1:11: found \"}\", expected a key in quotes");
    expect_refused({"--sample", "-o", folder / "no/out.png"},
                   folder / "no/out.png: No such file or directory");
    expect_refused({"--sample", "-o", png, "--size", "3000x3000", "--scale", "16"},
                   png + ": more than 64 million pixels");
    write_file(scene, R"({"orvel": 1, "size": [9000, 9000], "root": {"space": 1}})");
    expect_refused({"-o", png},
                   "a screen of 9000 x 9000 pixels is too large: 16 million are the most");
}

// As a script's variable is that was never set.
TEST_F(RenderTool, AnEmptyValueIsRefused) {
    const std::string more = " is empty (orvel-render --help tells more)";
    for (const std::string option : {"--data", "--output", "--size", "--theme", "--set",
                                     "--changed-from", "--events", "--changes"}) {
        expect_refused({"--sample", "--describe", option, ""}, option + ":" + more);
    }
    const Finished done = orvel_test::run({kRender, "", "--describe"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error, "orvel-render: SCENE:" + more + "\n");
}

/// A scene in which each of so many repetitions repeats the next one over ten items.
std::string repeated(int times) {
    std::string node = R"({"text": "a"})";
    for (int i = 0; i < times; ++i) {
        node = R"({"each": "ten", "row": [)" + node + "]}";
    }
    return R"({"orvel": 1, "size": [9, 9], "sample": {"ten": [1,2,3,4,5,6,7,8,9,10]}, "root": {"row": [)" +
           node + "]}}";
}

TEST_F(RenderTool, HostileScenesEndSoonWithAReason) {
    std::vector<std::string> scenes = {"", "{", "null", std::string(1000, '['), "\xFF\xFE"};
    scenes.push_back(repeated(5));
    scenes.push_back(repeated(60));
    std::string words(1 << 20, 'w');
    scenes.push_back(R"({"orvel": 1, "size": [9, 9], "sample": {"w": ")" + words +
                     R"("}, "root": {"text": "${w}"}})");
    std::string many = R"({"text": "a"})";
    for (int i = 0; i < 10000; ++i) many += R"(,{"text": "a"})";
    scenes.push_back(R"({"orvel": 1, "root": {"row": [)" + many + "]}}");
    write_file(folder / "a.json", R"({"orvel": 1, "root": {"include": "scene.json"}})");
    scenes.push_back(R"({"orvel": 1, "root": {"include": "a.json"}})");
    scenes.push_back(R"({"orvel": 1, "size": [32767, 32767], "root": {"space": 1}})");
    std::string layers = R"({"rect": "text"})";
    for (int i = 0; i < 9000; ++i) layers += R"(,{"rect": "text"})";
    scenes.push_back(R"({"orvel": 1, "size": [4000, 4000], "root": {"stack": [)" + layers + "]}}");
    for (const std::string& text : scenes) {
        write_file(scene, text);
        const Finished done = run({"--sample", "-o", png});
        EXPECT_EQ(done.status, 2) << text.substr(0, 80);
        EXPECT_EQ(std::count(done.error.begin(), done.error.end(), '\n'), 1) << done.error;
        EXPECT_FALSE(fs::exists(png));
    }
}

TEST_F(RenderTool, ScenesWithAnyByteChangedAreDrawnOrRefused) {
    std::string text = read_file(ORVEL_SOURCE_DIR "/scenes/instrument/boiler.json");
    orvel_test::Random random(7);
    const std::string marks = "{}[]\",:0-e$|.#";
    for (int i = 0; i < 150; ++i) {
        std::string changed = text;
        for (int times = random.between(1, 3); times > 0; --times) {
            const auto at =
                static_cast<std::size_t>(random.between(0, static_cast<int>(text.size()) - 1));
            changed[at] = marks[static_cast<std::size_t>(
                random.between(0, static_cast<int>(marks.size()) - 1))];
        }
        write_file(scene, changed);
        const Finished done = run({"--sample", "-o", png, "--panel", "mono"});
        EXPECT_TRUE(done.status == 0 || done.status == 2) << done.status << "\n" << changed;
        EXPECT_EQ(done.error.empty(), done.status == 0);
    }
}

TEST_F(RenderTool, OutputThatIsLostIsAnError) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "this system has no /dev/full";
    const Finished done =
        orvel_test::run({"sh", "-c", "exec \"$0\" \"$1\" >/dev/full", kRender, "--help"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error, "orvel-render: standard output: it cannot be written\n");
}

}  // namespace
