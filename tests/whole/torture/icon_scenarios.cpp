#include "support/bitmap_files.h"
#include "whole/torture/scenario.h"

namespace orvel_test::torture {
namespace {

Scenarios built_in() {
    return {
        {"the icons are listed",
         [](Host& host) {
             int count = 0;
             const char** const names = host.call(orvel_icon_list, &count);
             host.tell(count > 0 ? names[0] : "none");
         },
         "made, folder",
         {}},
        {"icons are looked up",
         [](Host& host) {
             host.call(orvel_icon_exists, "alarm");
             host.call(orvel_icon_exists, "Alarm");
         },
         "1, 0",
         {}},
        {"an icon is drawn",
         [](Host& host) {
             host.call(orvel_draw_icon, host.canvas(), "home", 4, 4, 24, kInk);
             host.tell_canvas();
         },
         "0, drawn",
         {}},
        {"an icon is drawn in three colours",
         [](Host& host) {
             host.call(orvel_draw_icon_ex, host.canvas(), "star", 4, 4, 24, kInk, kInk, kBlack);
             host.tell_canvas();
         },
         "0, drawn",
         {}},
        {"an icon that does not exist is drawn",
         [](Host& host) {
             host.call(orvel_draw_icon, host.canvas(), "nothing", 4, 4, 24, kInk);
             host.tell_canvas();
         },
         "-1, drawn",
         {}},
    };
}

/// Draws the bitmap @p name, which has these bytes.
void draw(Host& host, const std::string& bytes, const char* name, int x = 2, int y = 2) {
    host.provide("Icons/picture.bmp", bytes);
    host.call(orvel_icon_draw_bitmap, host.canvas(), name, x, y);
    host.tell_canvas();
    try {
        orvel_icon_draw_bitmap(host.canvas(), name, x, y);
    } catch (const std::length_error&) {  // of the bitmap that raises it every time
    }
    host.tell_unless_as_ever(pixels_of(host.canvas()), "not drawn afterwards");
}

std::string two_by_two() { return BmpHeader{2, 2}.bytes() + kTwoByTwo; }

/// Tells of how many rows in a column of the canvas something was drawn.
void tell_rows(Host& host) {
    int rows = 0;
    for (int y = 0; y < 32; ++y) {
        rows += !(orvel_canvas_pixel_get(host.canvas(), 2, y) == kBlack);
    }
    host.tell(std::to_string(rows) + " rows");
}

void draw_tall(Host& host) {
    host.provide("Icons/tall.bmp", BmpHeader{2, 5}.bytes() + std::string(40, 'x'));
    host.call(orvel_icon_draw_bitmap, host.canvas(), "tall.bmp", 2, 2);
    tell_rows(host);
}

/// Rows of more than half a block, of which therefore each is read on its own.
std::string broad() { return BmpHeader{12000, 2}.bytes() + std::string(72000, 'x'); }

// What follows the opening of a bitmap that is drawn at once.
const std::vector<Rule> kRulesOfReading = {
    {"read short", "0, drawn", "-1, untouched"},
    {"read", "-1, untouched"},
    {"lseek", "0, untouched"},
    {"pread short", "0, drawn", "0, untouched"},
    {"pread", "0, untouched"},
};

Scenarios bitmaps() {
    return {
        {"a bitmap is drawn", [](Host& host) { draw(host, two_by_two(), "picture.bmp"); },
         "0, drawn",
         with({{"new", "bad_alloc, untouched"},
               {"open", "-1, untouched"},
               {"pread all but last", "0, drawn", "0, partly drawn"}},
              kRulesOfReading)},
        {"a bitmap is found and drawn", [](Host& host) { draw(host, two_by_two(), "picture"); },
         "0, drawn",
         with({{"new", "bad_alloc, untouched"},
               {"open 1", "0, drawn", "bad_alloc, untouched"},
               {"open 2", "0, drawn", "bad_alloc, untouched"},
               {"open 3", "-1, untouched", "bad_alloc, untouched"},
               {"pread all but last", "0, drawn", "0, partly drawn"}},
              kRulesOfReading)},
        // Five rows of 8 bytes, read in one piece without the padding of the last.
        {"a bitmap of five rows is drawn",
         draw_tall,
         "0, 5 rows",
         {{"new", "bad_alloc, 0 rows"},
          {"open", "-1, 0 rows"},
          {"read short", "0, 5 rows", "-1, 0 rows"},
          {"read", "-1, 0 rows"},
          {"lseek", "0, 0 rows"},
          {"pread first byte", "0, 5 rows", "0, 0 rows"},
          {"pread half", "0, 5 rows", "0, 2 rows"},
          {"pread all but last", "0, 5 rows", "0, 4 rows"},
          {"pread", "0, 0 rows"}}},
        {"a bitmap with alpha is drawn",
         [](Host& host) {
             draw(host, BmpHeader{2, -1, 32}.bytes() + std::string(8, '\x80'), "picture.bmp");
         },
         "0, drawn",
         with({{"new", "bad_alloc, untouched"}, {"open", "-1, untouched"}}, kRulesOfReading)},
        {"a bitmap is drawn in two blocks", [](Host& host) { draw(host, broad(), "picture.bmp"); },
         "0, drawn",
         with({{"new", "bad_alloc, untouched"},
               {"open", "-1, untouched"},
               {"pread 2 short", "0, drawn", "0, partly drawn"},
               {"pread 2", "0, partly drawn"}},
              kRulesOfReading)},
        {"a bitmap is drawn beside the canvas",
         [](Host& host) { draw(host, two_by_two(), "picture.bmp", 48, 2); },
         "0, untouched",
         {{"new", "bad_alloc, untouched"},
          {"open", "-1, untouched"},
          {"read short", "0, untouched", "-1, untouched"},
          {"read", "-1, untouched"}}},
    };
}

// A file that is opened and refused for its header.
const std::vector<Rule> kRulesOfRefusing = {{"new", "bad_alloc, untouched"}};

Scenarios bad_bitmaps() {
    return {
        {"a bitmap that is missing is drawn",
         [](Host& host) {
             host.call(orvel_icon_draw_bitmap, host.canvas(), "missing.bmp", 0, 0);
             host.tell_canvas();
         },
         "-1, untouched", kRulesOfRefusing},
        {"a bitmap of ten bytes is drawn",
         [](Host& host) { draw(host, "BM34567890", "picture.bmp"); }, "-1, untouched",
         kRulesOfRefusing},
        {"another file is drawn as a bitmap",
         [](Host& host) { draw(host, std::string(100, 'x'), "picture.bmp"); }, "-1, untouched",
         kRulesOfRefusing},
        {"a bitmap of 8 bits is drawn",
         [](Host& host) {
             draw(host, BmpHeader{2, 2, 8}.bytes(), "picture.bmp");
         },
         "-1, untouched", kRulesOfRefusing},
        {"a bitmap of one of its two rows is drawn",
         [](Host& host) { draw(host, two_by_two().substr(0, 62), "picture.bmp"); }, "0, drawn",
         with({{"new", "bad_alloc, untouched"}, {"open", "-1, untouched"}}, kRulesOfReading)},
        {"a bitmap is drawn whose width cannot be",
         [](Host& host) {
             draw(host, BmpHeader{-2, 2}.bytes(), "picture.bmp");
         },
         "length_error, untouched",
         {{"new", "bad_alloc, untouched"},
          {"open", "-1, untouched"},
          {"read short", "length_error, untouched", "-1, untouched"},
          {"read", "-1, untouched"}}},
        {"nothing is drawn as a bitmap",
         [](Host& host) {
             host.call(orvel_icon_draw_bitmap, nullptr, "picture.bmp", 0, 0);
             host.call(orvel_icon_draw_bitmap, host.canvas(), nullptr, 0, 0);
         },
         "-1, -1",
         {}},
    };
}

}  // namespace

Scenarios icon_scenarios() { return joined({built_in(), bitmaps(), bad_bitmaps()}); }

}  // namespace orvel_test::torture
