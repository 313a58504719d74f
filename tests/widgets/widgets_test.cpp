#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <new>
#include <string>

#include "support/picture.h"
#include "system/allocations.h"
#include "widgets/kinds.h"
#include "widgets/widget.h"

namespace {

using namespace orvel_test;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// What a constructor is expected to store, its canvas and theme aside.
struct Fields {
    int kind;
    std::string text;
    int x, y, w, h;
    int active = 0;
    int amount = 0;
    double value = 0;
    std::string icon_name = "";
};

class WidgetTest : public testing::Test {
protected:
    WidgetTest() { orvel_theme_default(&theme_); }

    orvel_canvas* canvas() { return canvas_.get(); }

    void expect(orvel_widget* made, const Fields& fields) {
        const WidgetPtr widget(made);
        ASSERT_TRUE(widget);
        EXPECT_EQ(widget->kind, fields.kind);
        EXPECT_EQ(widget->canvas, canvas_.get());
        EXPECT_EQ(widget->theme, &theme_);
        EXPECT_EQ(widget->text, fields.text);
        EXPECT_EQ(widget->icon_name, fields.icon_name);
        EXPECT_EQ(widget->x, fields.x);
        EXPECT_EQ(widget->y, fields.y);
        EXPECT_EQ(widget->w, fields.w);
        EXPECT_EQ(widget->h, fields.h);
        EXPECT_EQ(widget->hover, 0);
        EXPECT_EQ(widget->active, fields.active);
        EXPECT_EQ(widget->amount, fields.amount);
        EXPECT_EQ(widget->value, fields.value);
        EXPECT_TRUE(widget->data.empty());
    }

