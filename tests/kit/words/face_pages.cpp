#include "face_pages.h"

#include <utility>

#include "words/face_data.h"

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

namespace {

/// The pixels of a letter, from its corner.
std::vector<std::pair<int, int>> dots(const kit::Glyph& letter) {
    std::vector<std::pair<int, int>> all;
    const int stride = (letter.width + 7) / 8;
    for (int bit = 0; letter.bits && bit < 8 * stride * letter.height; ++bit) {
        const bool ink = (letter.bits[bit / 8] >> (7 - bit % 8) & 1) != 0;
        if (ink) all.emplace_back(bit % (8 * stride), bit / (8 * stride));
    }
    const unsigned char* at = letter.strokes;
    for (int numbers = 2; at && numbers <= 4; ++numbers) {  // pixels, runs, other boxes
        for (int left = *at++; left > 0; --left, at += numbers) {
            const int w = numbers > 2 ? at[2] : 1, h = numbers > 3 ? at[3] : 1;
            for (int dot = 0; dot < w * h; ++dot) {
                all.emplace_back(at[0] + dot % w, at[1] + dot / w);
            }
        }
    }
    return all;
}

}  // namespace

void draw_letter(orvel_canvas* canvas, const kit::Glyph& letter, int x, int baseline) {
    for (const auto& [column, row] : dots(letter)) {
        orvel_canvas_pixel(canvas, x + letter.left + column, baseline - letter.top + row, kBlack);
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
        const char32_t code = codes[static_cast<std::size_t>(i)];
        const kit::Glyph letter = kit::glyph_of(kit::find_glyph(face, code));
        draw_letter(page.get(), letter, kMargin + i % kColumns * cell,
                    kMargin + i / kColumns * line + ascent);
    }
    return page;
}

}  // namespace orvel_test
