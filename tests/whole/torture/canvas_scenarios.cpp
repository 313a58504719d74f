#include <cstdio>

#include "support/files.h"
#include "whole/torture/scenario.h"

namespace orvel_test::torture {
namespace {

constexpr orvel_color kRose = {200, 60, 90, 255};

/// A scenario that draws and needs nothing that could fail.
Scenario drawing(const char* name, void (*act)(Host& host)) { return {name, act, "drawn", {}}; }

Scenarios records() {
    return {
        {"a canvas is made",
         [](Host& host) {
             orvel_canvas* const canvas = host.call(orvel_canvas_create, 20, 10);
             host.call(orvel_canvas_width, canvas);
             host.call(orvel_canvas_height, canvas);
             host.call(orvel_canvas_pixel_get, canvas, 19, 9);
             host.call(orvel_canvas_destroy, canvas);
         },
         "made, 20, 10, 0 0 0 255",
         {{"new 1", "null, 0, 0, 0 0 0 0"}, {"new 2", "bad_alloc, 0, 0, 0 0 0 0"}}},
        {"a canvas without a row is made",
         [](Host& host) { host.call(orvel_canvas_create, 20, 0); },
         "null",
         {}},
        drawing("a canvas is cleared",
                [](Host& host) {
                    host.call(orvel_canvas_clear, host.canvas(), kRose);
                    host.tell_canvas();
                }),
        drawing("pixels are set",
                [](Host& host) {
                    host.call(orvel_canvas_pixel, host.canvas(), 3, 4, kRose);
                    host.call(orvel_canvas_pixel, host.canvas(), 48, 4, kRose);
                    host.tell_canvas();
                }),
    };
}

Scenarios shapes() {
    return {
        drawing("a line is drawn",
                [](Host& host) {
                    host.call(orvel_canvas_line, host.canvas(), -9, 3, 60, 20, kRose);
                    host.tell_canvas();
                }),
        drawing("a rectangle is drawn",
                [](Host& host) {
                    host.call(orvel_canvas_rect, host.canvas(), 2, 3, 90, 20, kRose);
                    host.tell_canvas();
                }),
        drawing("a rectangle is filled",
                [](Host& host) {
                    host.call(orvel_canvas_fill_rect, host.canvas(), 2, 3, 40, 20, kRose);
                    host.tell_canvas();
                }),
        drawing("a circle is drawn",
                [](Host& host) {
                    host.call(orvel_canvas_circle, host.canvas(), 20, 20, 15, kRose);
                    host.tell_canvas();
                }),
        drawing("a disc is drawn",
                [](Host& host) {
                    host.call(orvel_canvas_fill_circle, host.canvas(), 20, 20, 15, kRose);
                    host.tell_canvas();
                }),
        drawing("a triangle is filled",
                [](Host& host) {
                    host.call(orvel_canvas_fill_triangle, host.canvas(), 0, 0, 40, 9, 7, 50, kRose);
                    host.tell_canvas();
                }),
    };
}

using Save = int(const orvel_canvas*, const char*);

void save(Host& host, Save* save, const char* before) {
    const std::string path = host.path("picture.bmp");
    std::remove(path.c_str());
    if (*before) write_file(path, before);
    const auto canvas = make_canvas(20, 3);
    host.call(save, canvas.get(), path.c_str());
    host.tell_file(path);
    save(canvas.get(), path.c_str());
    host.tell_unless_as_ever(read_file(path), "not saved afterwards");
}

/// What is told of a picture with a header of 54 bytes and three rows of that size, written
/// together. Nobody looks at what becomes of the writes; but the memory for rows is asked for while
/// the file is open, and the file then stays open.
std::vector<Rule> rules_of_saving(const std::string& before, int row) {
    const auto told = [](const std::string& result, int bytes) {
        return result + ", " + std::to_string(bytes) + " bytes";
    };
    const auto lost = [&told](int bytes) {
        return told("bad_alloc", bytes) + "; 1 descriptor left";
    };
    const std::string emptied = before == "old" ? "old" : "0 bytes";
    const int rows = 3 * row;
    std::vector<Rule> rules = {
        {"creat", "-1, " + before},
        {"fstat", "-1, " + emptied},
        {"new", lost(54)},
        {"malloc", "0, whole", told("0", 54)},  // then row by row
        {"write 1 first byte", "0, whole", lost(1)},
        {"write 1 half", "0, whole", lost(27)},
        {"write 1 all but last", "0, whole", lost(53)},
        {"write 1", told("0", rows), lost(0)},
        {"write 2 first byte", "0, whole", told("0", 54 + 1)},
        {"write 2 half", "0, whole", told("0", 54 + rows / 2)},
        {"write 2 all but last", "0, whole", told("0", 54 + rows - 1)},
        {"write 2", told("0", 54)},
    };
    if (before == "old") rules.push_back({"ftruncate", "-1, old"});
    return rules;
}

Scenarios files() {
    return {
        {"a picture is saved", [](Host& host) { save(host, orvel_canvas_save_bmp, ""); },
         "0, whole", rules_of_saving("no file", 60)},
        {"a picture with alpha is saved",
         [](Host& host) { save(host, orvel_canvas_save_bmp_rgba, ""); }, "0, whole",
         rules_of_saving("no file", 80)},
        {"a picture is saved over another file",
         [](Host& host) { save(host, orvel_canvas_save_bmp, "old"); }, "0, whole",
         rules_of_saving("old", 60)},
        {"a picture is saved in no folder",
         [](Host& host) {
             const std::string path = host.path("no folder/picture.bmp");
             host.call(orvel_canvas_save_bmp, host.canvas(), path.c_str());
         },
         "-1",
         {}},
        {"a picture is saved on a full disk",
         [](Host& host) { host.call(orvel_canvas_save_bmp, host.canvas(), "/dev/full"); },
         "0",
         {{"creat", "-1"},
          {"fstat", "-1"},
          {"write 1", "0", "bad_alloc; 1 descriptor left"},
          {"new", "bad_alloc; 1 descriptor left"},
          {"malloc", "0"}}},
        {"no picture is saved",
         [](Host& host) {
             host.call(orvel_canvas_save_bmp, nullptr, "picture.bmp");
             host.call(orvel_canvas_save_bmp_rgba, host.canvas(), nullptr);
         },
         "-1, -1",
         {}},
    };
}

}  // namespace

Scenarios canvas_scenarios() { return joined({records(), shapes(), files()}); }

}  // namespace orvel_test::torture
