// Finding letters, and what a face tells of itself.
#include <algorithm>
#include <memory>

#include "words/face_data.h"

namespace kit {
namespace {

template <typename Record>
Glyph glyph_of(const Record& from, const unsigned char* bits) {
    const int advance = static_cast<int>(from.advance);
    return {advance, from.left, from.top, from.width, from.height, bits + from.offset};
}

/// In a face that is no chain.
Found find_letter(const kit_face& face, std::uint32_t code) {
    const CodeRange* const end = face.ranges + face.range_count;
    const auto is_below = [code](const CodeRange& range) { return range.last < code; };
    // Most texts are of the first range, Basic Latin. There is one: no face is without letters.
    const CodeRange* range = face.ranges;
    if (code > range->last) range = std::partition_point(range, end, is_below);
    if (range == end || code < range->first) return {};
    const std::uint32_t index = range->index + (code - range->first);
    return {&face, index,
            face.baked ? glyph_of(face.baked[index], face.bits)
                       : glyph_of(face.read[index], face.bits)};
}

}  // namespace

Found find_glyph(const kit_face& face, char32_t code) {
    if (face.chained == 0) return find_letter(face, code);
    Found found;
    for (int i = 0; i < face.chained && !found.face; ++i) {
        found = find_letter(*face.chain[i], code);
    }
    return found;
}

int kerning(const Found& left, const Found& right) {
    if (!left.face || left.face != right.face) return 0;
    const Kerning& kerning = left.face->kerning;
    if (!kerning.distance) return 0;
    return kerning
        .distance[kerning.row[left.index] * kerning.columns + kerning.column[right.index]];
}

}  // namespace kit

void kit_face_close(kit_face* face) {
    const bool owned = face && face->closable;
    const std::unique_ptr<kit::OwnedFace> closed(owned ? static_cast<kit::OwnedFace*>(face)
                                                       : nullptr);
}

int kit_face_ascent(const kit_face* face) { return kit::face_or_default(face).ascent; }

int kit_face_descent(const kit_face* face) { return kit::face_or_default(face).descent; }

int kit_face_line(const kit_face* face) { return kit::face_or_default(face).line; }

int kit_face_cap(const kit_face* face) { return kit::face_or_default(face).cap; }

int kit_face_has(const kit_face* face, unsigned int code) {
    return kit::find_glyph(kit::face_or_default(face), code).face != nullptr;
}
