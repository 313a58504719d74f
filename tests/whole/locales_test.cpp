// Hosts that speak other languages than C does: with a comma in their numbers, with letters whose
// capitals are others, with bytes that are no characters.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cctype>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

#include "orvel.h"
#include "support/child.h"
#include "support/every_byte.h"
#include "support/files.h"
#include "support/picture.h"
#include "system/system.h"
#include "widgets/distinct_theme.h"
#include "widgets/kinds.h"

namespace {

using namespace orvel_test;

void draw_everything() {
    const orvel_theme theme = distinct_theme();
    for (const WidgetEdge& edge : widget_edges()) {
        const auto canvas = make_canvas(edge.width, edge.height);
        const WidgetPtr widget(edge.make(canvas.get(), &theme));
        orvel_widget_draw(widget.get());
        orvel_canvas_save_bmp_rgba(canvas.get(), (edge.name + ".bmp").c_str());
    }
    const auto canvas = make_canvas(1540, 40);
    orvel_text_draw(canvas.get(), every_byte().c_str(), 2, 2, kInk);
    const WidgetPtr tabs(
        orvel_widget_tabs(canvas.get(), &theme, every_byte().c_str(), 2, 20, 1530, 18, 1));
    orvel_widget_draw(tabs.get());
    orvel_canvas_save_bmp(canvas.get(), "every byte.bmp");
}

/// In its own folder; whatever is written there and to the standard error stream must not change.
void work() {
    const std::string odd_name = "\xff\xc3I\xddi\xfd.wav";  // no text in any language
    write_file("Music/" + odd_name, "music");
    write_file("UI/read.json", "{\"text\": \"#ABCDEF\", \"Error\": \"#123456\", \"error\": 1,5}");
    orvel_set_resource_path(".");
    orvel_init();
    orvel_theme theme;
    orvel_theme_default(&theme);
    orvel_theme_load(&theme, "read");
    orvel_theme_save(&theme, "written");
    draw_everything();
    for (const double hertz : {440.6, 0.5, 1234567.5}) orvel_play_tone(hertz, 1234);
    orvel_play_music(odd_name.c_str());
    orvel_play_music("nessuna");
    orvel_play_sound("nessuno");
    orvel_stop_music();
    std::fprintf(stderr, "%d %d %d\n", orvel_icon_exists("MAIL"), orvel_icon_exists("mail"),
                 orvel_icon_exists("ma\xc4\xb1l"));
    orvel_shutdown();
}

class LocalesTest : public testing::Test {
protected:
    /// All that the work leaves in a folder of its own, by name, when @p prepare has changed the
    /// process first; nothing when that returns false.
    static std::map<std::string, std::string> left_behind(const std::function<bool()>& prepare) {
        const TempFolder folder;
        const int status = in_child([&] {
            std::filesystem::current_path(folder.path());
            take_over_system("tone.wav");
            begin_anew("no-player");
            dup2(open("messages", O_WRONLY | O_CREAT | O_CLOEXEC, 0600), STDERR_FILENO);
            if (!prepare()) return 1;
            work();
            return 0;
        });
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
            if (status != 0 || !entry.is_regular_file()) continue;
            files[entry.path().lexically_relative(folder.path())] = read_file(entry.path());
        }
        return files;
    }

    static bool same(const std::map<std::string, std::string>& actual,
                     const std::map<std::string, std::string>& expected) {
        for (const auto& [name, bytes] : expected) {
            const auto found = actual.find(name);
            if (found == actual.end() || found->second != bytes) {
                ADD_FAILURE() << name << " differs";
                return false;
            }
        }
        return actual.size() == expected.size();
    }

    const std::map<std::string, std::string> plain = left_behind([] { return true; });
};

TEST_F(LocalesTest, WithoutOneTheWorkLeavesWhatItShould) {
    EXPECT_GT(plain.size(), 90u);
    EXPECT_EQ(plain.at("messages"),
              "[OrvelSDK] inizializzato (v0.1.0)\n"
              "[OrvelSDK] tone: 441 Hz x 1234 ms\n"
              "[OrvelSDK] tone: 0 Hz x 1234 ms\n"
              "[OrvelSDK] tone: 1234568 Hz x 1234 ms\n"
              "[OrvelSDK] musica: ./Music/\xff\xc3I\xddi\xfd.wav\n"
              "[OrvelSDK] musica non trovata: ./Music/nessuna\n"
              "[OrvelSDK] suono non trovato: ./Sounds/nessuno\n"
              "0 1 0\n"
              "[OrvelSDK] chiuso\n");
    EXPECT_NE(plain.at("UI/written").find("\"text\":         \"#abcdef\""), std::string::npos);
}

class InLocale : public LocalesTest, public testing::WithParamInterface<const char*> {};

TEST_P(InLocale, EveryByteIsTheSame) {
#ifdef ORVEL_LOCALES
    const char* const name = GetParam();
    EXPECT_TRUE(same(left_behind([name] {
                         setenv("LOCPATH", ORVEL_LOCALES, 1);
                         return std::setlocale(LC_ALL, name) &&
                                std::string(std::localeconv()->decimal_point) == ",";
                     }),
                     plain));
#else
    GTEST_SKIP() << "this system has no localedef or no sources of locales";
#endif
}

INSTANTIATE_TEST_SUITE_P(Locales, InLocale,
                         testing::Values("de_DE.UTF-8", "tr_TR.UTF-8", "tr_TR.ISO-8859-9"),
                         [](const auto& locale) {
                             std::string name = locale.param;
                             for (char& c : name) c = std::isalnum(c) ? c : '_';
                             return name;
                         });

TEST_F(LocalesTest, AHostThatPrintsWideCharactersLosesTheLinesAndNothingElse) {
    auto expected = plain;
    expected["messages"] = "";
    EXPECT_TRUE(same(left_behind([] { return std::fwide(stderr, 1) > 0; }), expected));
}

}  // namespace
