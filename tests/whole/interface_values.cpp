#include "whole/interface_test.h"

#include <sys/wait.h>

#include <filesystem>
#include <sstream>

#include "support/bitmap_files.h"
#include "support/golden.h"
#include "system/system.h"
#include "whole/interface_models.h"
#include "widgets/widget.h"

namespace orvel_test {
namespace {

CanvasPtr ground() {
    CanvasPtr canvas = make_canvas(kSide, kSide);
    orvel_canvas_clear(canvas.get(), {10, 20, 30, 255});
    orvel_canvas_fill_rect(canvas.get(), 2, 3, 4, 4, {200, 0, 0, 0});  // some of it transparent
    return canvas;
}

std::string in_words(const HostFunction& function, const HostArguments& arguments) {
    std::ostringstream out;
    out << function.name << " with";
    for (const int number : arguments.ints) out << ' ' << number;
    for (const double number : arguments.doubles) out << ' ' << number;
    for (const char* text : arguments.texts) {
        out << " \"" << (text ? std::string(text).substr(0, 40) : "null") << '"';
    }
    return out.str();
}

std::string first_difference(const orvel_canvas* actual, const orvel_canvas* expected) {
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const orvel_color found = orvel_canvas_pixel_get(actual, x, y);
            const orvel_color wanted = orvel_canvas_pixel_get(expected, x, y);
            if (found == wanted) continue;
            std::ostringstream out;
            out << "at (" << x << ", " << y << ") " << found << ", expected " << wanted;
            return out.str();
        }
    }
    return "";
}

}  // namespace

bool takes_a_widget(const HostFunction& function) {
    const std::string name = function.name;
    return name.rfind("orvel_widget_set_", 0) == 0 || name == "orvel_widget_draw";
}

InterfaceTest::InterfaceTest() : old_folder_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder_.path());
    orvel_set_resource_path(".");
    write_file("Icons/dots.bmp", BmpHeader{2, 2}.bytes() + kTwoByTwo);
    write_file("UI/theme.json", "{\"error\": \"#123456\"}");
    take_over_system(folder_ / "tone.wav");
    begin_anew(folder_ / "no-player");
}

InterfaceTest::~InterfaceTest() {
    while (waitpid(-1, nullptr, 0) > 0) {
    }
    orvel_set_resource_path("");
    std::filesystem::current_path(old_folder_);
}

WidgetPtr InterfaceTest::make(int kind, Stage& stage) const {
    const HostFunction& constructor = widget_kinds()[static_cast<std::size_t>(kind)].constructor;
    WidgetPtr widget(constructor.call(stage, constructor.usual).widget);
    EXPECT_EQ(widget->kind, kind) << constructor.name;
    orvel_widget_set_data(widget.get(), data.data(), static_cast<int>(data.size()));
    return widget;
}

std::string InterfaceTest::difference(const HostFunction& function, const HostArguments& arguments,
                                      int kind) {
    const CanvasPtr actual = ground(), expected = ground();
    Stage stage = {actual.get(), nullptr, &theme_, data, {kInk, {1, 2, 3, 4}, {5, 6, 7, 255}}};
    WidgetPtr widget;
    if (takes_a_widget(function)) widget = make(kind, stage);
    stage.widget = widget.get();
    const bool is_modelled = draw_by_model(function, stage, arguments, expected.get());

    Returned result;
    const auto call = [&] { result = function.call(stage, arguments); };
    const bool prints = std::string(function.name).rfind("orvel_play_", 0) == 0;
    messages.clear();
    if (prints) messages = captured(call).error;
    if (!prints) call();
    if (result.widget) widget.reset(result.widget);
    orvel_widget_draw(widget.get());

    status = result.number;
    color = result.color;
    if (widget) {
        kept_text = widget->text;
        kept_icon = widget->icon_name;
    }
    const bool is_known = is_modelled || (widget && widgets_show_nothing);
    if (!is_known) sum_ = checksum(actual.get(), sum_);
    const std::string wrong = is_known ? first_difference(actual.get(), expected.get()) : "";
    return wrong.empty() ? "" : in_words(function, arguments) + ": " + wrong;
}

void InterfaceTest::expect_checksum(const std::string& section) const {
    if (sum_ == 0) return;
    std::ostringstream out;
    out << std::hex << sum_ << '\n';
    expect_golden_text("extreme_checksums.txt", section, out.str());
}

std::string InterfaceTest::difference_of_any_kind(const HostFunction& function,
                                                  const HostArguments& arguments) {
    if (!takes_a_widget(function)) return difference(function, arguments);
    for (int kind = 0; kind < static_cast<int>(widget_kinds().size()); ++kind) {
        const std::string found = difference(function, arguments, kind);
        if (!found.empty()) return found + ", kind " + std::to_string(kind);
    }
    return "";
}

}  // namespace orvel_test
