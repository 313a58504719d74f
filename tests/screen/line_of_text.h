// Lines of text that are edited, written as they look: "|" at the caret, "[" or "]" at the other
// end.
#pragma once

#include <string>

#include "screen/line_editor.h"

namespace orvel_test {

using kit::By;
using kit::LineEditor;

/// The text with "|" at the caret, and "[" or "]" at the other end of a selection.
inline std::string seen(const LineEditor& editor) {
    std::string text = editor.text();
    const std::size_t caret = editor.caret(), anchor = editor.anchor();
    if (anchor > caret) text.insert(anchor, "]");
    text.insert(caret, "|");
    if (anchor < caret) text.insert(anchor, "[");
    return text;
}

/// An editor of such a text.
inline LineEditor editing(std::string text) {
    const std::size_t other = text.find_first_of("[]");
    const bool before = other < text.find('|');
    if (other != std::string::npos) text.erase(other, 1);
    const std::size_t caret = text.find('|');
    text.erase(caret, 1);
    LineEditor editor;
    editor.set_text(text);
    if (other != std::string::npos) {
        editor.place(static_cast<int>(before ? other : other - 1), false);
        editor.place(static_cast<int>(caret), true);
    } else {
        editor.place(static_cast<int>(caret), false);
    }
    return editor;
}

inline constexpr bool kForward = true, kBack = false, kExtend = true;

}  // namespace orvel_test
