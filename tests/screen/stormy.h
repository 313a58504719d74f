// What storms of events need, random ones and those of the fuzzer: two screens that have all that
// can be used, and what has to hold whatever happened.
#pragma once

#include <string>

namespace orvel_test {

inline constexpr const char* kEverything = R"({"orvel": 1, "size": [220, 230],
    "sample": {"on": true, "off": false, "mode": "a", "n": 4, "room": 0,
       "rooms": ["Hall", "Bath", "Attic", "Cellar", "Garden", "Garage", "Hut", "Shed", "Barn"],
       "tab": 0, "words": "Words"},
    "root": {"row": [
      {"column": [
        {"button": "Go", "id": "go", "key": "ctrl+g", "tip": "Goes", "sound": "click"},
        {"toggle": "${on}", "tip": "On?"}, {"checkbox": "Off", "on": "${on}", "key": "o"},
        {"row": [{"radio": "A", "selected": "${mode}", "value": "a"},
                 {"radio": "B", "selected": "${mode}", "value": "b", "if": "on"}]},
        {"slider": "${n}", "range": [0, 9, 0.5], "key": "f2"},
        {"stepper": "${n}", "range": [0, 9, 0.5]}, {"rating": "${n}", "range": [0, 9]},
        {"dropdown": "None", "items": "${rooms}", "selected": "${room}", "disabled": "${off}"},
        {"dropdown": "${mode}", "items": ["a", "b", "c", "d", "e", "f", "g", "h"]},
        {"textbox": "${words}", "hint": "Words"}, {"slider": 0.5, "id": "unbound"}],
       "width": 110, "pad": 2, "gap": 2},
      {"column": [{"tabs": ["One", "Two"], "selected": "${tab}", "height": 24},
        {"stack": [
          {"column": [{"each": "rooms", "as": "r", "id": "room", "list_item": "${r}", "tip": "${r}",
                       "selected": "${mode}", "value": "${r}"},
                      {"text": "One two three four five six seven eight nine ten eleven",
                       "wrap": true, "height": 30, "tip": "A paragraph"}], "scroll": true},
          {"panel": {"column": [{"menu": ["A", "B", "C"], "selected": "${tab}"},
            {"row": [{"each": "rooms", "button": "${item}", "id": "b"}], "scroll": 5}]}}],
         "show": "${tab}", "grow": 1}], "grow": 1}]}})";

inline constexpr const char* kFields = R"({"orvel": 1, "size": [120, 190],
    "sample": {"on": true, "short": "one two",
       "words": "Words that don't fit, e\u0301 and \ud83c\udde9\ud83c\uddea"},
    "root": {"column": [
      {"textbox": "${words}", "hint": "Words"},
      {"search": "${words}", "limit": 6, "width": 70},
      {"textbox": "${words}", "secret": "${on}", "id": "secret", "key": "f2", "tip": "Secret"},
      {"textbox": "Nobody's", "id": "unbound", "face": "bold 14"},
      {"row": [{"textbox": "${short}", "width": 40}, {"textbox": "${words}", "width": 15},
               {"button": "Go", "id": "go"}]},
      {"toggle": "${on}"}, {"textbox": "${words}", "id": "room", "disabled": "${on}"}]}})";

inline int count_of(const std::string& all, const std::string& part) {
    int count = 0;
    for (std::size_t at = all.find(part); at != std::string::npos; at = all.find(part, at + 1)) {
        ++count;
    }
    return count;
}

/// What is wrong with a screen that describes itself so; empty when there is at most one of each,
/// and nobody without a reason.
inline std::string inconsistency(const std::string& all) {
    const int open = count_of(all, " open ");
    const auto wrong = [&all](const char* what) { return std::string(what) + ":\n" + all; };
    if (open > 1) return wrong("two are open");
    if (count_of(all, " hover ") > 1) return wrong("two are hovered");
    if (count_of(all, " pressed ") > 1) return wrong("two are pressed");
    if (count_of(all, " focus ") > 1 + open) return wrong("two have the keyboard");
    if (count_of(all, "\ncolumn") != open)
        return wrong("a list without its dropdown, or without a list");
    if (count_of(all, "\ntooltip") > 1 - open) return wrong("two tooltips, or one over a list");
    for (const char* used : {"disabled hover", "disabled pressed", "disabled focus"}) {
        if (count_of(all, used) > 0) return wrong(used);
    }
    return "";
}

}  // namespace orvel_test
