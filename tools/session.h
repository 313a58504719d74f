// Recorded sessions: what went into a screen, a line of JSON for each event, with its time.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "orvel_screen.h"

namespace orvel_tools {

/// One event: what is sent to the screen, data that are set, another size, or a picture to take.
struct SessionEvent {
    enum Kind { kInput, kSet, kSize, kPicture };

    Kind kind = kInput;
    long long at = 0;             // milliseconds from the start
    kit_screen_event input = {};  // without its text
    std::string text;             // of the input; what is set; the picture's name
    std::string json;             // the value to set
    int width = 0, height = 0;
    int line = 0;  // of the file; 0 where there is none
};

using Session = std::vector<SessionEvent>;

/// Reads a session; "-" is the standard input. On failure, @p error says why, with file and line.
std::optional<Session> read_session(const std::string& path, std::string& error);

/// The event as a line, with its end.
std::string session_line(const SessionEvent& event);

/// The change as a line of JSON, with its end.
std::string change_line(const kit_change& change, long long at);

/// The text that a JSON string stands for; empty for any other JSON.
std::string text_of_json(const std::string& json);

/// Whether a picture can be called so: letters, digits, "_", "-" and dots, but for the first.
bool names_a_picture(const std::string& name);

/// "ctrl+shift+", in this order; empty for none.
std::string modifiers_text(unsigned modifiers);
/// Reads "ctrl", "alt", "shift" or several of them; false for anything else.
bool read_modifiers(const std::string& text, unsigned& modifiers);

/// A key as it is written: "ctrl+shift+tab", "a", "f5"; empty for one without a name.
std::string key_text(int key, unsigned modifiers);
/// False for what is no key.
bool read_key(const std::string& text, int& key, unsigned& modifiers);

}  // namespace orvel_tools