    const CanvasPtr canvas_ = make_canvas(8, 8);
    orvel_theme theme_;
};

TEST_F(WidgetTest, TheRecordHoldsItsFieldsInOrder) {
    const orvel_widget widget;
    const void* const fields[] = {&widget.kind,      &widget.canvas, &widget.theme,  &widget.text,
                                  &widget.icon_name, &widget.x,      &widget.y,      &widget.w,
                                  &widget.h,         &widget.hover,  &widget.active, &widget.amount,
                                  &widget.value,     &widget.data};
    for (std::size_t i = 1; i < std::size(fields); ++i) EXPECT_LT(fields[i - 1], fields[i]) << i;
}

TEST_F(WidgetTest, FramesAreStoredAsGiven) {
    orvel_canvas* c = canvas();
    expect(orvel_widget_window(c, &theme_, "Title", 1, 2, 3, 4), {0, "Title", 1, 2, 3, 4});
    expect(orvel_widget_panel(c, &theme_, 1, 2, 3, 4), {1, "", 1, 2, 3, 4});
    expect(orvel_widget_button(c, &theme_, "Ok", 1, 2, 3, 4), {3, "Ok", 1, 2, 3, 4});
    expect(orvel_widget_textbox(c, &theme_, "Ok", 1, 2, 3, 4), {8, "Ok", 1, 2, 3, 4});
    expect(orvel_widget_card(c, &theme_, 1, 2, 3, 4), {12, "", 1, 2, 3, 4});
    expect(orvel_widget_titlebar(c, &theme_, "Ok", 1, 2, 3, 4), {21, "Ok", 1, 2, 3, 4});
    expect(orvel_widget_bars(c, &theme_, 1, 2, 3, 4), {24, "", 1, 2, 3, 4});
    expect(orvel_widget_search(c, &theme_, "Ok", 1, 2, 3, 4), {25, "Ok", 1, 2, 3, 4});
    expect(orvel_widget_statusbar(c, &theme_, "Ok", 1, 2, 3, 4), {27, "Ok", 1, 2, 3, 4});
}

TEST_F(WidgetTest, NoRectangleIsChecked) {
    expect(orvel_widget_panel(canvas(), &theme_, INT_MIN, INT_MAX, INT_MIN, INT_MAX),
           {1, "", INT_MIN, INT_MAX, INT_MIN, INT_MAX});
    expect(orvel_widget_icon(canvas(), &theme_, "", 0, 0, -5), {9, "", 0, 0, -5, -5});
    expect(orvel_widget_separator(canvas(), &theme_, 0, 0, 0), {11, "", 0, 0, 0, 1});
}

TEST_F(WidgetTest, ALabelIsAsWideAsItsTextAndSevenHigh) {
    expect(orvel_widget_label(canvas(), &theme_, "Ok", 1, 2), {2, "Ok", 1, 2, 11, 7});
    expect(orvel_widget_label(canvas(), &theme_, "", 1, 2), {2, "", 1, 2, 0, 7});
    expect(orvel_widget_label(canvas(), &theme_, nullptr, 1, 2), {2, "", 1, 2, 0, 7});
    expect(orvel_widget_label(canvas(), &theme_, "A\nB", 1, 2), {2, "A\nB", 1, 2, 17, 7});
}

TEST_F(WidgetTest, ACheckboxAddsThirteenPixelsToItsCaption) {
    expect(orvel_widget_checkbox(canvas(), &theme_, "Ok", 1, 2, 5), {5, "Ok", 1, 2, 24, 9, 1});
    expect(orvel_widget_checkbox(canvas(), &theme_, "", 1, 2, 0), {5, "", 1, 2, 13, 9, 0});
    expect(orvel_widget_checkbox(canvas(), &theme_, nullptr, 1, 2, 1), {5, "", 1, 2, 13, 9, 1});
}

TEST_F(WidgetTest, ARadioButtonAddsThirteenPixelsToItsCaption) {
    expect(orvel_widget_radio(canvas(), &theme_, "Ok", 1, 2, -1), {13, "Ok", 1, 2, 24, 9, 1});
    expect(orvel_widget_radio(canvas(), &theme_, nullptr, 1, 2, 0), {13, "", 1, 2, 13, 9, 0});
}

TEST_F(WidgetTest, ATooltipAddsEightPixelsToItsText) {
    expect(orvel_widget_tooltip(canvas(), &theme_, "Four", 1, 2), {26, "Four", 1, 2, 31, 12});
    expect(orvel_widget_tooltip(canvas(), &theme_, nullptr, 1, 2), {26, "", 1, 2, 8, 12});
}

TEST_F(WidgetTest, FixedSizes) {
    orvel_canvas* c = canvas();
    expect(orvel_widget_slider(c, &theme_, 1, 2, 3, 0.5), {6, "", 1, 2, 3, 9, 0, 0, 0.5});
    expect(orvel_widget_icon(c, &theme_, "home", 1, 2, 3), {9, "home", 1, 2, 3, 3});
    expect(orvel_widget_image(c, &theme_, "logo", 1, 2), {10, "logo", 1, 2, 0, 0});
    expect(orvel_widget_separator(c, &theme_, 1, 2, 3), {11, "", 1, 2, 3, 1});
    expect(orvel_widget_spinner(c, &theme_, 1, 2, 3, 0.5), {15, "", 1, 2, 3, 3, 0, 0, 0.5});
    expect(orvel_widget_rating(c, &theme_, 1, 2, 0.5), {16, "", 1, 2, 50, 10, 0, 0, 0.5});
    expect(orvel_widget_badge(c, &theme_, 1, 2, -3), {20, "", 1, 2, 14, 10, 0, -3});
}

TEST_F(WidgetTest, AnAvatarWithoutInitialsShowsAQuestionMark) {
    expect(orvel_widget_avatar(canvas(), &theme_, "AB", 1, 2, 3), {19, "AB", 1, 2, 3, 3});
    expect(orvel_widget_avatar(canvas(), &theme_, "", 1, 2, 3), {19, "", 1, 2, 3, 3});
    expect(orvel_widget_avatar(canvas(), &theme_, nullptr, 1, 2, 3), {19, "?", 1, 2, 3, 3});
}

TEST_F(WidgetTest, ControlsStoreTheirState) {
    orvel_canvas* c = canvas();
    expect(orvel_widget_toggle(c, &theme_, 1, 2, 3, 4, INT_MIN), {4, "", 1, 2, 3, 4, 1});
    expect(orvel_widget_toggle(c, &theme_, 1, 2, 3, 4, 0), {4, "", 1, 2, 3, 4, 0});
    expect(orvel_widget_progress(c, &theme_, 1, 2, 3, 4, 0.5), {7, "", 1, 2, 3, 4, 0, 0, 0.5});
    expect(orvel_widget_dropdown(c, &theme_, "Ok", 1, 2, 3, 4, 256), {14, "Ok", 1, 2, 3, 4, 1});
    expect(orvel_widget_stepper(c, &theme_, 1, 2, 3, 4, INT_MIN), {17, "", 1, 2, 3, 4, 0, INT_MIN});
    expect(orvel_widget_tabs(c, &theme_, "a|b", 1, 2, 3, 4, 9), {18, "a|b", 1, 2, 3, 4, 0, 9});
    expect(orvel_widget_menu(c, &theme_, "a|b", 1, 2, 3, 4, -9), {23, "a|b", 1, 2, 3, 4, 0, -9});
}

TEST_F(WidgetTest, AListItemStoresTextAndIcon) {
    orvel_canvas* c = canvas();
    expect(orvel_widget_list_item(c, &theme_, "Ok", "mail", 1, 2, 3, 4, 7),
           {22, "Ok", 1, 2, 3, 4, 1, 0, 0, "mail"});
    expect(orvel_widget_list_item(c, &theme_, nullptr, nullptr, 1, 2, 3, 4, 0),
           {22, "", 1, 2, 3, 4});
}

TEST_F(WidgetTest, ANullTextCountsAsEmpty) {
    orvel_canvas* c = canvas();
    expect(orvel_widget_window(c, &theme_, nullptr, 1, 2, 3, 4), {0, "", 1, 2, 3, 4});
    expect(orvel_widget_button(c, &theme_, nullptr, 1, 2, 3, 4), {3, "", 1, 2, 3, 4});
    expect(orvel_widget_textbox(c, &theme_, nullptr, 1, 2, 3, 4), {8, "", 1, 2, 3, 4});
    expect(orvel_widget_icon(c, &theme_, nullptr, 1, 2, 3), {9, "", 1, 2, 3, 3});
    expect(orvel_widget_image(c, &theme_, nullptr, 1, 2), {10, "", 1, 2, 0, 0});
    expect(orvel_widget_dropdown(c, &theme_, nullptr, 1, 2, 3, 4, 0), {14, "", 1, 2, 3, 4});
    expect(orvel_widget_tabs(c, &theme_, nullptr, 1, 2, 3, 4, 0), {18, "", 1, 2, 3, 4});
    expect(orvel_widget_titlebar(c, &theme_, nullptr, 1, 2, 3, 4), {21, "", 1, 2, 3, 4});
    expect(orvel_widget_menu(c, &theme_, nullptr, 1, 2, 3, 4, 0), {23, "", 1, 2, 3, 4});
    expect(orvel_widget_search(c, &theme_, nullptr, 1, 2, 3, 4), {25, "", 1, 2, 3, 4});
    expect(orvel_widget_statusbar(c, &theme_, nullptr, 1, 2, 3, 4), {27, "", 1, 2, 3, 4});
}

TEST_F(WidgetTest, TheTextIsCopied) {
    char text[] = "before, and long enough to need memory of its own";
    char icon[] = "icon";
    const WidgetPtr item(orvel_widget_list_item(canvas(), &theme_, text, icon, 0, 0, 9, 9, 0));
    text[0] = 'X';
    icon[0] = 'X';
    EXPECT_EQ(item->text, "before, and long enough to need memory of its own");
    EXPECT_EQ(item->icon_name, "icon");
}

TEST_F(WidgetTest, ConstructorsClampFractions) {
    orvel_canvas* c = canvas();
    const struct {
        double given, stored;
    } cases[] = {{1.7, 1}, {1, 1}, {-3, 0}, {0.25, 0.25}, {kInfinity, 1}, {-kInfinity, 0}};
    for (const auto& [given, stored] : cases) {
        expect(orvel_widget_slider(c, &theme_, 0, 0, 9, given), {6, "", 0, 0, 9, 9, 0, 0, stored});
        expect(orvel_widget_progress(c, &theme_, 0, 0, 9, 9, given),
               {7, "", 0, 0, 9, 9, 0, 0, stored});
        expect(orvel_widget_spinner(c, &theme_, 0, 0, 9, given),
               {15, "", 0, 0, 9, 9, 0, 0, stored});
        expect(orvel_widget_rating(c, &theme_, 0, 0, given), {16, "", 0, 0, 50, 10, 0, 0, stored});
    }
}

TEST_F(WidgetTest, ANaNIsKept) {
    orvel_canvas* c = canvas();
    for (orvel_widget* made : {orvel_widget_slider(c, &theme_, 0, 0, 9, kNaN),
                               orvel_widget_progress(c, &theme_, 0, 0, 9, 9, kNaN),
                               orvel_widget_spinner(c, &theme_, 0, 0, 9, kNaN),
                               orvel_widget_rating(c, &theme_, 0, 0, kNaN)}) {
        const WidgetPtr widget(made);
        EXPECT_TRUE(std::isnan(widget->value));
        orvel_widget_set_value(widget.get(), 0.5);
        EXPECT_EQ(widget->value, 0.5);
        orvel_widget_set_value(widget.get(), kNaN);
        EXPECT_TRUE(std::isnan(widget->value));
    }
}

TEST_F(WidgetTest, EveryConstructorRefusesANullCanvasAndANullTheme) {
    for (const WidgetEdge& edge : widget_edges()) {
        const long before = allocations_made();
        EXPECT_EQ(edge.make(nullptr, &theme_), nullptr) << edge.name;
        EXPECT_EQ(edge.make(canvas(), nullptr), nullptr) << edge.name;
        EXPECT_EQ(edge.make(nullptr, nullptr), nullptr) << edge.name;
        EXPECT_EQ(allocations_made(), before) << edge.name;
    }
}

TEST_F(WidgetTest, SettersStoreFlagsAsZeroOrOne) {
    const WidgetPtr widget(orvel_widget_panel(canvas(), &theme_, 0, 0, 1, 1));
    for (const int on : {1, 5, -1, 256, INT_MIN, INT_MAX}) {
        orvel_widget_set_hover(widget.get(), on);
        EXPECT_EQ(widget->hover, 1);
        orvel_widget_set_hover(widget.get(), 0);
        EXPECT_EQ(widget->hover, 0);
        orvel_widget_set_active(widget.get(), on);
        EXPECT_EQ(widget->active, 1);
        EXPECT_EQ(widget->hover, 0);
        orvel_widget_set_active(widget.get(), 0);
        EXPECT_EQ(widget->active, 0);
    }
}

TEST_F(WidgetTest, SetValueClamps) {
    const WidgetPtr widget(orvel_widget_slider(canvas(), &theme_, 0, 0, 9, 0.5));
    orvel_widget_set_value(widget.get(), -3);
    EXPECT_EQ(widget->value, 0.0);
    orvel_widget_set_value(widget.get(), 1.0000000000000002);
    EXPECT_EQ(widget->value, 1.0);
    orvel_widget_set_value(widget.get(), 5e-324);
    EXPECT_EQ(widget->value, 5e-324);
    orvel_widget_set_value(widget.get(), kInfinity);
    EXPECT_EQ(widget->value, 1.0);
    orvel_widget_set_value(widget.get(), -kInfinity);
    EXPECT_EQ(widget->value, 0.0);
}

TEST_F(WidgetTest, SetAmountStoresAnyNumber) {
    const WidgetPtr tabs(orvel_widget_tabs(canvas(), &theme_, "a|b", 0, 0, 9, 9, 0));
    for (const int amount : {-1, 2, INT_MIN, INT_MAX, 0}) {
        orvel_widget_set_amount(tabs.get(), amount);
        EXPECT_EQ(tabs->amount, amount);
    }
}

TEST_F(WidgetTest, SetDataReplacesTheValuesByACopy) {
    const WidgetPtr bars(orvel_widget_bars(canvas(), &theme_, 0, 0, 9, 9));
    double values[] = {0.5, 7, -1};
    orvel_widget_set_data(bars.get(), values, 3);
    values[0] = 0;
    EXPECT_EQ(bars->data, (std::vector<double>{0.5, 7, -1}));
    orvel_widget_set_data(bars.get(), values + 1, 1);
    EXPECT_EQ(bars->data, (std::vector<double>{7}));
    orvel_widget_set_data(bars.get(), values, 0);
    EXPECT_TRUE(bars->data.empty());
}

TEST_F(WidgetTest, SetDataIgnoresNullValuesAndNegativeCounts) {
    const WidgetPtr bars(orvel_widget_bars(canvas(), &theme_, 0, 0, 9, 9));
    const double values[] = {0.5, 0.25};
    orvel_widget_set_data(bars.get(), values, 2);
    orvel_widget_set_data(bars.get(), nullptr, 3);
    orvel_widget_set_data(bars.get(), nullptr, 0);
    orvel_widget_set_data(bars.get(), values, -1);
    orvel_widget_set_data(bars.get(), values, INT_MIN);
    EXPECT_EQ(bars->data, (std::vector<double>{0.5, 0.25}));
}

TEST_F(WidgetTest, SettersApplyToEveryKind) {
    const double values[] = {0.5};
    for (const WidgetEdge& edge : widget_edges()) {
        const WidgetPtr widget(edge.make(canvas(), &theme_));
        orvel_widget_set_hover(widget.get(), 1);
        orvel_widget_set_active(widget.get(), 1);
        orvel_widget_set_value(widget.get(), 0.75);
        orvel_widget_set_amount(widget.get(), 3);
        orvel_widget_set_data(widget.get(), values, 1);
        EXPECT_EQ(widget->hover, 1) << edge.name;
        EXPECT_EQ(widget->active, 1) << edge.name;
        EXPECT_EQ(widget->value, 0.75) << edge.name;
        EXPECT_EQ(widget->amount, 3) << edge.name;
        EXPECT_EQ(widget->data, std::vector<double>{0.5}) << edge.name;
    }
}

TEST_F(WidgetTest, ANullWidgetIsTolerated) {
    const double values[] = {0.5};
    orvel_widget_set_hover(nullptr, 1);
    orvel_widget_set_active(nullptr, 1);
    orvel_widget_set_value(nullptr, 1);
    orvel_widget_set_amount(nullptr, 1);
    orvel_widget_set_data(nullptr, values, 1);
    orvel_widget_draw(nullptr);
    orvel_widget_destroy(nullptr);
}

TEST_F(WidgetTest, DestroyingReleasesEverythingButCanvasAndTheme) {
    const long before = allocations_live();
    const double values[] = {1, 2, 3};
    orvel_widget* const widget = orvel_widget_list_item(
        canvas(), &theme_, "a text too long to be kept inside the record itself",
        "a name too long to be kept inside the record itself", 0, 0, 9, 9, 0);
    orvel_widget_set_data(widget, values, 3);
    EXPECT_EQ(allocations_live(), before + 4);
    orvel_widget_destroy(widget);
    EXPECT_EQ(allocations_live(), before);
    EXPECT_EQ(orvel_canvas_width(canvas()), 8);
    EXPECT_EQ(theme_.accent, (orvel_color{137, 180, 250, 255}));
}

TEST_F(WidgetTest, AWidgetWithAShortTextIsOneAllocation) {
    const long before = allocations_made();
    const WidgetPtr widget(orvel_widget_button(canvas(), &theme_, "Ok", 0, 0, 9, 9));
    EXPECT_EQ(allocations_made(), before + 1);
}

TEST_F(WidgetTest, ARecordThatCannotBeAllocatedIsNull) {
    for (const WidgetEdge& edge : widget_edges()) {
        const long before = allocations_live();
        orvel_widget* widget = nullptr;
        {
            const FailingAllocation failing(1);
            widget = edge.make(canvas(), &theme_);
        }
        EXPECT_EQ(widget, nullptr) << edge.name;
        EXPECT_EQ(allocations_live(), before) << edge.name;
    }
}

TEST_F(WidgetTest, ATextThatCannotBeCopiedPropagatesAndLeaksNothing) {
    const std::string text(100, 'a');
    const long before = allocations_live();
    for (const long number : {2, 3}) {  // the text, then the icon's name
        const FailingAllocation failing(number);
        EXPECT_THROW(
            orvel_widget_list_item(canvas(), &theme_, text.c_str(), text.c_str(), 0, 0, 9, 9, 0),
            std::bad_alloc);
    }
    EXPECT_EQ(allocations_live(), before);
}

TEST_F(WidgetTest, DataThatCannotBeCopiedLeavesTheOldValues) {
    const WidgetPtr bars(orvel_widget_bars(canvas(), &theme_, 0, 0, 9, 9));
    const std::vector<double> values(100, 0.25);
    orvel_widget_set_data(bars.get(), values.data(), 2);
    const long before = allocations_live();
    {
        const FailingAllocation failing(1);
        EXPECT_THROW(orvel_widget_set_data(bars.get(), values.data(), 100), std::bad_alloc);
    }
    EXPECT_EQ(bars->data, (std::vector<double>{0.25, 0.25}));
    EXPECT_EQ(allocations_live(), before);
}

}  // namespace
