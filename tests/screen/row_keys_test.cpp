// What keys do in rows that belong together: list items and radio buttons.
#include "live.h"

namespace {

using namespace orvel_test;

const std::string kRows = scene(
    R"({"column": [{"column": [{"each": "rows", "list_item": "${item}", "id": "row", "height": 20}],
                    "scroll": true, "height": 60}, {"button": "End", "id": "end"}]})",
    R"("size": [100, 100], "sample": {"rows": ["Adam", "Äpfel", "Berta", "Bertram", "Anna",
                                               "Ärger", "Zoë"]}, )");

TEST(RowKeysTest, ArrowsAndPagesGoThroughListItemsAndScrollThem) {
    const Used used(kRows);
    used.focus("row[0]");
    used.key(KIT_KEY_DOWN, 0, 3);
    EXPECT_EQ(used.focused(), " row[3]");
    EXPECT_EQ(used.box("row[3]"), (kit_box{0, 40, 100, 20}));
    used.key(KIT_KEY_PAGE_DOWN);
    EXPECT_EQ(used.focused(), " row[6]");
    used.key(KIT_KEY_DOWN);
    EXPECT_EQ(used.focused(), " row[6]");
    used.key(KIT_KEY_PAGE_UP);
    EXPECT_EQ(used.focused(), " row[3]");
    EXPECT_EQ(used.box("row[3]"), (kit_box{0, 0, 100, 20}));
    used.key(KIT_KEY_HOME);
    EXPECT_EQ(used.focused(), " row[0]");
    used.key(KIT_KEY_END);
    EXPECT_EQ(used.focused(), " row[6]");
    used.key(KIT_KEY_LEFT);
    EXPECT_EQ(used.focused(), " row[6]");
    EXPECT_EQ(used.changes(), "");
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(used.changes(), "press #row[6]\n");
    used.key(KIT_KEY_TAB);
    EXPECT_EQ(used.focused(), " end");
    used.key(KIT_KEY_TAB);
    EXPECT_EQ(used.focused(), " row[0]");
    EXPECT_EQ(used.box("row[0]"), (kit_box{0, 0, 100, 20}));
}

TEST(RowKeysTest, OtherKeysStayOnAListItem) {
    const Used used(kRows);
    used.focus("row[1]");
    used.key(KIT_KEY_LEFT);
    used.key(KIT_KEY_RIGHT);
    used.key(KIT_KEY_DOWN, KIT_MOD_CONTROL);
    used.key(KIT_KEY_END, KIT_MOD_SHIFT);
    EXPECT_EQ(used.focused(), " row[1]");
    EXPECT_EQ(used.changes(), "");
}

TEST(RowKeysTest, APageOfWhatDoesNotScrollIsTenRows) {
    const Used used(scene(R"({"column": [{"each": "rows", "list_item": "A", "id": "row"}]})",
                          R"("sample": {"rows": [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12]}, )"));
    used.focus("row[0]");
    used.key(KIT_KEY_PAGE_DOWN);
    EXPECT_EQ(used.focused(), " row[10]");
}

TEST(RowKeysTest, APageOfRowsWithoutAHeightIsTenRows) {
    const Used used(scene(R"({"column": [{"rect": "accent", "height": 200},
        {"each": "rows", "list_item": "A", "id": "row", "height": 0}], "scroll": true})",
                          R"("size": [50, 100],
                             "sample": {"rows": [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12]}, )"));
    used.focus("row[0]");
    used.key(KIT_KEY_PAGE_DOWN);
    used.key(KIT_KEY_ENTER);
    EXPECT_EQ(used.changes(), "press #row[10]\n");
}

TEST(RowKeysTest, FocusIsGivenByAnId) {
    const Used used(kRows);
    EXPECT_EQ(used.focus("row[6]"), 0);
    EXPECT_EQ(used.box("row[6]"), (kit_box{0, 40, 100, 20}));
    EXPECT_EQ(used.focus("nobody"), -1);
    EXPECT_EQ(used.focused(), " row[6]");
    EXPECT_EQ(used.focus(""), 0);
    EXPECT_EQ(used.focused(), "");
    EXPECT_EQ(used.focus(nullptr), 0);
}

