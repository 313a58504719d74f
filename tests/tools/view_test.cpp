// orvel-view on a virtual display: a pointer moves and clicks, keys are pressed, and pictures taken
// of the window show, pixel by pixel, what orvel-render makes of the session that was recorded.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "picture_file.h"
#include "support/display.h"
#include "support/picture.h"
#include "support/process.h"
#include "tools/png.h"

namespace {

namespace fs = std::filesystem;
using orvel_test::Background;
using orvel_test::Display;
using orvel_test::Finished;
using orvel_test::pause;
using orvel_test::read_file;
using orvel_test::read_png;
using orvel_test::write_file;
using orvel_tools::Picture;

constexpr const char* kView = ORVEL_BINARY_DIR "/orvel-view";
constexpr const char* kRender = ORVEL_BINARY_DIR "/orvel-render";

constexpr const char* kScene = R"({"orvel": 1, "size": [240, 160], "theme": "light",
  "root": {"column": [
    {"text": "${title}", "face": "bold 14", "id": "title"},
    {"toggle": "${on}", "id": "on", "width": 44, "height": 24},
    {"slider": "${level}", "id": "level", "range": [0, 100, 1], "height": 24},
    {"button": "Go", "id": "go", "width": 80, "height": 28},
    {"row": [{"rect": "accent", "width": "${level}", "height": 6}]}],
   "pad": 10, "gap": 6, "align": "start"},
  "sample": {"title": "First", "on": false, "level": 40}})";

bool same(const Picture& a, const Picture& b) {
    return a.width == b.width && a.height == b.height && a.pixels == b.pixels;
}

class View : public testing::Test {
protected:
    void SetUp() override {
        write_file(scene, kScene);
        open();
    }

    void open(const std::string& size = "1300x1000") {
        display = std::make_unique<Display>(size);
        ASSERT_EQ(display->error(), "");
    }

    void start(std::vector<std::string> options = {}) {
        options.insert(options.begin(), {kView, scene, "--record", session, "--changes", changes,
                                         "-o", folder / "shot-{}.png"});
        if (data.empty()) {
            options.emplace_back("--sample");
        } else {
            options.insert(options.end(), {"--data", data});
        }
        program = std::make_unique<Background>(options, folder / "program");
        found = display->find("scene.json");
        ASSERT_TRUE(found) << errors();
    }

    std::string errors() const { return read_file(folder / "program.error"); }

    /// The picture that F12 saves, once the window shows it, every pixel as a square of this side.
    Picture picture(int scale = 1) {
        for (int attempt = 0; found && attempt < 10; ++attempt) {
            const std::string file = folder / "shot-" + std::to_string(++pictures) + ".png";
            display->key("F12");
            for (int i = 0; i < 100 && !fs::exists(file); ++i) pause(50);
            pause(100);
            const Picture saved = read_png(file), shown = window();
            if (same(shown, orvel_tools::scaled(saved, scale))) return saved;
        }
        ADD_FAILURE() << "the window shows something else than the picture: " << errors();
        return {};
    }

    Picture window() {
        display->photograph(folder / "window.png");
        return read_png(folder / "window.png");
    }

    /// Ends the program; what was recorded makes the same pictures again, and the same changes.
    void expect_replayed() {
        EXPECT_EQ(program->stop(), 0) << errors();
        const Finished done =
            orvel_test::run({kRender, scene, "--sample", "--events", session, "-o",
                             folder / "again-{}.png", "--changes", folder / "again.jsonl"});
        EXPECT_EQ(done.status, 0) << done.error;
        EXPECT_EQ(read_file(folder / "again.jsonl"), read_file(changes));
        for (int i = 1; i <= pictures; ++i) {
            const std::string name = std::to_string(i) + ".png";
            EXPECT_TRUE(same(read_png(folder / "again-" + name), read_png(folder / "shot-" + name)))
                << name;
        }
    }

    /// Waits for the changes to hold it; false after five seconds.
    bool told(const std::string& change) const {
        for (int i = 0; i < 100; ++i) {
            if (read_file(changes).find(change) != std::string::npos) return true;
            pause(50);
        }
        return false;
    }

    bool complained(const std::string& of) const {
        for (int i = 0; i < 100; ++i) {
            if (errors().find(of) != std::string::npos) return true;
            pause(50);
        }
        return false;
    }

    orvel_test::TempFolder folder;
    const std::string scene = folder / "scene.json", session = folder / "session.jsonl",
                      changes = folder / "changes.jsonl";
    std::string data;
    std::unique_ptr<Display> display;
    std::unique_ptr<Background> program;
    int pictures = 0;
    bool found = false;
};

