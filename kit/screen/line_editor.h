// One line of text that is edited.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "screen/letters.h"
#include "screen/line_history.h"

namespace kit {

/// How far a key goes.
enum class By { Letter, Word, Line };

/**
 * A text, a caret and the other end of its selection, which are places of it; what can be taken
 * back; and a text that is being composed, which stands in place of the selection until it is typed
 * or given up. Offsets from outside may be anything: they count as the first place behind them, or
 * as an end.
 *
 * What raises leaves an editor in no particular state: work on a copy.
 */
class LineEditor {
public:
    /// At most so many letters; 0: as many as 64 KiB hold.
    void set_limit(int letters) { limit_ = letters > 0 ? static_cast<std::size_t>(letters) : 0; }
    int limit() const { return static_cast<int>(limit_); }
    /// Nobody is to read it: nothing is copied, and there are no words in it.
    void set_secret(bool secret) { secret_ = secret; }

    /// The text as it is known outside, well-formed. Where that is another one, nothing of the old
    /// can be got back and nothing is composed any more. It may be longer than the limit.
    void set_text(std::string_view text);

    const std::string& text() const { return text_; }
    std::size_t caret() const { return caret_; }
    std::size_t anchor() const { return anchor_; }
    bool is_secret() const { return secret_; }
    bool is_composing() const { return !composed_.empty(); }

    /* All that follows gives up what is composed, but for typing and composing itself. Edits say
     * whether the text is another one now. */

    /// Puts the caret where a pointer pressed; to @p extend leaves the other end where it is.
    void place(int at, bool extend);
    /// Selects the words, or what is between them, from the one at @p from to that at @p to.
    void place_words(int from, int to);
    void select_all();
    /// Moves the caret. Without @p extend, a letter's step leaves a selection at its end.
    void move(By by, bool forward, bool extend);

    /// Puts a text in place of the selection, as much of it as there is room for: one_line() of it.
    bool type(std::string_view text) { return put(text, Joint::Typed); }
    bool paste(std::string_view text) { return put(text, Joint::None); }
    /// Takes out the selection, else what the caret would step over.
    bool erase(By by, bool forward);
    /// Puts another text in place of all of it, which can be taken back.
    bool replace_all(std::string_view text);
    bool undo();
    bool redo();

    /// The selection, for the clipboard; nothing of a secret.
    std::string copied() const;

    /// Shows a text that is being composed, with the caret inside it; none to give it up.
    void compose(std::string_view text, int caret);

    /// How it shows, with what is composed in it, and a dot for each letter of a secret.
    struct Shown {
        std::string text;
        int caret, anchor;
        int composed, composed_end;  // where that stands
    };
    Shown shown(std::string_view dot) const;
    /// The offset in the text of one in the text that shows; all of what is composed is at its
    /// begin.
    int behind_shown(int at, std::string_view dot) const;

private:
    struct Part {
        std::size_t begin, end;
    };
    Part selection() const;
    std::size_t place_of(int at) const;
    std::size_t target(By by, bool forward) const;
    bool put(std::string_view text, Joint joint);
    std::size_t room_for(const std::string& typed, Part part) const;
    bool replace(Part part, const std::string& text, Joint joint);
    void swap_parts(std::size_t at, std::size_t bytes, const std::string& other);
    void leave_step();

    std::string text_, composed_;
    std::size_t caret_ = 0, anchor_ = 0, composed_caret_ = 0, limit_ = 0;
    bool secret_ = false;
    LineHistory history_;
};

}  // namespace kit
