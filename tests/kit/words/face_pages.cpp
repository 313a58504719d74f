#include "face_pages.h"

namespace orvel_test {

const std::vector<std::string>& face_names() {
    static const std::vector<std::string> names = {
        "sans 11", "sans 12", "sans 14", "sans 18", "sans 24", "sans 40",   "bold 11",
        "bold 12", "bold 14", "bold 18", "bold 24", "mono 12", "digits 64", "digits 96"};
    return names;
}

std::vector<char32_t> characters(const kit_face& face) {
    std::vector<char32_t> codes;
    for (char32_t code = 0; code < 0x20000; ++code) {
        if (kit::find_glyph(face, code).face) codes.push_back(code);
    }
    return codes;
}

void draw_letter(orvel_canvas* canvas, const kit::Glyph& letter, int x, int baseline) {
    const int stride = (letter.width + 7) / 8;
    for (int row = 0; row < letter.height; ++row) {
        for (int column = 0; column < letter.width; ++column) {
            const unsigned byte = letter.bits[row * stride + column / 8];
            if ((byte >> (7 - column % 8) & 1) == 0) continue;
            orvel_canvas_pixel(canvas, x + letter.left + column, baseline - letter.top + row,
                               kBlack);
        }
    }
}

CanvasPtr face_page(const kit_face& face) {
    constexpr int kColumns = 32, kMargin = 8;
    const std::vector<char32_t> codes = characters(face);
    const int ascent = kit_face_ascent(&face), line = kit_face_line(&face) * 5 / 4;
    const int cell = kit_face_line(&face) * 3 / 2;
    const int rows = (static_cast<int>(codes.size()) + kColumns - 1) / kColumns;
    CanvasPtr page = make_canvas(kColumns * cell + 2 * kMargin, rows * line + 2 * kMargin);
    orvel_canvas_clear(page.get(), kInk);
    for (int i = 0; i < static_cast<int>(codes.size()); ++i) {
        const kit::Glyph letter = kit::find_glyph(face, codes[static_cast<std::size_t>(i)]).glyph;
        draw_letter(page.get(), letter, kMargin + i % kColumns * cell,
                    kMargin + i / kColumns * line + ascent);
    }
    return page;
}

}  // namespace orvel_test
