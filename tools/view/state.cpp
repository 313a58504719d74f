#include "view/state.h"

#include <sstream>
#include <vector>

namespace orvel_tools {
namespace {

/// The words of a line outside of quotes.
std::vector<std::string> words_of(const std::string& line) {
    std::vector<std::string> words(1);
    bool quoted = false, escaped = false;
    for (const char letter : line) {
        if (quoted) {
            if (letter == '"' && !escaped) quoted = false;
            escaped = letter == '\\' && !escaped;
        } else if (letter == '"') {
            quoted = true;
        } else if (letter == ' ') {
            words.emplace_back();
        } else {
            words.back() += letter;
        }
    }
    return words;
}

/// Lets typing go on at the end of the field that has the keyboard, all of which is selected.
void go_on_typing(kit_screen* screen) {
    kit_box caret = {};
    if (kit_screen_caret(screen, &caret) != 0) return;  // to a slider that key is another one
    kit_screen_event end = {};
    end.kind = KIT_EVENT_KEY;
    end.key = KIT_KEY_END;
    kit_screen_send(screen, &end, 0);
}

}  // namespace

std::string focused(kit_screen* screen) {
    const char* const all = kit_screen_describe(screen);
    std::istringstream lines(all ? all : "");
    for (std::string line; std::getline(lines, line);) {
        bool focus = false;
        std::string id;
        for (const std::string& word : words_of(line)) {
            if (word == "focus") focus = true;
            if (word[0] == '#') id = word.substr(1);
        }
        if (focus) return id;
    }
    return "";
}

void carry_over(kit_screen* from, kit_screen* to, const std::set<std::string>& names) {
    for (const std::string& name : names) {
        const char* const value = kit_screen_get(from, name.c_str());
        if (value) kit_screen_set(to, name.c_str(), value, nullptr, 0);
    }
    const std::string focus = focused(from);
    if (focus.empty()) return;
    kit_screen_focus(to, focus.c_str());
    go_on_typing(to);
}

}  // namespace orvel_tools
