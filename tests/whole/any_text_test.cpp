// Every function that takes a text with none at all, an empty one, one of every byte, and some of a
// million bytes.
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "core/state.h"
#include "models/text_model.h"
#include "support/every_byte.h"
#include "whole/interface_test.h"

namespace {

using namespace orvel_test;

/// A text of each kind, by name.
const std::map<std::string, std::string>& texts() {
    constexpr std::size_t kMillion = 1000000;
    static const std::map<std::string, std::string> all = {
        {"empty", ""},
        {"every byte", every_byte()},
        {"letters", std::string(kMillion, 'x')},
        {"dots", std::string(kMillion, '.')},
        {"slashes", std::string(kMillion, '/')},
        {"percents", std::string(kMillion, '%')},
        {"high bytes", std::string(kMillion, '\xff')},
        {"newlines", std::string(kMillion, '\n')},
    };
    return all;
}

struct Case {
    std::string function;
    std::size_t parameter;
};

/// For GoogleTest, which would print the bytes, also those between the fields.
void PrintTo(const Case& text, std::ostream* out) {
    *out << text.function << ' ' << text.parameter;
}

std::string test_name(const Case& text) {
    return text.function + (text.parameter == 1 ? "_second" : "");
}

std::vector<Case> cases() {
    std::vector<Case> all;
    for (const HostFunction& function : host_functions()) {
        for (std::size_t i = 0; i < function.texts; ++i) all.push_back({function.name, i});
    }
    return all;
}

class AnyText : public InterfaceTest, public testing::WithParamInterface<Case> {
protected:
    /// What is wrong with the call when it gets @p text there.
    std::string difference_with(const char* text) {
        HostArguments arguments = function.usual;
        arguments.texts[GetParam().parameter] = text;
        return difference(function, arguments);
    }

    /// What the widget of the last call keeps of it.
    const std::string& kept() const { return GetParam().parameter == 0 ? kept_text : kept_icon; }

    const HostFunction& function = host_function(GetParam().function);
};

/// What the function returns for a text that names nothing there is.
int expected_status(const std::string& function, const char* text) {
    if (function == "orvel_set_resource_path") return text ? 0 : -1;
    if (function == "orvel_text_width") return text ? model::text_width(text) : 0;
    if (function == "orvel_icon_exists" || function == "orvel_text_draw") return 0;
    if (function.rfind("orvel_widget_", 0) == 0) return 0;
    if (function == "orvel_theme_load" && text && !*text) return 0;  // the folder itself opens
    return -1;
}

std::string expected_message(const std::string& function, const char* text) {
    if (!text) return "";
    const std::string name = text;
    if (function == "orvel_play_sound") {
        return "[OrvelSDK] suono non trovato: ./Sounds/" + name + "\n";
    }
    if (function == "orvel_play_music") {
        return "[OrvelSDK] musica non trovata: ./Music/" + name + "\n";
    }
    return "";
}

TEST_P(AnyText, NoneIsRefusedOrCountsAsEmpty) {
    EXPECT_EQ(difference_with(nullptr), "");
    EXPECT_EQ(status, expected_status(function.name, nullptr));
    EXPECT_EQ(messages, "");
    EXPECT_EQ(kept(), GetParam().function == "orvel_widget_avatar" ? "?" : "");
    expect_checksum("no text of " + test_name(GetParam()));
}

TEST_P(AnyText, AnyOtherIsTakenAsItIs) {
    const bool is_widgets = GetParam().function.rfind("orvel_widget_", 0) == 0;
    for (const auto& [name, bytes] : texts()) {
        EXPECT_EQ(difference_with(bytes.c_str()), "") << name;
        EXPECT_EQ(status, expected_status(function.name, bytes.c_str())) << name;
        EXPECT_TRUE(messages == expected_message(function.name, bytes.c_str())) << name;
        EXPECT_TRUE(kept() == (is_widgets ? bytes : "")) << name;
    }
    expect_checksum("texts of " + test_name(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Interface, AnyText, testing::ValuesIn(cases()),
                         [](const auto& test) { return test_name(test.param); });

class TextTest : public InterfaceTest {};

TEST_F(TextTest, AMillionBytesAreSixMillionPixelsLessOne) {
    EXPECT_EQ(orvel_text_width(texts().at("letters").c_str()), 5999999);
    EXPECT_EQ(orvel_text_width(texts().at("newlines").c_str()), 5999999);
    EXPECT_EQ(orvel_text_width(texts().at("every byte").c_str()), 1529);
}

TEST_F(TextTest, ARootOfAMillionBytesIsKeptWhole) {
    const std::string& root = texts().at("slashes");
    ASSERT_EQ(orvel_set_resource_path(root.c_str()), 0);
    EXPECT_TRUE(orvel::resource_path() == root);
    EXPECT_TRUE(orvel::resolve_resource("UI", every_byte()) == root + "/UI/" + every_byte());
}

TEST_F(TextTest, AMillionCaptionsLeaveNoRoomForAnyOfThem) {
    widgets_show_nothing = true;
    const std::string bars(1000000, '|');
    for (const char* name : {"orvel_widget_tabs", "orvel_widget_menu"}) {
        HostArguments arguments = host_function(name).usual;
        arguments.texts[0] = bars.c_str();
        EXPECT_EQ(difference(host_function(name), arguments), "");
    }
}

TEST_F(TextTest, AFileIsNamedByTheBytesAsTheyAre) {
    std::string name = every_byte();
    name.erase(name.find('/'), 1);
    const auto canvas = make_canvas(1, 1);
    EXPECT_EQ(orvel_canvas_save_bmp(canvas.get(), name.c_str()), 0);
    EXPECT_EQ(read_file(name).size(), 58u);

    const orvel_theme theme = distinct_theme();
    EXPECT_EQ(orvel_theme_save(&theme, name.c_str()), 0);
    EXPECT_EQ(read_file("UI/" + name).size(), 264u);
}

}  // namespace
