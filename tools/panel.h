// The panels that pictures go to: what of a picture they show, and the bytes that they take.
#pragma once

#include <optional>
#include <string>

#include "orvel_kit.h"
#include "picture.h"

namespace orvel_tools {

struct Panel {
    const char* name;
    int layout;                  // a kit_layout; KIT_PLANE: a plane for each colour but white
    int pixels;                  // whose bits are in one byte, 1 where a pixel takes more
    const orvel_color* palette;  // null: greys, or the channels' levels
    int colors;
};

/// Null when there is none of that name; an empty name is the panel of every colour, "rgba".
const Panel* panel_named(const std::string& name);

/// How a canvas goes out.
struct Outlet {
    const Panel* panel = nullptr;
    int dither = KIT_DITHER_NONE;
    int turns = 0;  // quarter turns clockwise
};

/// What kit_pixels() writes for the panel; of planes, the black one.
kit_format format_of(const Outlet& outlet);

/// The bytes that the panel takes; the planes one after another. Nothing where memory runs out.
std::optional<Bytes> panel_bytes(const orvel_canvas* canvas, const Outlet& outlet);

/// What the panel then shows, opaque.
std::optional<Picture> panel_picture(const orvel_canvas* canvas, const Outlet& outlet);

/// The box in which two pictures differ, widened to whole bytes of the panel's; all of @p now when
/// the two have different sizes, empty when nothing differs.
kit_box changed(const Picture& before, const Picture& now, const Panel& panel);

}  // namespace orvel_tools
