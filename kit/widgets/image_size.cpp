#include "widgets/image_size.h"

#include <algorithm>
#include <memory>
#include <new>
#include <stdexcept>

namespace kit {
namespace {

/// Right and bottom end of the pixels that are not transparent.
void find_ends(const orvel_canvas* canvas, int size, int* right, int* bottom) {
    *right = *bottom = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            if (orvel_canvas_pixel_get(canvas, x, y).a == 0) continue;
            *right = std::max(*right, x + 1);
            *bottom = y + 1;
        }
    }
}

/// Whether the image could be drawn; raises where memory runs out.
bool is_drawn(orvel_canvas* canvas, const char* name) {
    try {
        return orvel_icon_draw_bitmap(canvas, name, 0, 0) == 0;
    } catch (const std::length_error&) {  // GCOVR_EXCL_BR_LINE: others go on to the caller
        return false;                     // the header is no picture's
    }
}

}  // namespace

int image_size(const char* name, int* w, int* h) {
    *w = *h = 0;
    // Most images are small, and a canvas that is not reached by one need not be larger.
    for (int size = 256; size <= 4096; size *= 4) {
        const std::unique_ptr<orvel_canvas, DestroyCanvas> canvas(kit_canvas(size, size));
        if (!canvas) throw std::bad_alloc();
        orvel_canvas_clear(canvas.get(), {});
        if (!is_drawn(canvas.get(), name)) return -1;
        find_ends(canvas.get(), size, w, h);
        if (*w < size && *h < size) break;
    }
    return 0;
}

}  // namespace kit
