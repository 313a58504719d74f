// What keys, texts and the pointer do in a text field.
#pragma once

#include <string_view>

#include "screen/turn.h"

namespace kit {

/// A press at the pointer, in the field that it gave the keyboard.
void press_field(Turn& turn, const Node& field, unsigned modifiers);
/// The pointer moved on, held down.
void drag_field(Turn& turn, const Node& field);

/// Whether there is more to select while the pointer is held beside the words.
bool drags_on(const Turn& turn, const Node& field);
/// It was held there for so many steps.
void drag_on(Turn& turn, const Node& field, long long steps);

/// Whether the field takes the key.
bool field_key(Turn& turn, const Node& field, int key, unsigned modifiers);
void type_into(Turn& turn, const Node& field, std::string_view text);
void paste_into(Turn& turn, const Node& field, std::string_view text);
void compose_in(Turn& turn, const Node& field, std::string_view text, int caret);

}  // namespace kit
