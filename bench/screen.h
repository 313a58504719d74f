// The two scenes made of ready pieces, for ours and for the recorder.
#pragma once

#include <vector>

#include "orvel.h"

namespace bench {

constexpr int kIconColumns = 10;
constexpr int kIconCanvasWidth = 640;
constexpr int kIconCanvasHeight = 480;
constexpr int kScreenWidth = 320;
constexpr int kScreenHeight = 240;

/// All built-in icons, in a grid of squares of @p size.
void draw_all_icons(orvel_canvas* canvas, int size);

/// A settings screen of 18 widgets.
std::vector<orvel_widget*> make_screen(orvel_canvas* canvas, const orvel_theme* theme);
void draw_screen(const std::vector<orvel_widget*>& widgets);
void destroy_screen(const std::vector<orvel_widget*>& widgets);

}  // namespace bench
