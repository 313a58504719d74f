// Every allocation of every call of the kit fails, one by one and with all later ones: the call
// then says so, raises nothing, leaks nothing, and does its work when it is made again.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "orvel_kit.h"
#include "support/files.h"
#include "support/picture.h"
#include "system/out_of_memory.h"

namespace {

using namespace orvel_test;

/// What the calls work on; made anew for each.
struct Stage {
    Stage() {
        orvel_theme_default(&theme);
        for (kit_series& one : series) {
            one.values = values;
            one.count = 3;
            one.name = "Not in a row";
        }
        chart.box = {0, 0, 160, 90};
        chart.series = series;
        chart.count = 4;  // of which the last ones are counted in the legend
        chart.unit = " kilowatt-hours";
        chart.parts = KIT_CHART_AXES | KIT_CHART_LABELS | KIT_CHART_LEGEND;
        chart.labels = "Mon|Tue|Wed";
    }
    CanvasPtr canvas = make_canvas(64, 32), wide = make_canvas(160, 90);
    orvel_theme theme = {};
    unsigned char bytes[64 * 32 * 4] = {};
    const double values[3] = {1.0, 3.0, 2.0};
    kit_series series[4] = {};
    kit_chart chart = {};
};

constexpr const char* kWords = "Many words, of which none is short enough to be copied for nothing";
constexpr const char* kFace =
    "STARTFONT 2.1\nFONT a\nSIZE 8 75 75\nFONTBOUNDINGBOX 2 2 0 0\nCHARS 1\nSTARTCHAR A\n"
    "ENCODING 65\nSWIDTH 500 0\nDWIDTH 3 0\nBBX 2 2 0 0\nBITMAP\n80\n40\nENDCHAR\nENDFONT\n";

using Row = FailingRow<Stage>;

int pixels_of(Stage& stage, kit_dither dither) {
    const orvel_color palette[] = {kBlack, kInk};
    kit_format format = {};
    format.layout = KIT_INDEX8;
    format.dither = dither;
    format.palette = palette;
    format.colors = 2;
    return kit_pixels(stage.canvas.get(), nullptr, &format, stage.bytes, sizeof stage.bytes, 0);
}

int with_face(kit_face* face) {
    kit_face_close(face);
    return face ? 0 : -1;
}

int draw_every_kind(Stage& stage, unsigned state) {
    for (int kind = 0; kind <= ORVEL_WIDGET_STATUSBAR; ++kind) {
        kit_widget widget = {};
        widget.kind = kind;
        widget.box = {0, 0, 64, 32};
        widget.text = kind == ORVEL_WIDGET_ICON ? "home" : kWords;
        widget.icon = "mail";
        widget.state = state;
        widget.data = stage.values;
        widget.count = 3;
        kit_widget unsized = widget;
        unsized.box = {};
        int w = 0, h = 0;
        if (kit_size(&unsized, &w, &h) != 0) return -1;
        const bool is_field = kind == ORVEL_WIDGET_TEXTBOX || kind == ORVEL_WIDGET_SEARCH;
        if (kit_field(&unsized, nullptr, nullptr) != (is_field ? 0 : -1)) return -1;
        if (kind == ORVEL_WIDGET_IMAGE) continue;
        if (kit_draw(stage.canvas.get(), &stage.theme, &widget) != 0) return -1;
    }
    return 0;
}

const Row kRows[] = {
    {"kit_canvas ",
     [](Stage&) {
         orvel_canvas* const canvas = kit_canvas(3, 3);
         orvel_canvas_destroy(canvas);
         return canvas ? 0 : -1;
     }},
    {"kit_copy kit_stamp kit_mix kit_grey ",
     [](Stage& stage) {
         orvel_canvas_pixel(stage.canvas.get(), 0, 0, kit_mix(kBlack, kInk, 50));
         return kit_copy(stage.canvas.get(), 5, 5, stage.canvas.get(), nullptr) +
                kit_stamp(stage.canvas.get(), 7, 7, stage.canvas.get(), nullptr);
     }},
    {"kit_icon ",
     [](Stage& stage) { return kit_icon(stage.canvas.get(), "home", 1, 1, 24, kInk); }},
    {"kit_clip_begin kit_clip_end ",
     [](Stage& stage) {
         kit_box box = {3, 3, 9, 9};
         orvel_canvas* const inside = kit_clip_begin(stage.canvas.get(), &box);
         if (!inside) return -1;
         orvel_canvas_clear(inside, kInk);
         return kit_clip_end(stage.canvas.get(), &box, inside);
     }},
    {"kit_pixels kit_pixels_stride ",
     [](Stage& stage) { return pixels_of(stage, KIT_DITHER_ORDERED); }},
    {"kit_pixels ", [](Stage& stage) { return pixels_of(stage, KIT_DITHER_DIFFUSED); }},
    {"kit_face_read kit_face_close ",
     [](Stage&) {
         char why[80];
         return with_face(kit_face_read(kFace, std::char_traits<char>::length(kFace), why, 80));
     }},
    {"kit_face_fallback ",
     [](Stage&) { return with_face(kit_face_fallback(kit_digits_64(), kit_sans_12())); }},
    {"kit_text_draw kit_text_box kit_text_wrap kit_text_width kit_text_x kit_text_at ",
     [](Stage& stage) {
         orvel_canvas* const canvas = stage.canvas.get();
         const kit_box box = {2, 2, 50, 28};
         kit_text_draw(canvas, nullptr, kWords, 0, 12, kInk);
         const int cut = kit_text_box(canvas, nullptr, kWords, box, KIT_CENTRE, kInk);
         const int lines = kit_text_wrap(canvas, nullptr, kWords, box, KIT_LEFT, kInk);
         return cut == 1 && lines > 1 ? 0 : -1;
     }},
    {"kit_draw kit_size kit_field ", [](Stage& stage) { return draw_every_kind(stage, 0); }},
    {"kit_draw ", [](Stage& stage) { return draw_every_kind(stage, KIT_FOCUS | KIT_ACTIVE); }},
    {"kit_draw ", [](Stage& stage) { return draw_every_kind(stage, KIT_DISABLED); }},
    {"kit_chart_draw ",
     [](Stage& stage) {
         int status = 0;
         for (int kind = 0; kind <= KIT_CHART_GAUGE && status == 0; ++kind) {
             stage.chart.kind = kind;
             status = kit_chart_draw(stage.wide.get(), &stage.theme, &stage.chart);
         }
         return status;
     }},
};

/// The pixels, and the bytes made of them, as one number.
std::uint64_t checksum_of(const Stage& stage) {
    std::uint64_t sum = checksum(stage.canvas.get());
    for (const unsigned byte : stage.bytes) sum = (sum ^ byte) * 1099511628211u;
    return sum;
}

/// That number where the row succeeds on a stage of its own.
std::uint64_t made(const Row& row) {
    Stage stage;
    EXPECT_EQ(row.act(stage), 0);
    return checksum_of(stage);
}

class KitOutOfMemoryTest : public testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(, KitOutOfMemoryTest, testing::ValuesIn(kRows), name_of_row<Row>);

TEST_P(KitOutOfMemoryTest, EveryAllocationThatFailsIsToldAndDoesNoHarm) {
    const Row& row = GetParam();
    const std::uint64_t usual = made(row);
    long count = 0;
    {
        Stage stage;
        const long before = allocations_made();
        row.act(stage);
        count = allocations_made() - before;
    }
    RecordProperty("allocations", static_cast<int>(count));
    for (long failing = 1; failing <= count; ++failing) {
        for (const bool alone : {true, false}) {
            const long live = allocations_live();
            {
                Stage stage;
                const Outcome failed =
                    while_failing(failing, alone, [&] { return row.act(stage); });
                EXPECT_FALSE(failed.raised) << failing << " of " << count;
                EXPECT_LT(failed.status, 0) << failing << " of " << count;
            }
            EXPECT_EQ(allocations_live(), live) << failing << " of " << count;
            EXPECT_EQ(made(row), usual) << failing << " of " << count;
        }
    }
}

TEST(KitOutOfMemoryTableTest, CallsEveryFunctionThatCanAllocate) {
    // What only reads a record, or hands its call to the library (which guarded_test sees to).
    const std::set<std::string> others = {
        "kit_bitmap",        "kit_theme_load",    "kit_theme_save", "kit_save_bmp",
        "kit_save_bmp_rgba", "kit_resource_path", "kit_play_sound", "kit_play_music",
        "kit_play_tone",     "kit_version",       "kit_face_open",  "kit_face_named",
        "kit_face_ascent",   "kit_face_descent",  "kit_face_line",  "kit_face_cap",
        "kit_face_has",      "kit_text_missing"};
    const auto needs_none = [&](const std::string& name) {
        const bool baked = name.find_first_of("0123456789") != std::string::npos;
        return baked || others.count(name) == 1;
    };
    EXPECT_GT(expect_rows_for(ORVEL_SOURCE_DIR "/tests/kit/exports.txt", kRows, needs_none), 50);
}

}  // namespace
