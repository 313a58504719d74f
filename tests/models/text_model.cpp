#include "models/text_model.h"

#include "models/printed_font.h"

namespace model {
namespace {

int moved(int pen, int by) {
    return static_cast<int>(static_cast<std::uint32_t>(pen) + static_cast<std::uint32_t>(by));
}

void cell(Canvas& canvas, int code, int x, int y, orvel_color color) {
    const std::size_t base = 5 * static_cast<std::size_t>(code - 32);
    for (int r = 0; r < 7; ++r) {
        const int v = printed_font()[base + static_cast<std::size_t>(r)];
        for (int k = 0; k < 5; ++k) {
            if (v & (1 << (4 - k))) canvas.put(moved(x, k), moved(y, r), color);
        }
    }
}

}  // namespace

int text_width(const std::string& text) {
    if (text.empty()) return 0;
    return static_cast<int>(6 * static_cast<std::uint32_t>(text.size()) - 1);
}

void text_draw(Canvas& canvas, const std::string& text, int x, int y, orvel_color color) {
    int px = x;
    for (const char byte : text) {
        const int c = static_cast<unsigned char>(byte);
        if (c == 10) continue;
        if (c >= 32 && c <= 126) cell(canvas, c, px, y, color);
        px = moved(px, 6);
    }
}

}  // namespace model