TEST(RowKeysTest, TypedLettersFindAListItem) {
    Used used(kRows);
    used.focus("row[0]");
    used.type("b");
    EXPECT_EQ(used.focused(), " row[2]");
    used.type("ERTR");
    EXPECT_EQ(used.focused(), " row[3]");
    used.type(" ");  // part of what is looked for
    used.key(' ');
    EXPECT_EQ(used.changes(), "");
    used.wait(1000);
    used.type("ä");
    EXPECT_EQ(used.focused(), " row[5]");
    used.type("Ä");  // the next one
    EXPECT_EQ(used.focused(), " row[1]");
    used.wait(1000);
    used.type(" ");
    used.type("nobody");
    EXPECT_EQ(used.focused(), " row[1]");
    used.wait(1000);
    used.type("an");
    EXPECT_EQ(used.focused(), " row[4]");
    used.wait(1000);
    used.type("zOË");
    EXPECT_EQ(used.focused(), " row[6]");
    used.type(std::string(1000, 'x').c_str());
    used.plain(KIT_EVENT_TEXT, nullptr);
    used.wait(1000);
    used.type("\xC3");
    EXPECT_EQ(used.focused(), " row[1]");
    used.focus("end");
    used.type("a");
    EXPECT_EQ(used.focused(), " end");
}

TEST(RowKeysTest, CapitalsOfOtherAlphabetsAreFound) {
    Used used(scene(R"({"column": [{"each": "rows", "list_item": "${item}", "id": "row"}]})",
                    R"("sample": {"rows": ["A", "Жук", "Ωμέγα", "×", "÷", "ÿ", "日本"]}, )"));
    for (const auto& [typed, row] : {std::pair{"ж", " row[1]"},
                                     {"ω", " row[2]"},
                                     {"×", " row[3]"},
                                     {"ÿ", " row[5]"},
                                     {"日", " row[6]"},
                                     {"Ж", " row[1]"}}) {
        used.focus("row[0]");
        used.wait(1000);
        used.type(typed);
        EXPECT_EQ(used.focused(), row) << typed;
    }
}

TEST(RowKeysTest, ArrowsGoThroughRadioButtons) {
    const std::string radios =
        R"({"row": [{"radio": "A", "id": "a", "selected": "${m}", "value": 1},
        {"column": [{"radio": "B", "id": "b", "selected": "${m}", "value": 2}]},
        {"radio": "Other", "id": "o", "on": "${t}"},
        {"radio": "C", "id": "c", "selected": "${m}", "value": 3, "disabled": true}]})";
    const Used used(scene(radios, R"("size": [300, 40], "sample": {"m": 1, "t": false}, )"));
    used.focus("a");
    used.key(KIT_KEY_RIGHT);
    EXPECT_EQ(used.focused(), " b");
    EXPECT_EQ(used.changes(), "value #b m=2\n");
    used.key(KIT_KEY_DOWN);
    EXPECT_EQ(used.focused(), " a");
    EXPECT_EQ(used.changes(), "value #a m=1\n");
    used.key(KIT_KEY_UP);
    EXPECT_EQ(used.changes(), "value #b m=2\n");
    used.key(KIT_KEY_HOME);
    EXPECT_EQ(used.focused(), " b");
    EXPECT_EQ(used.changes(), "");
}

TEST(RowKeysTest, RadioButtonsWithoutAValueOfTheirOwnGoWithTheirNeighbours) {
    const Used used(scene(R"({"column": [
        {"row": [{"radio": "A", "id": "a", "on": "${a}"}, {"radio": "B", "id": "b", "on": "${b}"},
                 {"radio": "C", "id": "c", "selected": 1, "value": 1},
                 {"radio": "D", "id": "d", "selected": 1, "value": 2}]},
        {"radio": "E", "id": "e", "on": "${a}"}]})",
                          R"("size": [300, 60], "sample": {"a": false, "b": false}, )"));
    used.focus("a");
    used.key(KIT_KEY_RIGHT, KIT_MOD_SHIFT);
    EXPECT_EQ(used.focused(), " a");
    used.key(KIT_KEY_RIGHT);
    EXPECT_EQ(used.focused(), " b");
    used.key(KIT_KEY_RIGHT);
    EXPECT_EQ(used.focused(), " a");
    used.focus("c");
    used.key(KIT_KEY_RIGHT);
    EXPECT_EQ(used.focused(), " d");
    EXPECT_EQ(used.changes(), "value #b b=true\nvalue #a a=true\nvalue #d=2\n");
}

}  // namespace
