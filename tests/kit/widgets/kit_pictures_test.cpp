// How every kind looks in every state, with words in it.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "kit/widgets/kit_samples.h"
#include "support/golden.h"
#include "widgets/distinct_theme.h"

namespace {

using namespace orvel_test;

/// The widget on a canvas with two pixels around it, in the theme's background.
CanvasPtr drawn(kit_widget widget, const orvel_theme& theme) {
    int w = 0, h = 0;
    EXPECT_EQ(kit_size(&widget, &w, &h), 0);
    CanvasPtr canvas = make_canvas(w + 4, h + 4);
    orvel_canvas_clear(canvas.get(), theme.background);
    const int status = kit_draw(canvas.get(), theme, widget);
    EXPECT_EQ(status, widget.kind == ORVEL_WIDGET_IMAGE ? -1 : 0) << name_of_kind(widget.kind);
    return canvas;
}

/// theme_letters(), and the mixed colours: capitals where those are small, and the other way round.
Palette with_disabled(const orvel_theme& theme) {
    Palette letters = theme_letters(theme);
    const auto add = [&](char letter, orvel_color color) {
        letters.push_back({letter, kit_mix(color, theme.background, 50)});
    };
    add('+', theme.border);
    add('S', theme.surface);
    add('a', theme.accent);
    add('T', theme.text);
    add('U', theme.button);
    add('H', theme.button_hover);
    add('X', theme.button_text);
    add('4', {0xF3, 0x8B, 0xA8, 255});
    add('5', {0xF9, 0xE2, 0xAF, 255});
    add('6', {0xA6, 0xE3, 0xA1, 255});
    letters.push_back({'q', kit_mix(theme.text, theme.background, 45)});
    letters.push_back(
        {'Q', kit_mix(kit_mix(theme.text, theme.background, 50), theme.background, 45)});
    return letters;
}

TEST(KitPicturesTest, EveryKindInEveryStateLooksAsPictured) {
    const orvel_theme theme = distinct_theme();
    const Palette letters = with_disabled(theme);
    for (kit_widget widget : usual_widgets()) {
        const std::string name = name_of_kind(widget.kind);
        const CanvasPtr plain = drawn(widget, theme);
        for (const auto& [state, state_name] : widget_states()) {
            widget.state = state;
            const CanvasPtr canvas = drawn(widget, theme);
            if (state != 0 && checksum(canvas.get()) == checksum(plain.get())) continue;
            expect_golden("kit_widgets.txt", name + " " + state_name, canvas.get(), letters);
        }
    }
}

TEST(KitPicturesTest, BothThemesAndLargerFacesHaveTheseChecksums) {
    orvel_theme themes[2];
    orvel_theme_default(&themes[0]);
    orvel_theme_light(&themes[1]);
    for (const char* face : {"sans 11", "bold 14", "sans 24"}) {
        std::ostringstream lines;
        for (kit_widget widget : usual_widgets()) {
            widget.face = kit_face_named(face);
            lines << name_of_kind(widget.kind) << std::hex;
            for (const orvel_theme& theme : themes) {
                std::uint64_t sum = 14695981039346656037u;
                for (const auto& [state, state_name] : widget_states()) {
                    widget.state = state;
                    sum = checksum(drawn(widget, theme).get(), sum);
                }
                lines << ' ' << sum;
            }
            lines << std::dec << '\n';
        }
        expect_golden_text("kit_widget_checksums.txt", face, lines.str());
    }
}

}  // namespace
