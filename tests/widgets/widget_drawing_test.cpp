// Every kind in every state as a picture, and what holds for drawing any widget.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <new>
#include <string>

#include "support/golden.h"
#include "system/allocations.h"
#include "widgets/widget.h"
#include "widgets/widget_drawing.h"

namespace {

using namespace orvel_test;

class WidgetDrawingTest : public WidgetDrawing {};

CanvasPtr drawn_sample(const WidgetEdge& edge, const orvel_theme& theme) {
    CanvasPtr canvas = make_canvas(edge.width, edge.height);
    const WidgetPtr widget(edge.make(canvas.get(), &theme));
    orvel_widget_draw(widget.get());
    return canvas;
}

TEST(WidgetGoldenTest, EverySampleInDistinctColours) {
    const orvel_theme theme = distinct_theme();
    for (const WidgetEdge& edge : widget_edges()) {
        expect_golden("widgets_distinct.txt", edge.name, drawn_sample(edge, theme).get(),
                      theme_letters(theme));
    }
}

/// Every sample is drawn as in the distinct colours, with those of @p theme in their places.
void expect_the_same_parts_in(const orvel_theme& theme) {
    const Palette from = theme_letters(distinct_theme()), to = theme_letters(theme);
    for (const WidgetEdge& edge : widget_edges()) {
        const CanvasPtr expected = drawn_sample(edge, distinct_theme());
        for (int y = 0; y < edge.height; ++y) {
            for (int x = 0; x < edge.width; ++x) {
                std::size_t i = 0;
                while (!(orvel_canvas_pixel_get(expected.get(), x, y) == from.at(i).color)) ++i;
                orvel_canvas_pixel(expected.get(), x, y, to[i].color);
            }
        }
        const CanvasPtr drawn = drawn_sample(edge, theme);
        EXPECT_EQ(checksum(drawn.get()), checksum(expected.get()))
            << edge.name << '\n'
            << picture(drawn.get(), to) << "is not\n"
            << picture(expected.get(), to);
    }
}

TEST(WidgetGoldenTest, EverySampleInTheDarkTheme) {
    orvel_theme theme;
    orvel_theme_default(&theme);
    expect_the_same_parts_in(theme);
}

TEST(WidgetGoldenTest, EverySampleInTheLightTheme) {
    orvel_theme theme;
    orvel_theme_light(&theme);
    expect_the_same_parts_in(theme);
}

TEST_F(WidgetDrawingTest, AKindThatDoesNotExistDrawsNothing) {
    orvel_widget widget;
    widget.canvas = on(4, 2);
    widget.theme = &theme_;
    widget.text = "!";
    widget.w = widget.h = 4;
    widget.data = {1};
    const int last = static_cast<int>(widget_kinds().size()) - 1;
    for (const int kind : {last + 1, -1, last + 2, 256, INT_MIN, INT_MAX}) {
        widget.kind = kind;
        orvel_widget_draw(&widget);
        EXPECT_EQ(drawn(), "....\n....\n") << kind;
    }
    widget.kind = last;
    orvel_widget_draw(&widget);
    EXPECT_NE(drawn(), "....\n....\n");
}

TEST_F(WidgetDrawingTest, DrawingChangesNothingInTheWidget) {
    for (const WidgetEdge& edge : widget_edges()) {
        const WidgetPtr widget(edge.make(on(80, 40), &theme_));
        orvel_widget before(*widget);
        orvel_widget_draw(widget.get());
        EXPECT_EQ(widget->kind, before.kind) << edge.name;
        EXPECT_EQ(widget->canvas, before.canvas) << edge.name;
        EXPECT_EQ(widget->theme, before.theme) << edge.name;
        EXPECT_EQ(widget->text, before.text) << edge.name;
        EXPECT_EQ(widget->icon_name, before.icon_name) << edge.name;
        EXPECT_EQ(std::memcmp(&widget->x, &before.x, 7 * sizeof(int)), 0) << edge.name;
        EXPECT_EQ(std::memcmp(&widget->value, &before.value, sizeof(double)), 0) << edge.name;
        ASSERT_EQ(widget->data.size(), before.data.size()) << edge.name;
        for (std::size_t i = 0; i < before.data.size(); ++i) {  // by bytes: NaN differs from itself
            EXPECT_EQ(std::memcmp(&widget->data[i], &before.data[i], sizeof(double)), 0)
                << edge.name << ", value " << i;
        }
    }
}

TEST_F(WidgetDrawingTest, TheThemeIsReadAtEveryDraw) {
    const WidgetPtr panel(orvel_widget_panel(on(3, 3), &theme_, 0, 0, 3, 3));
    orvel_widget_draw(panel.get());
    EXPECT_EQ(orvel_canvas_pixel_get(canvas_.get(), 1, 1), theme_.surface);
    orvel_theme_light(&theme_);
    orvel_widget_draw(panel.get());
    EXPECT_EQ(orvel_canvas_pixel_get(canvas_.get(), 1, 1), (orvel_color{230, 233, 239, 255}));
    EXPECT_EQ(orvel_canvas_pixel_get(canvas_.get(), 0, 0), (orvel_color{204, 208, 218, 255}));
}

TEST_F(WidgetDrawingTest, TheErrorColourIsNeverDrawn) {
    for (const WidgetEdge& edge : widget_edges()) {
        draw(edge.make(on(edge.width, edge.height), &theme_));
        EXPECT_EQ(drawn().find('e'), std::string::npos) << edge.name;
    }
}

TEST_F(WidgetDrawingTest, OnlyTabsMenusAndImagesAllocate) {
    for (const WidgetEdge& edge : widget_edges()) {
        const WidgetPtr widget(edge.make(on(80, 40), &theme_));
        if (widget->kind == ORVEL_WIDGET_IMAGE) continue;  // reads a file
        const bool splits = widget->kind == ORVEL_WIDGET_TABS || widget->kind == ORVEL_WIDGET_MENU;
        const long before = allocations_made();
        const long live = allocations_live();
        orvel_widget_draw(widget.get());
        EXPECT_EQ(allocations_made() > before, splits) << edge.name;
        EXPECT_EQ(allocations_live(), live) << edge.name;
    }
}

TEST_F(WidgetDrawingTest, ASplitThatCannotBeAllocatedLeaksNothing) {
    const WidgetPtr tabs(orvel_widget_tabs(on(80, 20), &theme_,
                                           "a caption that needs memory of its own|and another one",
                                           0, 0, 80, 20, 0));
    long made = allocations_made();
    orvel_widget_draw(tabs.get());
    made = allocations_made() - made;
    const long live = allocations_live();
    for (long number = 1; number <= made; ++number) {
        const FailingAllocation failing(number);
        EXPECT_THROW(orvel_widget_draw(tabs.get()), std::bad_alloc);
        EXPECT_EQ(allocations_live(), live);
    }
}

}  // namespace
