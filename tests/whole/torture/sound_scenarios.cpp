#include <cstdio>
#include <filesystem>

#include "sound/wav.h"
#include "support/files.h"
#include "system/system.h"
#include "whole/torture/scenario.h"

namespace orvel_test::torture {
namespace {

/// Plays music, and tells all that is seen of it.
void play(Host& host, const char* name) {
    host.call(orvel_play_music, name);
    host.tell_log();
    host.tell_players();
}

/// A track that plays before anything fails.
void start_track(Host& host) {
    host.provide("Music/track.wav", "a track");
    orvel_play_music("track.wav");
    taken_log();
}

/// What is told of starting the music of @p file, and of the players before and after that.
struct Start {
    std::string file, before, after;

    std::string found() const { return "musica: Music/" + file + ", "; }
    std::string missing() const { return "-1, musica non trovata: Music/" + file + ", " + before; }
    std::string done() const { return "0, " + found() + after + "; 1 player left"; }
    /// Memory ran out: before the file was found, and when the player was to be started.
    std::string stuck() const { return "bad_alloc, silent, " + before; }
    std::string stuck_late() const { return "bad_alloc, " + found() + before; }

    std::vector<Rule> rules() const {
        const std::string unheard = after + "; 1 player left";
        return {
            {"last new", stuck_late()},
            {"new", stuck()},
            {"open 1", missing(), "-1, silent, " + before},
            {"close", done(), stuck()},
            {"fwrite short", "0, a cut line, " + unheard, "bad_alloc, a cut line, " + before},
            {"fwrite", "0, silent, " + unheard, stuck()},
            {"access 1", done(), stuck_late()},
            {"fork", "-1, " + found() + before},
        };
    }
    /// The same of a file that does not exist.
    std::vector<Rule> rules_of_missing() const {
        return {
            {"new", stuck()},
            {"open", missing(), "-1, silent, " + before},
            {"fwrite short", "-1, a cut line, " + before},
            {"fwrite", "-1, silent, " + before},
        };
    }
};

/// In a folder whose relative path a program could take for an option.
void play_dashed(Host& host) {
    const auto folder = std::filesystem::current_path();
    host.provide("-resources/Music/track.wav", "a track");
    std::filesystem::current_path(host.path(""));
    orvel_set_resource_path("-resources");
    machine().programs = {"/usr/bin/paplay"};
    host.call(orvel_play_music, "track.wav");
    host.tell_players();
    std::filesystem::current_path(folder);
}

Scenario dashed() {
    const std::string done = "0, paplay plays; 1 player left", stuck = "bad_alloc, no child";
    const std::string unheard = "0, no player ended; 1 player left";
    std::vector<Rule> rules = {{"new", stuck},
                               {"open 1", "-1, no child"},
                               {"access 2", unheard, stuck},
                               {"fork", "-1, no child"},
                               {"execl", unheard}};
    for (const char* call : {"close", "fwrite", "access 1", "open 2", "read"}) {
        rules.push_back({call, done, stuck});
    }
    return {"music is played from a folder that looks like an option", play_dashed, done, rules};
}

Scenarios starting() {
    const Start track = {"track.wav", "no child", "afplay plays"};
    const Start film = {"film.m4a", "no child", "mpv plays"};
    const Start missing = {"missing.wav", "no child", ""};
    const std::string without_mpv = "0, " + film.found() + "no player ended; 1 player left";
    const std::string with_paplay = "0, " + film.found() + "paplay plays; 1 player left";
    return {
        {"music is played",
         [](Host& host) {
             host.provide("Music/track.wav", "a track");
             play(host, "track.wav");
         },
         track.done(),
         with(track.rules(),
              {{"execl", "0, " + track.found() + "no player ended; 1 player left"}})},
        {"music is played by the program that can",
         [](Host& host) {
             machine().programs = {"/usr/bin/paplay", "/usr/bin/mpv"};
             host.provide("Music/film.m4a", std::string("\0\0\0\x20", 4) + "ftypM4A");
             play(host, "film.m4a");
         },
         film.done(),
         with({{"last close", film.done(), film.stuck_late()}},
              with(film.rules(), {{"open 2", with_paplay, film.stuck_late()},
                                  {"read short", film.done(), film.stuck_late()},
                                  {"read", with_paplay, film.stuck_late()},
                                  {"access 2", without_mpv, film.stuck_late()},
                                  {"execl", without_mpv}}))},
        dashed(),
        {"a track that is missing is played", [](Host& host) { play(host, "missing.wav"); },
         missing.missing(), missing.rules_of_missing()},
    };
}

Scenarios stopping() {
    const Start other = {"other.wav", "afplay is gone", "afplay is gone, afplay plays"};
    const Start missing = {"missing.wav", "afplay is gone", ""};
    // Whatever becomes of the calls that stop the first track, it ends and is reaped.
    const auto stopping = [](const std::string& done, const std::string& stuck) {
        return std::vector<Rule>{
            {"waitpid WNOHANG", done, stuck}, {"kill", done, stuck}, {"waitpid", done, stuck}};
    };
    return {
        {"music is stopped",
         [](Host& host) {
             start_track(host);
             host.call(orvel_stop_music);
             host.tell_players();
             host.call(orvel_stop_music);
         },
         "afplay is gone",
         {}},
        {"music that ended by itself is stopped",
         [](Host& host) {
             machine().tracks_are_short = true;
             start_track(host);
             host.call(orvel_stop_music);
             host.tell_players();
         },
         "afplay is gone",
         {}},
        {"music is played after other music",
         [](Host& host) {
             start_track(host);
             host.provide("Music/other.wav", "another track");
             play(host, "other.wav");
         },
         other.done(),
         with(with(stopping(other.done(), other.stuck()), other.rules()),
              {{"execl",
                "0, " + other.found() + "afplay is gone, no player ended; 1 player left"}})},
        {"a missing track is played after other music",
         [](Host& host) {
             start_track(host);
             play(host, "missing.wav");
         },
         missing.missing(),
         with(stopping(missing.missing(), missing.stuck()), missing.rules_of_missing())},
        {"null is played after other music",
         [](Host& host) {
             start_track(host);
             play(host, nullptr);
         },
         "-1, silent, afplay plays; 1 player left",
         {}},
    };
}

void beep(Host& host, double frequency, const char* before) {
    const std::string file = host.path("tone.wav");
    std::remove(file.c_str());
    if (*before) write_file(file, before);
    host.call(orvel_play_tone, frequency, 10);
    host.tell_log();
    host.tell_file(file);
    host.tell_players();
}

/// A tone of 926 bytes. @p kept is what is told of the file while nothing has been written to it.
std::vector<Rule> rules_of_tones(const std::string& kept, const std::string& opened) {
    const std::string done = "0, tone: 440 Hz x 10 ms, ";
    const std::string playing = ", afplay plays; 1 player left";
    const std::string stuck = "bad_alloc, silent, ", alone = ", no child";
    return {
        {"new 1", stuck + kept + alone},
        {"new", "bad_alloc, tone: 440 Hz x 10 ms, whole, no child"},
        {"open", done + kept + playing, stuck + kept + alone},
        {"fstat", done + opened + playing, stuck + opened + alone},
        {"ftruncate", done + opened + playing, stuck + opened + alone},
        {"write first byte", done + "1 bytes" + playing, stuck + "1 bytes" + alone},
        {"write half", done + "463 bytes" + playing, stuck + "463 bytes" + alone},
        {"write all but last", done + "925 bytes" + playing, stuck + "925 bytes" + alone},
        {"write", done + "0 bytes" + playing, stuck + "0 bytes" + alone},
        {"close", done + "whole" + playing, stuck + "whole" + alone},
        {"fwrite short", "0, a cut line, whole" + playing, "bad_alloc, a cut line, whole" + alone},
        {"fwrite", "0, silent, whole" + playing, stuck + "whole" + alone},
        {"access", done + "whole" + playing, "bad_alloc, tone: 440 Hz x 10 ms, whole, no child"},
        {"fork", "-1, tone: 440 Hz x 10 ms, whole, no child"},
        {"execl", done + "whole, no player ended; 1 player left"},
    };
}

Scenarios tones() {
    const char* const done = "0, tone: 440 Hz x 10 ms, whole, afplay plays; 1 player left";
    return {
        {"a tone is played", [](Host& host) { beep(host, 440.0, ""); }, done,
         rules_of_tones("no file", "0 bytes")},
        {"a tone is played after another", [](Host& host) { beep(host, 440.0, "old"); }, done,
         rules_of_tones("old", "old")},
        {"a tone of no frequency is played",
         [](Host& host) { beep(host, 0.0, ""); },
         "-1, silent, no file, no child",
         {}},
    };
}

void sound(Host& host, const std::string& bytes) {
    host.provide("Sounds/click.wav", bytes);
    host.call(orvel_play_sound, "click.wav");
    host.tell_log();
}

// The libraries that play effects stay loaded from the first one on.
const char* const kPlayed = "0, suono: Sounds/click.wav; 2 libraries left";
const char* const kRefused = "-1, suono: Sounds/click.wav";
const char* const kStuckLater = "bad_alloc, suono: Sounds/click.wav; 2 libraries left";
const char* const kRefusedLater = "-1, suono: Sounds/click.wav; 2 libraries left";

/// What becomes of an effect when a library of sounds is not to be had, or incomplete.
std::vector<Rule> rules_of_loading() {
    const char* const with_one = "-1, suono: Sounds/click.wav; 1 library left";
    return {{"dlopen 1", kRefused}, {"dlopen", with_one},  {"dlsym 1", kRefused},
            {"dlsym 2", kRefused},  {"dlsym 3", kRefused}, {"dlsym", with_one}};
}

/// The same when a call of one fails.
std::vector<Rule> rules_of_libraries() {
    std::vector<Rule> rules = {
        {"pa_operation_get_state 1", kRefusedLater},  // of the playing; the second comes too late
    };
    for (const char* call : {"pa_mainloop_prepare", "pa_mainloop_poll", "pa_mainloop_dispatch",
                             "pa_context_get_state", "pa_stream_get_state"}) {
        rules.push_back({std::string("last ") + call, kPlayed});  // of the removal
        rules.push_back({call, kRefusedLater});
    }
    rules.push_back({"sf_read 2", kPlayed, kStuckLater});
    rules.push_back({"sf_close", kPlayed, kRefusedLater});
    rules.push_back({"pa_proplist_sets", kPlayed, kRefusedLater});
    for (const char* call :
         {"sf_open", "sf_read 1", "pa_sample_spec_valid", "pa_proplist_new", "pa_mainloop_new",
          "pa_context_new", "pa_context_connect", "pa_context_play_sample", "pa_stream_new",
          "pa_stream_connect_upload", "pa_stream_writable_size", "pa_stream_write",
          "pa_stream_finish_upload"}) {
        rules.push_back({call, kRefusedLater});
    }
    return rules;
}

/// What the library loads for an effect, it loads once a process.
Scenario played_effect() {
    const std::vector<Rule> rules = {
        {"new 4", kStuckLater},  // for the samples
        {"last new", kStuckLater},
        {"new", "bad_alloc, silent"},
        {"open 1", "-1, suono non trovato: Sounds/click.wav", "-1, silent"},
        {"last close", kPlayed, kRefusedLater},
        {"close", kPlayed, "-1, silent"},
        {"fwrite short", "0, a cut line; 2 libraries left", "-1, a cut line"},
        {"fwrite", "0, silent; 2 libraries left", "-1, silent"},
        {"open 2", kRefusedLater},
        {"fstat", kRefusedLater},
    };
    return {"an effect is played", [](Host& host) { sound(host, "snd of the fake libraries"); },
            kPlayed, with(with(rules, rules_of_loading()), rules_of_libraries()), true};
}

Scenarios effects() {
    return {
        played_effect(),
        {"a text is played as an effect", [](Host& host) { sound(host, "not a sound at all"); },
         kRefusedLater,
         with({{"new", "bad_alloc, silent"},
               {"open 1", "-1, suono non trovato: Sounds/click.wav", "-1, silent"},
               {"last close", kRefusedLater},
               {"close", kRefusedLater, "-1, silent"},
               {"fwrite short", "-1, a cut line; 2 libraries left", "-1, a cut line"},
               {"fwrite", "-1, silent; 2 libraries left", "-1, silent"}},
              rules_of_loading()),
         true},
        {"an effect that is missing is played",
         [](Host& host) {
             host.call(orvel_play_sound, "missing.wav");
             host.tell_log();
         },
         "-1, suono non trovato: Sounds/missing.wav",
         {{"new", "bad_alloc, silent"},
          {"open", "-1, suono non trovato: Sounds/missing.wav", "-1, silent"},
          {"fwrite short", "-1, a cut line"},
          {"fwrite", "-1, silent"}}},
        {"null is played as an effect",
         [](Host& host) {
             host.call(orvel_play_sound, nullptr);
             host.tell_log();
         },
         "-1, silent",
         {}},
    };
}

}  // namespace

Scenarios sound_scenarios() { return joined({starting(), stopping(), tones(), effects()}); }

}  // namespace orvel_test::torture
