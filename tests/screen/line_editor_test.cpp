// A line of text that is edited: each of its rules, and the whole beside a plain model.
// ORVEL_SWEEP_CASE replays one case of the sweep by its number.
#include "screen/line_editor.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "models/line_model.h"
#include "models/utf8.h"
#include "screen/data.h"
#include "support/cases.h"
#include "support/random.h"

namespace {

using namespace kit;
using orvel_test::Random;

/// The text with "|" at the caret, and "[" or "]" at the other end of a selection.
std::string seen(const LineEditor& editor) {
    std::string text = editor.text();
    const std::size_t caret = editor.caret(), anchor = editor.anchor();
    if (anchor > caret) text.insert(anchor, "]");
    text.insert(caret, "|");
    if (anchor < caret) text.insert(anchor, "[");
    return text;
}

/// An editor of such a text.
LineEditor editing(std::string text) {
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

std::string typed(const std::string& before, const std::string& text, int limit = 0) {
    LineEditor editor = editing(before);
    editor.set_limit(limit);
    const std::string old = editor.text();
    const bool changed = editor.type(text);
    EXPECT_EQ(changed, editor.text() != old);
    return seen(editor);
}

std::string moved(const std::string& before, By by, bool forward, bool extend = false) {
    LineEditor editor = editing(before);
    editor.move(by, forward, extend);
    return seen(editor);
}

std::string erased(const std::string& before, By by, bool forward) {
    LineEditor editor = editing(before);
    const std::string old = editor.text();
    const bool changed = editor.erase(by, forward);
    EXPECT_EQ(changed, editor.text() != old);
    return seen(editor);
}

std::string words(const std::string& text, int from, int to) {
    LineEditor editor;
    editor.set_text(text);
    editor.place_words(from, to);
    return seen(editor);
}

LineEditor secret(const std::string& before) {
    LineEditor editor = editing(before);
    editor.set_secret(true);
    return editor;
}

constexpr bool kForward = true, kBack = false, kExtend = true;

TEST(LineEditorTest, WhatTheTestsWriteIsWhatTheyRead) {
    for (const char* text : {"|", "ab|c", "a[b|c", "a|b]c", "[abc|", "|abc]"}) {
        EXPECT_EQ(seen(editing(text)), text);
    }
}

TEST(LineEditorTest, TypingGoesToTheCaretOrInPlaceOfTheSelection) {
    EXPECT_EQ(typed("|", "a"), "a|");
    EXPECT_EQ(typed("a|c", "b€"), "ab€|c");
    EXPECT_EQ(typed("a[bc|d", "x"), "ax|d");
    EXPECT_EQ(typed("a|bc]d", "x"), "ax|d");
    EXPECT_EQ(typed("a|b", ""), "a|b");
    EXPECT_EQ(typed("a[b|", ""), "a[b|");
    EXPECT_EQ(typed("[ab|c", "ab"), "ab|c");
}

TEST(LineEditorTest, WhatIsTypedBecomesOneWellFormedLine) {
    EXPECT_EQ(typed("|", "a\tb\nc\n"), "a b c|");
    EXPECT_EQ(typed("x[y|", "\n"), "x[y|");
    EXPECT_EQ(typed("|", "\xFF"), "\uFFFD|");
}

TEST(LineEditorTest, TheCaretNeverStandsInsideALetter) {
    EXPECT_EQ(typed("a|", "\u0301"), "a\u0301|");
    EXPECT_EQ(typed("👩|🚀", "\u200D"), "👩\u200D🚀|");
    EXPECT_EQ(erased("🇩[a|🇪", By::Letter, kBack), "🇩🇪|");
    LineEditor editor;
    editor.set_text("e\u0301o");
    editor.place(1, false);
    EXPECT_EQ(seen(editor), "e\u0301|o");
    editor.place(2, true);
    EXPECT_EQ(seen(editor), "e\u0301|o");
}

TEST(LineEditorTest, TheLimitCountsLettersAndTakesWhatFits) {
    EXPECT_EQ(typed("ab|", "cde", 4), "abcd|");
    EXPECT_EQ(typed("ab|cd", "e", 4), "ab|cd");
    EXPECT_EQ(typed("a[bc|d", "xyz", 4), "axy|d");
    EXPECT_EQ(typed("a[b|cd", "x", 3), "a[b|cd");
    EXPECT_EQ(typed("abcde|", "x", 4), "abcde|");
    EXPECT_EQ(typed("a|", "\u0301", 1), "a\u0301|");
    EXPECT_EQ(typed("|", "\u0301\u0301", 1), "\u0301\u0301|");
    EXPECT_EQ(typed("|", "👩\u200D🚀🇩🇪x", 2), "👩\u200D🚀🇩🇪|");
    EXPECT_EQ(typed("|", "abc", -1), "abc|");
    EXPECT_EQ(typed("|", "abc", INT_MIN), "abc|");
    EXPECT_EQ(typed("|", "abc", INT_MAX), "abc|");
}

TEST(LineEditorTest, SixtyFourKibibytesAreTheMost) {
    LineEditor editor;
    EXPECT_TRUE(editor.paste(std::string(kMostText - 1, 'a')));
    EXPECT_FALSE(editor.type("é"));
    EXPECT_TRUE(editor.type("bc"));
    EXPECT_EQ(editor.text().size(), kMostText);
    EXPECT_EQ(editor.text().back(), 'b');
    editor.set_text(std::string(kMostText + 9, 'a'));  // what comes from outside may be longer
    EXPECT_EQ(editor.text().size(), kMostText + 9);
    editor.select_all();
    editor.move(By::Letter, kBack, false);
    EXPECT_FALSE(editor.type("b"));
    EXPECT_TRUE(editor.erase(By::Letter, kForward));
}

TEST(LineEditorTest, ArrowsGoByLetters) {
    EXPECT_EQ(moved("a|e\u0301b", By::Letter, kForward), "ae\u0301|b");
    EXPECT_EQ(moved("ae\u0301|b", By::Letter, kBack), "a|e\u0301b");
    EXPECT_EQ(moved("|a", By::Letter, kBack), "|a");
    EXPECT_EQ(moved("a|", By::Letter, kForward), "a|");
}

TEST(LineEditorTest, ArrowsLeaveASelectionAtItsEnds) {
    EXPECT_EQ(moved("a[bc|d", By::Letter, kForward), "abc|d");
    EXPECT_EQ(moved("a[bc|d", By::Letter, kBack), "a|bcd");
    EXPECT_EQ(moved("a|bc]d", By::Letter, kForward), "abc|d");
    EXPECT_EQ(moved("a|bc]d", By::Letter, kBack), "a|bcd");
}

TEST(LineEditorTest, StepsByWordsAndLinesGoFromTheCaret) {
    EXPECT_EQ(moved("ab cd| ef", By::Word, kForward), "ab cd ef|");
    EXPECT_EQ(moved("ab c|d ef", By::Word, kBack), "ab |cd ef");
    EXPECT_EQ(moved("a[b c|d ef", By::Word, kForward), "ab cd| ef");
    EXPECT_EQ(moved("ab| cd", By::Line, kForward), "ab cd|");
    EXPECT_EQ(moved("ab| cd", By::Line, kBack), "|ab cd");
}

TEST(LineEditorTest, ExtendingLeavesTheOtherEnd) {
    EXPECT_EQ(moved("a|bc", By::Letter, kForward, kExtend), "a[b|c");
    EXPECT_EQ(moved("a[b|c", By::Letter, kForward, kExtend), "a[bc|");
    EXPECT_EQ(moved("a[b|c", By::Letter, kBack, kExtend), "a|bc");
    EXPECT_EQ(moved("ab c|d", By::Word, kBack, kExtend), "ab |c]d");
    EXPECT_EQ(moved("ab c|d", By::Line, kBack, kExtend), "|ab c]d");
}

TEST(LineEditorTest, ErasingTakesTheSelectionElseAStep) {
    EXPECT_EQ(erased("a[bc|d", By::Letter, kBack), "a|d");
    EXPECT_EQ(erased("a|bc]d", By::Word, kForward), "a|d");
    EXPECT_EQ(erased("abe\u0301|c", By::Letter, kBack), "ab|c");
    EXPECT_EQ(erased("a|🇩🇪c", By::Letter, kForward), "a|c");
    EXPECT_EQ(erased("ab cd |e", By::Word, kBack), "ab |e");
    EXPECT_EQ(erased("ab| cd e", By::Word, kForward), "ab| e");
    EXPECT_EQ(erased("ab|cd", By::Line, kBack), "|cd");
    EXPECT_EQ(erased("ab|cd", By::Line, kForward), "ab|");
    EXPECT_EQ(erased("|a", By::Letter, kBack), "|a");
    EXPECT_EQ(erased("a|", By::Word, kForward), "a|");
}

TEST(LineEditorTest, PlacesFromOutsideMayBeAnything) {
    LineEditor editor = editing("a[b|c");
    editor.place(INT_MIN, true);
    EXPECT_EQ(seen(editor), "|a]bc");
    editor.place(INT_MAX, false);
    EXPECT_EQ(seen(editor), "abc|");
    editor.place_words(INT_MIN, INT_MAX);
    EXPECT_EQ(seen(editor), "[abc|");
    editor.compose("xy", INT_MIN);
    EXPECT_EQ(editor.shown("*").caret, 0);
    editor.compose("xy", INT_MAX);
    EXPECT_EQ(editor.shown("*").caret, 2);
    EXPECT_EQ(editor.behind_shown(INT_MIN, "*"), 0);
    EXPECT_EQ(editor.behind_shown(INT_MAX, "*"), 3);
}

TEST(LineEditorTest, ADoubleClickSelectsTheWordUnderIt) {
    EXPECT_EQ(words("ab cd, ef", 4, 4), "ab [cd|, ef");
    EXPECT_EQ(words("ab cd, ef", 5, 5), "ab cd[,| ef");
    EXPECT_EQ(words("ab  cd", 3, 3), "ab[  |cd");
    EXPECT_EQ(words("ab cd", 5, 5), "ab [cd|");
    EXPECT_EQ(words("", 0, 0), "|");
}

TEST(LineEditorTest, DraggingThenGoesByWords) {
    EXPECT_EQ(words("ab cd ef", 4, 7), "ab [cd ef|");
    EXPECT_EQ(words("ab cd ef", 4, 2), "ab| cd] ef");
    EXPECT_EQ(words("ab cd ef", 4, 0), "|ab cd] ef");
    EXPECT_EQ(words("ab cd ef", 4, 3), "ab [cd| ef");
}

TEST(LineEditorTest, ATripleClickSelectsAll) {
    LineEditor editor = editing("ab| cd");
    editor.select_all();
    EXPECT_EQ(seen(editor), "[ab cd|");
}

TEST(LineEditorTest, UndoGoesBackToTheSelectionThatWas) {
    LineEditor editor = editing("a|bc]d");
    EXPECT_TRUE(editor.paste("xyz"));
    EXPECT_EQ(seen(editor), "axyz|d");
    EXPECT_TRUE(editor.undo());
    EXPECT_EQ(seen(editor), "a|bc]d");
    EXPECT_FALSE(editor.undo());
    EXPECT_EQ(seen(editor), "a|bc]d");
    EXPECT_TRUE(editor.redo());
    EXPECT_EQ(seen(editor), "axyz|d");
    EXPECT_FALSE(editor.redo());
}

TEST(LineEditorTest, WhatIsTypedInARowIsOneStepUpToABlank) {
    LineEditor editor;
    for (const char* letter : {"a", "b", " ", "c", "d", " ", " ", "e"}) editor.type(letter);
    EXPECT_EQ(seen(editor), "ab cd  e|");
    for (const char* step : {"ab cd |", "ab cd|", "ab|", "|"}) {
        EXPECT_TRUE(editor.undo());
        EXPECT_EQ(seen(editor), step);
    }
    for (const char* step : {"ab|", "ab cd|", "ab cd |", "ab cd  e|"}) {
        EXPECT_TRUE(editor.redo());
        EXPECT_EQ(seen(editor), step);
    }
}

TEST(LineEditorTest, WhatIsErasedInARowIsOneStep) {
    LineEditor editor = editing("abcd|efgh");
    editor.erase(By::Letter, kBack);
    editor.erase(By::Letter, kBack);
    editor.erase(By::Letter, kForward);
    editor.erase(By::Letter, kForward);
    EXPECT_EQ(seen(editor), "ab|gh");
    editor.undo();
    EXPECT_EQ(seen(editor), "ab|efgh");
    editor.undo();
    EXPECT_EQ(seen(editor), "abcd|efgh");
    editor.redo();
    editor.redo();
    EXPECT_EQ(seen(editor), "ab|gh");
}

TEST(LineEditorTest, EverythingElseIsAStepOfItsOwn) {
    LineEditor editor = editing("ab cd ef|");
    editor.erase(By::Word, kBack);
    editor.erase(By::Word, kBack);
    editor.undo();
    EXPECT_EQ(seen(editor), "ab cd |");
    editor.paste("x");
    editor.paste("y");
    editor.undo();
    EXPECT_EQ(seen(editor), "ab cd x|");
}

TEST(LineEditorTest, AMoveEndsTheStep) {
    const auto undone = [](const auto& between) {
        LineEditor editor;
        editor.type("a");
        between(editor);
        editor.type("b");
        editor.undo();
        return editor.text();
    };
    EXPECT_EQ(undone([](LineEditor&) {}), "");
    EXPECT_EQ(undone([](LineEditor& e) { e.type(""); }), "");
    EXPECT_EQ(undone([](LineEditor& e) { e.move(By::Letter, kForward, false); }), "a");
    EXPECT_EQ(undone([](LineEditor& e) { e.place(1, false); }), "a");
    EXPECT_EQ(undone([](LineEditor& e) { e.place_words(0, 0); }), "a");
    EXPECT_EQ(undone([](LineEditor& e) { e.compose("x", 0); }), "a");
    EXPECT_EQ(undone([](LineEditor& e) { e.redo(); }), "a");
    EXPECT_EQ(undone([](LineEditor& e) { e.select_all(); }), "a");
}

TEST(LineEditorTest, WhereTheCaretSteppedAsideErasingIsANewStep) {
    LineEditor editor = editing("🇩a|🇪");
    editor.erase(By::Letter, kBack);
    EXPECT_EQ(seen(editor), "🇩🇪|");
    editor.erase(By::Letter, kBack);
    EXPECT_EQ(seen(editor), "|");
    editor.undo();
    EXPECT_EQ(seen(editor), "🇩🇪|");
    editor = editing("🇩|a🇪bc");
    editor.erase(By::Letter, kForward);
    EXPECT_EQ(seen(editor), "🇩🇪|bc");
    editor.erase(By::Letter, kForward);
    editor.undo();
    EXPECT_EQ(seen(editor), "🇩🇪|bc");
}

TEST(LineEditorTest, AnEditEndsWhatCouldBeDoneAgain) {
    LineEditor editor;
    editor.paste("a");
    editor.paste("b");
    editor.undo();
    editor.type("c");
    EXPECT_FALSE(editor.redo());
    EXPECT_EQ(seen(editor), "ac|");
    editor.undo();
    EXPECT_EQ(seen(editor), "a|");
}

TEST(LineEditorTest, AnEditWithoutEffectIsNoStep) {
    LineEditor editor = editing("[ab|");
    editor.paste("x");
    editor.undo();
    EXPECT_FALSE(editor.paste("ab"));
    EXPECT_EQ(seen(editor), "ab|");
    EXPECT_FALSE(editor.undo());
    EXPECT_TRUE(editor.redo());
    EXPECT_EQ(seen(editor), "x|");
}

TEST(LineEditorTest, TheOldestStepsGoWhereMemoryIsBounded) {
    LineEditor editor;
    constexpr int kSteps = 3000;
    for (int i = 0; i < kSteps; ++i) editor.paste("a");
    int undone = 0;
    while (editor.undo()) ++undone;
    EXPECT_EQ(undone, static_cast<int>(LineHistory::kMost / (LineHistory::kOfStep + 1)));
    EXPECT_EQ(editor.text().size(), static_cast<std::size_t>(kSteps - undone));
    for (int i = 0; i < undone; ++i) EXPECT_TRUE(editor.redo());
    EXPECT_EQ(editor.text().size(), static_cast<std::size_t>(kSteps));
}

TEST(LineEditorTest, AStepThatIsTooLargeCannotBeTakenBack) {
    LineEditor editor;
    editor.set_text(std::string(LineHistory::kMost, 'a'));
    editor.move(By::Line, kForward, false);
    editor.erase(By::Letter, kBack);
    editor.select_all();
    EXPECT_TRUE(editor.erase(By::Letter, kBack));
    EXPECT_FALSE(editor.undo());
    editor.type("b");
    EXPECT_TRUE(editor.undo());
    EXPECT_EQ(editor.text(), "");
}

TEST(LineEditorTest, ATextFromOutsideEndsWhatCanBeTakenBack) {
    LineEditor editor;
    editor.type("abc");
    editor.set_text("abc");  // the same: nothing happens
    EXPECT_TRUE(editor.undo());
    EXPECT_TRUE(editor.redo());
    editor.set_text("é");
    EXPECT_EQ(seen(editor), "é|");
    EXPECT_FALSE(editor.undo());
    EXPECT_FALSE(editor.redo());
}

TEST(LineEditorTest, ATextFromOutsideKeepsCaretAndSelectionWhereTheyAre) {
    LineEditor editor = editing("a[bc|d");
    editor.set_text("uvwxyz");
    EXPECT_EQ(seen(editor), "u[vw|xyz");
    editor.set_text("ue\u0301");
    EXPECT_EQ(seen(editor), "u[e\u0301|");
    editor.set_text("");
    EXPECT_EQ(seen(editor), "|");
}

TEST(LineEditorTest, ATextFromOutsideIsMadeWellFormedAndElseKept) {
    LineEditor editor;
    editor.set_text("a\tb\xFF\nc");
    EXPECT_EQ(editor.text(), "a\tb\uFFFD\nc");
}

TEST(LineEditorTest, AnotherTextInPlaceOfAllIsOneStep) {
    LineEditor editor = editing("a[b|c");
    EXPECT_TRUE(editor.replace_all("xyz"));
    EXPECT_EQ(seen(editor), "xyz|");
    editor.undo();
    EXPECT_EQ(seen(editor), "a[b|c");
    EXPECT_FALSE(editor.replace_all("abc"));
    EXPECT_EQ(seen(editor), "abc|");
}

TEST(LineEditorTest, CopyingTakesTheSelection) {
    EXPECT_EQ(editing("a[bé|d").copied(), "bé");
    EXPECT_EQ(editing("a|bé]d").copied(), "bé");
    EXPECT_EQ(editing("ab|").copied(), "");
}

TEST(LineEditorTest, WhatIsComposedShowsInPlaceOfTheSelection) {
    LineEditor editor = editing("a[bc|d");
    editor.compose("xyz", 1);
    const LineEditor::Shown shown = editor.shown("*");
    EXPECT_EQ(shown.text, "axyzd");
    EXPECT_EQ(shown.composed, 1);
    EXPECT_EQ(shown.composed_end, 4);
    EXPECT_EQ(shown.caret, 2);
    EXPECT_EQ(shown.anchor, 2);
    EXPECT_TRUE(editor.is_composing());
    EXPECT_EQ(seen(editor), "a[bc|d");
}

TEST(LineEditorTest, WhatIsComposedGoesWhereItIsGivenUp) {
    const auto after = [](const auto& act) {
        LineEditor editor = editing("a[bc|d");
        editor.compose("xyz", 3);
        act(editor);
        EXPECT_FALSE(editor.is_composing());
        EXPECT_EQ(editor.shown("*").text, editor.text());
        return seen(editor);
    };
    EXPECT_EQ(after([](LineEditor& e) { e.compose("", 0); }), "a[bc|d");
    EXPECT_EQ(after([](LineEditor& e) { e.type(""); }), "a[bc|d");
    EXPECT_EQ(after([](LineEditor& e) { e.type("q"); }), "aq|d");
    EXPECT_EQ(after([](LineEditor& e) { e.paste("q"); }), "aq|d");
    EXPECT_EQ(after([](LineEditor& e) { e.erase(By::Letter, kBack); }), "a|d");
    EXPECT_EQ(after([](LineEditor& e) { e.move(By::Letter, kBack, false); }), "a|bcd");
    EXPECT_EQ(after([](LineEditor& e) { e.place(0, false); }), "|abcd");
    EXPECT_EQ(after([](LineEditor& e) { e.place_words(0, 0); }), "[abcd|");
    EXPECT_EQ(after([](LineEditor& e) { e.select_all(); }), "[abcd|");
    EXPECT_EQ(after([](LineEditor& e) { e.undo(); }), "a[bc|d");
    EXPECT_EQ(after([](LineEditor& e) { e.redo(); }), "a[bc|d");
    EXPECT_EQ(after([](LineEditor& e) { e.replace_all("q"); }), "q|");
    EXPECT_EQ(after([](LineEditor& e) { e.set_text("q"); }), "q|");
}

TEST(LineEditorTest, ATextFromOutsideThatIsTheSameLeavesWhatIsComposed) {
    LineEditor editor = editing("ab|");
    editor.compose("x", 1);
    editor.set_text("ab");
    EXPECT_TRUE(editor.is_composing());
}

TEST(LineEditorTest, OffsetsOfWhatShowsAreFoundAroundWhatIsComposed) {
    LineEditor editor = editing("a[bc|de\u0301");
    editor.compose("xyz", 1);  // shows "axyzde\u0301"
    const std::vector<int> places = {0, 1, 1, 1, 3, 4, 7, 7, 7};
    for (std::size_t at = 0; at < places.size(); ++at) {
        EXPECT_EQ(editor.behind_shown(static_cast<int>(at), "*"), places[at]) << at;
    }
    editor.set_secret(true);
    for (std::size_t at = 0; at < 6; ++at) {
        EXPECT_EQ(editor.behind_shown(static_cast<int>(at), "*"), places[at]) << at;
    }
}

TEST(LineEditorTest, NothingIsComposedWhereOffsetsAreEqual) {
    const LineEditor::Shown shown = editing("a[b|c").shown("*");
    EXPECT_EQ(shown.text, "abc");
    EXPECT_EQ(shown.composed, shown.composed_end);
    EXPECT_EQ(shown.caret, 2);
    EXPECT_EQ(shown.anchor, 1);
}

TEST(LineEditorTest, ASecretShowsADotForEachLetter) {
    LineEditor editor = secret("ae\u0301[🇩🇪|é");
    const LineEditor::Shown shown = editor.shown("•");
    EXPECT_EQ(shown.text, "••••");
    EXPECT_EQ(shown.caret, 9);
    EXPECT_EQ(shown.anchor, 6);
    const std::vector<int> places = {0, 0, 0, 1, 1, 1, 4, 4, 4, 12, 12, 12, 14, 14};
    for (std::size_t at = 0; at < places.size(); ++at) {
        EXPECT_EQ(editor.behind_shown(static_cast<int>(at), "•"), places[at]) << at;
    }
    editor.compose("xyé", 2);
    EXPECT_EQ(editor.shown("*").text, "******");
    EXPECT_EQ(editor.shown("*").caret, 4);
}

TEST(LineEditorTest, NothingOfASecretIsCopied) {
    EXPECT_EQ(secret("[abc|").copied(), "");
    EXPECT_TRUE(secret("a|").is_secret());
    EXPECT_FALSE(editing("a|").is_secret());
}

TEST(LineEditorTest, ASecretHasNoWords) {
    LineEditor editor = secret("ab cd| ef");
    editor.move(By::Word, kBack, false);
    EXPECT_EQ(seen(editor), "|ab cd ef");
    editor.move(By::Word, kForward, true);
    EXPECT_EQ(seen(editor), "[ab cd ef|");
    editor.place_words(4, 4);
    EXPECT_EQ(seen(editor), "[ab cd ef|");
    editor.place(3, false);
    editor.erase(By::Word, kForward);
    EXPECT_EQ(seen(editor), "ab |");
}

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
