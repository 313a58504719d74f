// Facts of the description that no compiler knows, tried out: what raises, and what a kind shows.
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <new>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>
#include <string>

#include "support/bitmap_files.h"
#include "support/files.h"
#include "support/picture.h"
#include "system/allocations.h"
#include "system/system.h"
#include "whole/interface_test.h"
#include "widgets/distinct_theme.h"
#include "widgets/kinds.h"

namespace {

using namespace orvel_test;
using Raised = std::map<std::string, std::set<std::string>>;

constexpr const char* kLong = "A text too long for a string to hold|in itself, of two items.bmp";
constexpr const char* kHostile = "a bitmap with rows of a negative length.bmp";
constexpr int kMostAllocations = 12;
constexpr int kWidth = 120, kHeight = 60;

/// What a function works on, made anew for each call.
struct Setting {
    Setting(int kind, const char* text) {
        orvel_theme_default(&theme);
        const WidgetKind& made = widget_kinds()[static_cast<std::size_t>(kind)];
        HostArguments arguments = made.constructor.usual;
        arguments.texts.assign(arguments.texts.size(), text);
        stage.canvas = canvas.get();
        stage.theme = &theme;
        stage.data = {0.2, 0.9, 0.5};
        widget.reset(made.constructor.call(stage, arguments).widget);
        stage.widget = widget.get();
    }

    CanvasPtr canvas = make_canvas(24, 24);
    orvel_theme theme = {};
    WidgetPtr widget;
    Stage stage;
};

/// Calls the function, and adds what it raises.
void call(const HostFunction& function, int kind, const char* text, long failing, Raised& raised) {
    Setting setting(kind, text);
    HostArguments arguments = function.usual;
    arguments.texts.assign(arguments.texts.size(), text);
    const std::string name = function.name;
    if (name == "orvel_canvas_destroy") static_cast<void>(setting.canvas.release());
    if (name == "orvel_widget_destroy") static_cast<void>(setting.widget.release());
    Returned made;
    bool out_of_memory = false, too_long = false;
    {
        const FailingAllocation failure(failing);
        try {
            made = function.call(setting.stage, arguments);
        } catch (const std::bad_alloc&) {
            out_of_memory = true;
        } catch (const std::length_error&) {
            too_long = true;
        }
    }
    if (out_of_memory) raised[name].insert("std::bad_alloc");
    if (too_long) raised[name].insert("std::length_error");
    orvel_widget_destroy(made.widget);
    orvel_canvas_destroy(made.canvas);
}

/// Every function while each of its allocations fails, with texts too long to lie in a string
/// itself and with the name of a bitmap that raises.
Raised raised_by_all(const std::string& folder) {
    Raised raised;
    for (const HostFunction& function : host_functions()) {
        raised[function.name];
        const std::size_t kinds = takes_a_widget(function) ? widget_kinds().size() : 1;
        for (int kind = 0; kind < static_cast<int>(kinds); ++kind) {
            for (const char* text : {kLong, kHostile}) {
                for (long failing = 0; failing <= kMostAllocations; ++failing) {
                    orvel_set_resource_path(folder.c_str());
                    call(function, kind, text, failing, raised);
                }
            }
        }
    }
    return raised;
}

nlohmann::json described() {
    const std::string text = read_file(ORVEL_SOURCE_DIR "/bindings/orvel_api.json");
    return nlohmann::json::parse(text)["libraries"][0]["functions"];
}

/// How a widget of the kind looks once its setter got one of two values.
std::string look(const WidgetKind& kind, const HostFunction& setter, bool second) {
    Stage stage;
    orvel_theme theme = distinct_theme();
    const CanvasPtr canvas = make_canvas(kWidth, kHeight);
    stage.canvas = canvas.get();
    stage.theme = &theme;
    const WidgetPtr widget(kind.constructor.call(stage, kind.constructor.usual).widget);
    stage.widget = widget.get();
    stage.data = {0.2, 0.9, 0.5};
    HostArguments arguments = setter.usual;
    for (int& number : arguments.ints) number = second ? 1 : 0;
    for (double& number : arguments.doubles) number = second ? 0.9 : 0.2;
    setter.call(stage, arguments);
    orvel_widget_draw(widget.get());
    std::string pixels;
    for (int place = 0; place < kWidth * kHeight; ++place) {
        const orvel_color at = orvel_canvas_pixel_get(canvas.get(), place % kWidth, place / kWidth);
        for (const unsigned char part : {at.r, at.g, at.b}) pixels += static_cast<char>(part);
    }
    return pixels;
}

TEST(RaisesTest, WhatTheDescriptionSaysToRaiseDoesAndNothingElse) {
    const TempFolder folder;
    take_over_system(folder / "tone.wav");
    begin_anew(folder / "no-player");
    write_file(folder / "Icons/" + kHostile, BmpHeader{-2, 1}.bytes());
    Raised raised;
    captured([&] { raised = raised_by_all(folder.path()); });
    Raised expected;
    for (const auto& function : described()) {
        expected[function["name"]] = function["raises"].get<std::set<std::string>>();
    }
    EXPECT_EQ(raised, expected);
}

TEST(ShownByTest, TheKindsThatASetterNamesAreThoseThatLookDifferent) {
    int setters = 0;
    for (const auto& function : described()) {
        if (!function.contains("shown_by")) continue;
        const HostFunction& setter = host_function(function["name"]);
        std::set<std::string> shown;
        for (const WidgetKind& kind : widget_kinds()) {
            std::string name = kind.constructor.name;
            for (char& letter : name) letter = static_cast<char>(std::toupper(letter));
            if (look(kind, setter, false) != look(kind, setter, true)) shown.insert(name);
        }
        EXPECT_EQ(shown, function["shown_by"].get<std::set<std::string>>()) << setter.name;
        ++setters;
    }
    EXPECT_EQ(setters, 5);
}

}  // namespace
