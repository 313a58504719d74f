// Text fields: what is typed into them, and how that shows.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "screen/line_editor.h"
#include "screen/node.h"

namespace kit {

/// The text field that has the keyboard, while it has it.
struct Editing {
    Tag tag = 0;
    LineEditor editor;                  // of the text that the field has
    std::optional<LineEditor> offered;  // of the one that it was to have, and may get yet
    std::string first;                  // the text when the keyboard came, or from elsewhere since
};

/// Copied whenever it changes, since what it remembers may be much.
using EditingPtr = std::shared_ptr<const Editing>;

/// Presses that follow each other in one place of a field.
struct Clicks {
    Tag tag = 0;
    int count = 0;
    std::uint64_t last = 0;  // on the screen's clock
    int x = 0, y = 0;
    int letter = 0;   // where the letter that was pressed begins
    int dragged = 0;  // the column where the pointer was since
};

/// What stands for the letters of a secret.
const char* dot_of(const Node& field);
/// The words of a field that nobody types into.
std::string words_at_rest(const Node& field);

/// The editing of a field that gets the keyboard, with its caret at the begin.
EditingPtr begin_editing(const Node& field);

struct Live;
/// Follows the nodes: who has the keyboard, and what its text is now.
void follow_field(const Nodes& nodes, Live& live);
/// Shows a field: its words, and with the keyboard its caret, which scrolls it.
void show_field(Node& field, Live& live);

/// Where a press in a field would set the caret, and where the letter under it begins: in what
/// shows.
struct Hit {
    int place, letter;
};
Hit hit_of(const Node& field, int x);

/// The widget of a field where it lies on the screen.
kit_widget placed_widget(const Node& field);

}  // namespace kit
