// Any bytes as a text in any box: no finding of the sanitizers, the pixels and results of the plain
// model in a face whose letters it knows, and in the kit's faces no pixel outside the box.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "harness.h"
#include "input.h"
#include "kit/words/tiny_letters.h"
#include "models/words_model.h"
#include "orvel_kit.h"

namespace {

using fuzz::require;

constexpr int kSide = 24;
constexpr orvel_color kGround = {0, 0, 0, 255}, kInk = {1, 2, 3, 4};

/// Three ways to write, by both.
void compare(const kit_face* face, const model::Words& words, const std::string& text,
             const kit_box& box, kit_align align) {
    static orvel_canvas* const canvas = orvel_canvas_create(kSide, kSide);
    const char* const bytes = text.c_str();
    orvel_canvas_clear(canvas, kGround);
    model::Canvas expected(kSide, kSide);
    require(kit_text_width(face, bytes) == words.width(text), "another width");
    kit_text_draw(canvas, face, bytes, box.x, box.y, kInk);
    words.draw(expected, text, box.x, box.y, kInk);
    require(fuzz::shows(canvas, expected.pixels()), "another line");
    require(kit_text_box(canvas, face, bytes, box, align, kGround) ==
                words.box(expected, text, box, align, kGround),
            "another end");
    require(fuzz::shows(canvas, expected.pixels()), "another line in the box");
    require(kit_text_wrap(canvas, face, bytes, box, align, kInk) ==
                words.wrap(expected, text, box, align, kInk),
            "another number of lines");
    require(fuzz::shows(canvas, expected.pixels()), "another paragraph");
}

/// What holds in every face.
void look_at(const kit_face* face, const char* text, const kit_box& box, kit_align align,
             int offset) {
    static orvel_canvas* const canvas = orvel_canvas_create(kSide, kSide);
    orvel_canvas_clear(canvas, kGround);
    kit_text_box(canvas, face, text, box, align, kInk);
    kit_text_wrap(canvas, face, text, box, align, kInk);
    const std::int64_t right = std::int64_t{box.x} + box.w, bottom = std::int64_t{box.y} + box.h;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            if (x >= box.x && x < right && y >= box.y && y < bottom) continue;
            require(orvel_canvas_pixel_get(canvas, x, y).r == 0, "a pixel outside the box");
        }
    }
    const int x = kit_text_x(face, text, offset);
    require(kit_text_x(face, text, kit_text_at(face, text, x)) == x, "no way back");
    require(kit_text_x(face, text, INT32_MAX) == kit_text_width(face, text), "another end");
    require(kit_text_missing(face, text) >= 0, "less than nothing is missing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const model::Words tiny(orvel_test::tiny_letter, orvel_test::kTinyMeasures);
    static const model::Words bare(orvel_test::bare_letter, orvel_test::kTinyMeasures);
    static const std::array<const kit_face*, 4> faces = {
        kit_sans_12(), kit_bold_18(), kit_digits_64(),
        kit_face_fallback(orvel_test::bare_face(), kit_sans_11())};
    fuzz::Input input(data, size);
    const int first = input.byte();
    const kit_box box = {input.number(), input.number(), input.number(), input.number()};
    const auto align = static_cast<kit_align>(first % 4);  // 3 is none, which is left
    const int offset = input.byte();
    const std::string text = input.c_string().substr(0, 64);
    if (first % 8 < 4) {
        compare(orvel_test::tiny_face(), tiny, text, box, align);
        compare(orvel_test::bare_face(), bare, text, box, align);
    }
    look_at(faces[static_cast<std::size_t>(first / 8 % 4)], text.c_str(), box, align, offset);
    return 0;
}
