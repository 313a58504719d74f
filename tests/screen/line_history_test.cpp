// What of a line of text can be taken back, and done again.
#include "screen/line_history.h"

#include <gtest/gtest.h>

#include "line_of_text.h"

namespace {

using namespace kit;
using namespace orvel_test;

TEST(LineHistoryTest, UndoGoesBackToTheSelectionThatWas) {
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

TEST(LineHistoryTest, WhatIsTypedInARowIsOneStepUpToABlank) {
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

TEST(LineHistoryTest, WhatIsErasedInARowIsOneStep) {
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

TEST(LineHistoryTest, EverythingElseIsAStepOfItsOwn) {
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

TEST(LineHistoryTest, AMoveEndsTheStep) {
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

TEST(LineHistoryTest, WhereTheCaretSteppedAsideErasingIsANewStep) {
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

TEST(LineHistoryTest, AnEditEndsWhatCouldBeDoneAgain) {
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

TEST(LineHistoryTest, AnEditWithoutEffectIsNoStep) {
    LineEditor editor = editing("[ab|");
    editor.paste("x");
    editor.undo();
    EXPECT_FALSE(editor.paste("ab"));
    EXPECT_EQ(seen(editor), "ab|");
    EXPECT_FALSE(editor.undo());
    EXPECT_TRUE(editor.redo());
    EXPECT_EQ(seen(editor), "x|");
}

TEST(LineHistoryTest, TheOldestStepsGoWhereMemoryIsBounded) {
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

TEST(LineHistoryTest, AStepThatIsTooLargeCannotBeTakenBack) {
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

TEST(LineHistoryTest, ATextFromOutsideEndsWhatCanBeTakenBack) {
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

TEST(LineHistoryTest, AnotherTextInPlaceOfAllIsOneStep) {
    LineEditor editor = editing("a[b|c");
    EXPECT_TRUE(editor.replace_all("xyz"));
    EXPECT_EQ(seen(editor), "xyz|");
    editor.undo();
    EXPECT_EQ(seen(editor), "a[b|c");
    EXPECT_FALSE(editor.replace_all("abc"));
    EXPECT_EQ(seen(editor), "abc|");
}

}  // namespace
