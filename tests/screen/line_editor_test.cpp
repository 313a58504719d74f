// A line of text that is edited: each of its rules.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "line_of_text.h"
#include "screen/data.h"

namespace {

using namespace kit;
using namespace orvel_test;

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

}  // namespace