TEST_F(View, AnswersThePointer) {
    start({"--silent"});
    const Picture plain = picture();
    display->move(40, 120);
    const Picture hovered = picture();
    EXPECT_FALSE(same(plain, hovered));
    display->press(40, 120);
    const Picture pressed = picture();
    EXPECT_FALSE(same(hovered, pressed));
    display->move(200, 150);
    const Picture dragged_off = picture();
    EXPECT_FALSE(same(pressed, dragged_off));
    display->release();
    EXPECT_EQ(read_file(changes), "");
    display->click(40, 120);
    EXPECT_TRUE(told(R"("change":"press","id":"go")"));
    display->click(30, 45);
    EXPECT_TRUE(told(R"("change":"value","id":"on","name":"on","value":true)"));
    display->press(60, 75);
    display->move(150, 90);
    display->release();
    EXPECT_TRUE(told(R"("change":"value","id":"level","name":"level","value":)"));
    picture();
    expect_replayed();
}

TEST_F(View, AnswersTheKeyboard) {
    start({"--silent"});
    const Picture plain = picture();
    display->key("Tab");
    EXPECT_FALSE(same(plain, picture()));
    display->key("space");
    EXPECT_TRUE(told(R"("change":"value","id":"on","name":"on","value":true)"));
    display->key("Tab");
    display->key("Right");
    EXPECT_TRUE(told(R"("name":"level","value":41)"));
    display->key("shift+Tab");
    display->key("Return");
    picture();
    expect_replayed();
}

TEST_F(View, IsLaidOutAnewWhenItsWindowIsResized) {
    start({"--silent"});
    display->resize(300, 200);
    pause(300);
    const Picture larger = picture();
    EXPECT_EQ(larger.width, 300);
    EXPECT_EQ(larger.height, 200);
    expect_replayed();
}

TEST_F(View, ShowsEveryPixelAsALargerSquare) {
    start({"--silent", "--scale", "2"});
    const Picture plain = picture(2);
    EXPECT_EQ(plain.width, 240);
    EXPECT_EQ(plain.height, 160);
    display->click(61, 91);
    EXPECT_TRUE(told(R"("name":"on","value":true)"));
    picture(2);
    expect_replayed();
}

TEST_F(View, IsTwiceAsLargeOnALargeDisplay) {
    open("2600x1500");
    start({"--silent"});
    picture(2);
    expect_replayed();
}

TEST_F(View, OfAFixedSizeGrowsByWholeNumbersInTheGroundOfItsTheme) {
    start({"--silent", "--size", "240x160"});
    picture();
    display->resize(530, 400);
    pause(300);
    const Picture shown = window();
    const std::string file = folder / "shot-" + std::to_string(++pictures) + ".png";
    display->key("F12");
    for (int i = 0; i < 100 && !fs::exists(file); ++i) pause(50);
    const Picture inside = orvel_tools::scaled(read_png(file), 2);
    ASSERT_EQ(shown.width, 530);
    orvel_theme light = {};
    orvel_theme_light(&light);
    for (int y = 0; y < shown.height; ++y) {
        for (int x = 0; x < shown.width; ++x) {
            const bool in = x >= 25 && x < 505 && y >= 40 && y < 360;
            const orvel_color& expected = in ? inside.at(x - 25, y - 40) : light.background;
            ASSERT_EQ(shown.at(x, y), expected) << x << ", " << y;
        }
    }
    display->click(25 + 61, 40 + 91);
    EXPECT_TRUE(told(R"("name":"on","value":true)"));
}

TEST_F(View, ReadsChangedScenesAndKeepsWhatWasDone) {
    start({"--silent"});
    display->click(30, 45);
    EXPECT_TRUE(told(R"("name":"on","value":true)"));
    const Picture before = picture();
    std::string other = kScene;
    other.replace(other.find("\"Go\""), 4, "\"Other\"");
    write_file(scene, other);
    for (int i = 0; i < 50 && same(picture(), before); ++i) pause(100);
    display->click(30, 45);
    EXPECT_TRUE(told(R"("name":"on","value":false)")) << "it was on still";
    write_file(scene, "{");
    EXPECT_TRUE(complained("orvel-view: " + scene + ":1:2: "));
    display->click(40, 120);
    EXPECT_TRUE(told(R"("change":"press","id":"go")")) << "the old scene goes on";
    EXPECT_EQ(program->stop(), 0);
}

TEST_F(View, ReadsChangedData) {
    data = folder / "data.json";
    write_file(data, R"({"title": "A", "on": true, "level": 3})");
    start({"--silent", "--set", "level=5"});
    const Picture before = picture();
    write_file(data, R"({"title": "B", "on": true, "level": 3})");
    for (int i = 0; i < 50 && same(picture(), before); ++i) pause(100);
    EXPECT_FALSE(same(picture(), before));
    EXPECT_NE(read_file(session).find(R"("set":{"":{"title":"B","on":true,"level":5}})"),
              std::string::npos)
        << read_file(session);
    EXPECT_EQ(program->stop(), 0) << errors();
}

