// Colours as a panel shows them.
#pragma once

#include <memory>

#include "orvel_kit.h"

namespace kit {

struct CloseCanvas {
    void operator()(orvel_canvas* canvas) const { orvel_canvas_destroy(canvas); }
};
using CanvasPtr = std::unique_ptr<orvel_canvas, CloseCanvas>;

/// An opaque black canvas; raises std::bad_alloc.
CanvasPtr canvas_of(int width, int height);

class Panel {
public:
    /// @p format, a good one, is what the panel takes; null: every colour.
    explicit Panel(const kit_format* format);

    /// The nearest colour that it has.
    orvel_color shown(orvel_color color) const;

    /// Whether so few colours are mixed from dots that letters in a mixed one fall apart.
    bool mixes() const;

private:
    kit_format format_ = {};
    CanvasPtr pixel_;
};

}  // namespace kit
