// Any bytes as a bitmap font: no finding of the sanitizers, a reason for every refusal, and of
// every face that is read letters that lie in its memory and can be drawn.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

#include "harness.h"
#include "orvel_kit.h"
#include "words/face_data.h"

namespace {

using fuzz::require;

/// Whether the strokes of a letter are in the ink of its face, and in the letter.
void check_strokes(const kit::OwnedFace& face, const kit::ReadGlyph& glyph) {
    std::size_t at = glyph.offset;
    for (const std::size_t numbers : {2u, 3u, 4u}) {  // pixels, runs, other boxes
        require(at < face.ink_memory.size(), "strokes outside their memory");
        const std::size_t end = at + 1 + numbers * face.ink_memory[at];
        require(end <= face.ink_memory.size(), "strokes outside their memory");
        for (++at; at < end; at += numbers) {
            const unsigned char* const stroke = face.ink_memory.data() + at;
            const int w = numbers > 2 ? stroke[2] : 1, h = numbers > 3 ? stroke[3] : 1;
            require(w > 0 && h > 0, "a stroke without pixels");
            require(stroke[0] + w <= glyph.width && stroke[1] + h <= glyph.height,
                    "a stroke outside its letter");
        }
    }
}

/// Whether the rows of a letter are in the ink of its face, and their bits in the letter.
void check_rows(const kit::OwnedFace& face, const kit::ReadGlyph& glyph) {
    const std::size_t stride = (std::size_t(glyph.width) + 7) / 8;
    const std::size_t end = glyph.offset + stride * std::size_t(glyph.height);
    require(end <= face.ink_memory.size(), "a letter outside its memory");
    const unsigned rest = 0xFFu >> (glyph.width % 8 == 0 ? 8 : glyph.width % 8);
    for (std::size_t at = glyph.offset; at < end; at += stride) {
        require((face.ink_memory[at + stride - 1] & rest) == 0, "bits beside a letter");
    }
}

/// Where letters of a face of @p size bytes lie, and whether their ink is what was read.
void check_letters(const kit::OwnedFace& face, std::size_t size) {
    require(face.ink_memory.size() <= size, "more ink than the font has bytes");
    require(face.glyph_memory.size() <= size, "more letters than the font has");
    std::uint32_t next_code = 0, next_index = 0;
    for (const kit::CodeRange& range : face.range_memory) {
        require(range.first >= next_code && range.last >= range.first, "ranges out of order");
        require(range.last <= 0x10FFFF, "a code outside Unicode");
        require(range.index == next_index, "ranges that do not follow one another");
        next_code = range.last + 1;
        next_index += next_code - range.first;
    }
    require(next_index == face.glyph_memory.size(), "letters without a code");
    for (const kit::ReadGlyph& glyph : face.glyph_memory) {
        require(glyph.width >= 0 && glyph.height >= 0 && glyph.advance >= 0, "a negative size");
        glyph.is_strokes ? check_strokes(face, glyph) : check_rows(face, glyph);
    }
}

void check_measures(const kit_face* face) {
    require(kit_face_ascent(face) >= 0 && kit_face_descent(face) >= 0, "a negative measure");
    require(kit_face_line(face) >= 1 && kit_face_line(face) <= 12288, "an odd height of lines");
    require(kit_face_cap(face) >= 0 && kit_face_cap(face) <= 8192, "an odd height of capitals");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    char why[64];
    std::memset(why, '\n', sizeof why);
    kit_face* const face = kit_face_read(data, size, why, sizeof why);
    if (!face) {
        const void* const end = std::memchr(why, '\0', sizeof why);
        require(end && why[0] != '\0' && !std::strchr(why, '\n'), "a refusal without a reason");
        return 0;
    }
    require(why[0] == '\n', "a reason without a refusal");
    check_letters(static_cast<const kit::OwnedFace&>(*face), size);
    check_measures(face);
    static orvel_canvas* const canvas = kit_canvas(64, 64);
    const kit_box box = {4, 4, 50, 50};
    kit_text_draw(canvas, face, "AB \xEF\xBF\xBD", 3, 20, {1, 2, 3, 255});
    kit_text_wrap(canvas, face, "A B\n\x01 A", box, KIT_CENTRE, {4, 5, 6, 255});
    kit_face* const chain = kit_face_fallback(face, kit_sans_12());
    require(chain && kit_face_has(chain, 'A') == 1, "a chain that lacks a letter");
    kit_face_close(chain);
    kit_face_close(face);
    return 0;
}
