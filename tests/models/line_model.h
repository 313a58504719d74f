// An editor of a line as one would explain it: a list of characters, and copies of the whole of it
// to go back to. It knows the classes of those characters alone that its sweep types.
#pragma once

#include <string>
#include <vector>

namespace model {

using Characters = std::vector<char32_t>;

enum class Step { Letter, Word, Line };
enum class Kind { Other, Typed, Backspace, Delete };  // of edits that come together

class Line {
public:
    struct State {
        Characters text;
        int caret = 0, anchor = 0;  // in characters
    };

    int limit = 0;  // in letters; 0: none
    bool secret = false;
    State now;

    /// From outside, with where the caret and the anchor were.
    void set_text(const Characters& text, int caret, int anchor);
    void end_step() { last_ = Kind::Other; }
    void place(int at, bool extend);
    void place_words(int from, int to);
    void select_all() { select(0, size()); }
    void move(Step step, bool forward, bool extend);
    void put(const Characters& text, Kind kind);
    void erase(Step step, bool forward);
    void replace_all(const Characters& text);
    void undo();
    void redo();
    Characters copied() const;

    int size() const { return static_cast<int>(now.text.size()); }

    /// Whether a caret may stand before the character @p i.
    static bool is_place(const Characters& text, int i);
    static int count_letters(const Characters& text);

private:
    struct Change {
        State before, after;
    };
    void select(int anchor, int caret);
    int place_from(int at) const;
    int target(Step step, bool forward) const;
    bool joins(const Characters& text, Kind kind) const;
    void replace(int begin, int end, const Characters& text, Kind kind);

    std::vector<Change> done_, undone_;
    Kind last_ = Kind::Other;
    int edge_ = 0;  // the end of the last edit, which need not be a place
};

}  // namespace model
