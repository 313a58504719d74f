// A text field, and a hand that types into it.
#pragma once

#include <cstring>

#include "live.h"

namespace orvel_test {

inline constexpr unsigned kShift = KIT_MOD_SHIFT, kControl = KIT_MOD_CONTROL, kAlt = KIT_MOD_ALT;

/// A screen with a text field at the top left that is bound to "name", and a hand on it.
struct Typing : Used {
    explicit Typing(const std::string& text, const std::string& keys = "",
                    const char* kind = "textbox", int width = 100)
        : Used(scene(R"({"column": [{")" + std::string(kind) + R"(": "${name}", "id": "it", )" +
                         keys + R"("width": )" + std::to_string(width) +
                         R"(, "height": 30}, {"button": "Go", "id": "go", "height": 30},
                            {"search": "${other}", "id": "other", "height": 30}]})",
                     R"("size": [)" + std::to_string(width + 40) +
                         R"(, 120], "sample": {"name": "", "other": "x"}, )"),
               (R"({"name": ")" + text + R"(", "other": "x"})").c_str()) {
        widget.kind = std::strcmp(kind, "search") == 0 ? ORVEL_WIDGET_SEARCH : ORVEL_WIDGET_TEXTBOX;
        widget.box = {0, 0, width, 30};
        canvas = drawn(screen.get());
    }

    std::string text() const {
        const std::string json = value("name");
        return json.substr(1, json.size() - 2);
    }
    /// The column of the letter at an offset, while the text shows from its begin.
    int at(int offset) const {
        kit_box room;
        kit_field(&widget, &room, nullptr);
        return room.x + kit_text_x(nullptr, text().c_str(), offset);
    }
    void press_with(unsigned modifiers, int x, int y = 15) const {
        kit_screen_event event = {};
        event.kind = KIT_EVENT_PRESS;
        event.x = x;
        event.y = y;
        event.modifiers = modifiers;
        EXPECT_EQ(send(event), 0);
    }
    void compose(const char* composed, int caret) const {
        kit_screen_event event = {};
        event.kind = KIT_EVENT_COMPOSE;
        event.text = composed;
        event.caret = caret;
        EXPECT_EQ(send(event), 0);
    }
    void paste(const char* pasted) const { plain(KIT_EVENT_PASTE, pasted); }
    /// What is waiting behind Ctrl+C.
    std::string copy() const {
        key('c', kControl);
        return changes();
    }
    /// Draws what has changed, which makes the whole what it is drawn anew; what was drawn.
    kit_box draw() const {
        kit_box dirty = {};
        EXPECT_EQ(kit_screen_draw(screen.get(), canvas.get(), &dirty), 0);
        EXPECT_EQ(checksum(canvas.get()), checksum(drawn(screen.get()).get()));
        return dirty;
    }

    bool looks_like(const std::string& words, unsigned state, int caret, int anchor) const {
        kit_widget wanted = widget;
        wanted.text = words.c_str();
        wanted.state = state;
        wanted.caret = caret;
        wanted.anchor = anchor;
        orvel_theme theme;
        orvel_theme_default(&theme);
        const CanvasPtr plain = make_canvas(widget.box.w, widget.box.h);
        orvel_canvas_clear(plain.get(), theme.background);
        kit_draw(plain.get(), &theme, &wanted);
        const CanvasPtr part = make_canvas(widget.box.w, widget.box.h);
        kit_copy(part.get(), 0, 0, canvas.get(), &widget.box);
        return checksum(part.get()) == checksum(plain.get());
    }
    /// The words that show with "|" at the caret and "[" or "]" at the other end of a selection, as
    /// the kit draws it; "?" where it is none of these.
    std::string seen(const std::string& words, unsigned state = KIT_FOCUS) const {
        draw();
        if (looks_like(words, state & ~unsigned{KIT_FOCUS}, 0, 0)) return words;
        const int size = static_cast<int>(words.size());
        for (int caret = 0; caret <= size; ++caret) {
            for (int anchor = 0; anchor <= size; ++anchor) {
                if (!looks_like(words, state, caret, anchor)) continue;
                std::string marked = words;
                if (anchor > caret) marked.insert(static_cast<std::size_t>(anchor), "]");
                marked.insert(static_cast<std::size_t>(caret), "|");
                if (anchor < caret) marked.insert(static_cast<std::size_t>(anchor), "[");
                return marked;
            }
        }
        return "?";
    }
    std::string seen() const {
        move(widget.box.w + 20, 110);  // so that nothing is hovered
        return seen(text());
    }
    std::string after(int key, unsigned modifiers = 0) const {
        Used::key(key, modifiers);
        return seen();
    }
    /// Sets caret and selection by the pointer.
    void select(int anchor, int caret) {
        now += 1000;
        press(at(anchor), 15);
        move(at(caret), 15);
        release(at(caret), 15);
    }

    kit_widget widget = {};
    CanvasPtr canvas;
};

}  // namespace orvel_test
