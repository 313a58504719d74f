#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "support/files.h"
#include "whole/torture/scenario.h"

namespace orvel_test::torture {
namespace {

void load(Host& host, const std::string& text, const char* name) {
    host.provide("UI/night.json", text);
    orvel_theme theme = host.theme();
    host.call(orvel_theme_load, &theme, name);
    host.tell_theme(theme, host.theme());
    orvel_theme_load(&theme, name);
    host.tell_unless_as_ever(bytes_of(theme), "not loaded afterwards");
}

const std::string kTheme = R"({"accent": "#112233", "error": "#445566"})";

/// Values that are too long to be kept anywhere but in allocated memory.
const std::string kWordy =
    R"({"accent": "#112233 as in the evening sky", "error": "#445566 as in a warning"})";

/// More than two of the pieces in which files are read, with a colour in the first and the last.
const std::string kLong =
    R"("accent": "#112233",)" + std::string(9000, ' ') + R"("error": "#445566")";

Scenarios presets() {
    return {
        {"the dark theme is filled in",
         [](Host& host) {
             orvel_theme theme = {};
             host.call(orvel_theme_default, &theme);
             host.tell_theme(theme, {});
         },
         "loaded",
         {}},
        {"the light theme is filled in",
         [](Host& host) {
             orvel_theme theme = {};
             host.call(orvel_theme_light, &theme);
             host.tell_theme(theme, {});
         },
         "loaded",
         {}},
    };
}

// What a theme's file of one piece is read by, once it was found.
const std::vector<Rule> kRulesOfReading = {
    {"read 1 first byte", "0, loaded", "0, kept"},
    {"read 1 short", "0, loaded", "bad_alloc, kept"},
    {"read 1", "0, kept"},
};

/// A theme that is opened at once.
Scenario named(const char* name, void (*act)(Host& host), const std::vector<Rule>& more) {
    return {name, act, "0, loaded",
            with(with({{"new", "bad_alloc, kept"}, {"open", "-1, kept"}}, kRulesOfReading), more)};
}

Scenarios loading() {
    return {
        named("a theme is loaded", [](Host& host) { load(host, kTheme, "night.json"); }, {}),
        {"a theme is found and loaded", [](Host& host) { load(host, kTheme, "night"); },
         "0, loaded",
         with({{"new", "bad_alloc, kept"},
               {"open 4", "-1, kept", "bad_alloc, kept"},
               {"open", "0, loaded", "bad_alloc, kept"}},
              kRulesOfReading)},
        named("a theme with long values is loaded",
              [](Host& host) { load(host, kWordy, "night.json"); },
              {{"read 2", "0, loaded", "bad_alloc, kept"},
               {"close", "0, loaded", "bad_alloc, kept"}}),
        named("a theme is loaded in three pieces",
              [](Host& host) { load(host, kLong, "night.json"); },
              {{"read 2 short", "0, loaded", "bad_alloc, kept"},
               {"read 2", "0, partly loaded"},
               {"read 3 short", "0, loaded", "bad_alloc, kept"},
               {"read 3", "0, partly loaded"}}),
        {"a theme that is missing is loaded",
         [](Host& host) {
             orvel_theme theme = host.theme();
             host.call(orvel_theme_load, &theme, "missing.json");
             host.tell_theme(theme, host.theme());
         },
         "-1, kept",
         {{"new", "bad_alloc, kept"}}},
        {"a theme is loaded into nothing",
         [](Host& host) {
             orvel_theme theme = host.theme();
             host.call(orvel_theme_load, nullptr, "night.json");
             host.call(orvel_theme_load, &theme, nullptr);
         },
         "-1, -1",
         {}},
    };
}

void save(Host& host, const std::string& before, const char* name, const std::string& file) {
    std::filesystem::remove_all(host.path("UI"));
    std::filesystem::create_directory(host.path("UI"));
    if (!before.empty()) write_file(host.path("UI/" + file), before);
    host.call(orvel_theme_save, &host.theme(), name);
    host.tell_file(host.path("UI/" + file));
    orvel_theme_save(&host.theme(), name);
    host.tell_unless_as_ever(read_file(host.path("UI/" + file)), "not saved afterwards");
}

/// A theme is written in one piece of 264 bytes. @p before is what is told of the file while it is
/// not opened, @p emptied when it was not emptied.
std::vector<Rule> rules_of_saving(const std::string& before) {
    const std::string emptied = before == "old" ? "old" : "0 bytes";
    return {
        {"creat", "-1, " + before},
        {"fstat", "-1, " + emptied},
        {"write first byte", "0, whole", "0, 1 bytes"},
        {"write half", "0, whole", "0, 132 bytes"},
        {"write all but last", "0, whole", "0, 263 bytes"},
        {"write", "0, 0 bytes"},
    };
}

/// The number of the standard input is held while the file is opened.
void save_without_input(Host& host) {
    const int input = fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 100);
    close(STDIN_FILENO);
    save(host, "", "mine.json", "mine.json");
    dup2(input, STDIN_FILENO);
    close(input);
}

Scenarios saving() {
    return {
        {"a theme is saved", [](Host& host) { save(host, "", "mine.json", "mine.json"); },
         "0, whole", with({{"new", "bad_alloc, no file"}}, rules_of_saving("no file"))},
        {"a theme is saved under a bare name", [](Host& host) { save(host, "", "mine", "mine"); },
         "0, whole",
         with({{"new", "bad_alloc, no file"}, {"open", "0, whole", "bad_alloc, no file"}},
              rules_of_saving("no file"))},
        {"a theme is saved over another",
         [](Host& host) { save(host, "old", "mine", "mine.json"); }, "0, whole",
         with({{"new", "bad_alloc, old"},
               {"open 4", "0, old", "bad_alloc, old"},
               {"open", "0, whole", "bad_alloc, old"},
               {"last close", "0, whole"},
               {"close", "0, whole", "-1, old"},
               {"ftruncate", "-1, old"}},
              rules_of_saving("old"))},
        {"a theme is saved by a host without an input", save_without_input, "0, whole",
         with({{"new", "bad_alloc, no file"},
               {"open /", "-1, no file"},
               {"fstat 1", "0, whole", "-1, 0 bytes"},
               {"close 1", "0, whole", "-1, 0 bytes"}},
              rules_of_saving("no file"))},
        {"a theme is saved in no folder",
         [](Host& host) {
             std::filesystem::remove_all(host.path("UI"));
             host.call(orvel_theme_save, &host.theme(), "mine.json");
         },
         "-1",
         {{"new", "bad_alloc"}}},
        {"nothing is saved as a theme",
         [](Host& host) {
             host.call(orvel_theme_save, nullptr, "mine.json");
             host.call(orvel_theme_save, &host.theme(), nullptr);
         },
         "-1, -1",
         {}},
    };
}

}  // namespace

Scenarios theme_scenarios() { return joined({presets(), loading(), saving()}); }

}  // namespace orvel_test::torture