TEST_F(View, PlaysASession) {
    const std::string played = folder / "played.jsonl";
    write_file(played, R"({"at": 100, "set": {"title": "Played"}}
{"at": 200, "press": [30, 45]}
{"at": 250, "release": [30, 45]}
{"at": 300, "picture": "own"})");
    start({"--silent", "--events", played});
    EXPECT_TRUE(told(R"({"at":250,"change":"value","id":"on","name":"on","value":true})"));
    for (int i = 0; i < 100 && !fs::exists(folder / "shot-1.png"); ++i) pause(50);
    pictures = 1;
    picture();
    expect_replayed();
}

TEST_F(View, IsNotHeldUpByASoundServerThatDoesNotAnswer) {
    const std::string path = folder / "mute";
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    ASSERT_EQ(bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(server, 8), 0);
    std::string heard = kScene;
    write_file(scene,
               heard.replace(heard.find(R"("id": "on")"), 10, R"("id": "on", "sound": "click")"));
    setenv("PULSE_SERVER", ("unix:" + path).c_str(), 1);
    fs::create_directories(folder / "kit/Sounds");
    fs::copy(ORVEL_SOURCE_DIR "/examples/resources/Sounds", folder / "kit/Sounds");
    start({"--resources", folder / "kit"});
    unsetenv("PULSE_SERVER");
    for (int i = 0; i < 5; ++i) display->click(30, 45);
    EXPECT_TRUE(told(R"("change":"sound","id":"on","name":"","value":"click")"));
    const auto before = std::chrono::steady_clock::now();
    picture();
    EXPECT_TRUE(complained("[OrvelSDK] suono: "));
    const auto waited = std::chrono::steady_clock::now() - before;
    EXPECT_LT(std::chrono::duration<double>(waited).count(), 1.5);
    EXPECT_EQ(program->stop(), 0);
    close(server);
}

TEST_F(View, WaitsWithoutWorkWhenNothingMoves) {
    start({"--silent"});
    picture();
    const auto worked = [this] {
        const std::string status = read_file("/proc/" + std::to_string(program->pid()) + "/stat");
        std::istringstream words(status.substr(status.rfind(')') + 2));
        std::string word;
        long user = 0, system = 0;
        for (int i = 0; i < 11; ++i) words >> word;
        words >> user >> system;
        return user + system;
    };
    const long before = worked();
    pause(3000);
    EXPECT_LE(worked() - before, 2) << "hundredths of a second, in three seconds";
}

TEST(ViewProgram, SaysInOneLineThatThereIsNoDisplay) {
    const orvel_test::TempFolder folder;
    write_file(folder / "scene.json", kScene);
    setenv("LSAN_OPTIONS", "detect_leaks=0", 1);
    setenv("SDL_VIDEODRIVER", "x11", 1);
    setenv("DISPLAY", ":nowhere", 1);
    const Finished done = orvel_test::run({kView, folder / "scene.json", "--sample"});
    EXPECT_EQ(done.status, 2);
    EXPECT_EQ(done.error.rfind("orvel-view: no window: ", 0), 0u) << done.error;
    EXPECT_EQ(done.error.find('\n'), done.error.size() - 1) << done.error;
}

TEST(ViewProgram, SaysWhatIsWrongBeforeAWindowOpens) {
    const orvel_test::TempFolder folder;
    write_file(folder / "scene.json", kScene);
    write_file(folder / "session.jsonl", "{}");
    const auto error = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {kView, folder / "scene.json"});
        const Finished done = orvel_test::run(options);
        EXPECT_EQ(done.status, 2);
        return done.error;
    };
    EXPECT_NE(error({}).find("there is no title in the data"), std::string::npos);
    EXPECT_EQ(error({"--sample", "--size", "3"}),
              "orvel-view: --size 3: expected WIDTHxHEIGHT, 800x480 for instance\n");
    EXPECT_EQ(error({"--sample", "-o", "a.png"}),
              "orvel-view: -o a.png: expected {} in it, picture-{}.png for instance\n");
    EXPECT_EQ(error({"--sample", "--events", folder / "session.jsonl"}),
              "orvel-view: " + folder / "session.jsonl" +
                  ":1: \"at\" is missing, the time in milliseconds\n");
    EXPECT_EQ(error({"--sample", "--record", folder / "no/where"}),
              "orvel-view: " + (folder / "no/where") + ": cannot be written\n");
}

}  // namespace
