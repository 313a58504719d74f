// A line of text that is edited beside a plain model of it. ORVEL_SWEEP_CASE replays one case by
// its number.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "models/line_model.h"
#include "models/utf8.h"
#include "screen/line_editor.h"
#include "support/cases.h"
#include "support/random.h"

namespace {

using namespace kit;
using orvel_test::Random;

/// What the sweep types: letters, what belongs to them, pictures, flags, blanks and signs.
constexpr char32_t kTyped[] = {'a',     'b',     0xE9,    0x8A9E,  0x301, 0x200D, 0xFE0F, 0x1F3FD,
                               0x1F469, 0x1F680, 0x1F1E9, 0x1F1EA, ' ',   0xA0,   ',',    '\''};

std::string bytes_of(const model::Characters& text) {
    std::string bytes;
    for (const char32_t code : text) bytes += model::utf8(code);
    return bytes;
}

/// The editor and the model, that do the same.
class Pair {
public:
    explicit Pair(std::uint64_t number) : random_(number) {}

    void act();
    void expect_same() const;

private:
    int offset(int characters) const {
        const auto& text = model_.now.text;
        return static_cast<int>(bytes_of({text.begin(), text.begin() + characters}).size());
    }
    /// How many characters of a text begin before an offset in bytes.
    static int before(const model::Characters& text, std::size_t bytes) {
        std::size_t size = 0;
        int count = 0;
        for (const char32_t code : text) {
            if (size >= bytes) break;
            size += model::utf8(code).size();
            ++count;
        }
        return count;
    }
    model::Characters some(int most) {
        model::Characters text;
        for (int i = random_.between(1, most); i > 0; --i)
            text.push_back(kTyped[random_.between(0, 15)]);
        return text;
    }
    bool coin() { return random_.one_in(2); }
    void edit();
    void select();
    void change();

    Random random_;
    LineEditor editor_;
    model::Line model_;
};

void Pair::edit() {
    const int what = random_.between(0, 9);
    const bool forward = coin();
    const int step = random_.between(0, 5);
    if (what < 4) {
        const model::Characters text = some(what == 0 ? 4 : 1);
        editor_.type(bytes_of(text));
        model_.put(text, model::Kind::Typed);
    } else if (what < 5) {
        const model::Characters text = some(6);
        editor_.paste(bytes_of(text));
        model_.put(text, model::Kind::Other);
    } else if (what < 8) {
        const int by = step < 3 ? 0 : step - 3;
        for (int i = random_.between(1, 3); i > 0; --i) {
            editor_.erase(static_cast<By>(by), forward);
            model_.erase(static_cast<model::Step>(by), forward);
        }
    } else if (forward || step < 3) {
        editor_.undo();
        model_.undo();
    } else {
        editor_.redo();
        model_.redo();
    }
}

void Pair::select() {
    const bool extend = coin(), forward = coin();
    const int step = random_.between(0, 2);
    switch (random_.between(0, 5)) {
    case 0: {
        const int at = random_.between(-1, offset(model_.size()) + 1);
        editor_.place(at, extend);
        model_.place(at < 0 ? -1 : before(model_.now.text, static_cast<std::size_t>(at)), extend);
        return;
    }
    case 1: {
        const int from = random_.between(0, model_.size()), to = random_.between(0, model_.size());
        editor_.place_words(offset(from), offset(to));
        model_.place_words(from, to);
        return;
    }
    case 2:
        if (!random_.one_in(4)) return;
        editor_.select_all();
        model_.select_all();
        return;
    default:
        editor_.move(static_cast<By>(step), forward, extend);
        model_.move(static_cast<model::Step>(step), forward, extend);
    }
}

void Pair::change() {
    switch (random_.between(0, 4)) {
    case 0: {
        const model::Characters text = some(12);
        const int caret = before(text, editor_.caret()), anchor = before(text, editor_.anchor());
        editor_.set_text(bytes_of(text));
        model_.set_text(text, caret, anchor);
        return;
    }
    case 1:
        model_.limit = coin() ? random_.between(1, 12) : 0;
        editor_.set_limit(model_.limit);
        return;
    case 2:
        model_.secret = random_.one_in(4);
        editor_.set_secret(model_.secret);
        return;
    case 3: {
        const model::Characters text = some(5);
        editor_.replace_all(bytes_of(text));
        model_.replace_all(text);
        return;
    }
    default: editor_.compose(bytes_of(some(3)), random_.between(-1, 9)); model_.end_step();
    }
}

void Pair::act() {
    const int what = random_.between(0, 19);
    if (what < 12) {
        edit();
    } else if (what < 19) {
        select();
    } else {
        change();
    }
}

void Pair::expect_same() const {
    const auto size = [this](int at) { return static_cast<std::size_t>(offset(at)); };
    ASSERT_EQ(editor_.text(), bytes_of(model_.now.text));
    ASSERT_EQ(editor_.caret(), size(model_.now.caret));
    ASSERT_EQ(editor_.anchor(), size(model_.now.anchor));
    ASSERT_TRUE(model::Line::is_place(model_.now.text, model_.now.caret));
    ASSERT_TRUE(model::Line::is_place(model_.now.text, model_.now.anchor));
    ASSERT_EQ(editor_.copied(), bytes_of(model_.copied()));
    const LineEditor::Shown shown = editor_.shown("•");
    ASSERT_EQ(shown.composed != shown.composed_end, editor_.is_composing());
    if (editor_.is_composing()) return;
    ASSERT_EQ(editor_.behind_shown(shown.caret, "•"), offset(model_.now.caret));
    ASSERT_EQ(editor_.behind_shown(shown.anchor, "•"), offset(model_.now.anchor));
    const int letters = model::Line::count_letters(model_.now.text);
    ASSERT_EQ(shown.text.size(),
              editor_.is_secret() ? 3U * static_cast<unsigned>(letters) : editor_.text().size());
}

TEST(LineEditorSweepTest, RandomEditsAreThoseOfThePlainModel) {
    constexpr int kActs = 100;
    for (const std::uint64_t number : orvel_test::some_cases(3000)) {
        Pair pair(number);
        for (int i = 0; i < kActs; ++i) {
            pair.act();
            pair.expect_same();
            if (HasFatalFailure()) FAIL() << "case " << number << ", act " << i;
        }
    }
}

}  // namespace
