// Finding letters, and what a face tells of itself.
#include <algorithm>
#include <memory>

#include "words/face_data.h"

namespace kit {

Found find_in_ranges(const kit_face& face, char32_t code) {
    const auto is_below = [code](const CodeRange& range) { return range.last < code; };
    // What texts are written in is among the first ranges, signs among the others.
    const std::uint32_t count = face.range_count;
    std::uint32_t most = 2;
    while (most < count && is_below(face.ranges[most])) most *= 2;
    const CodeRange* const range =
        std::partition_point(face.ranges + most / 2, face.ranges + std::min(most, count), is_below);
    const bool found = range != face.ranges + count && code >= range->first;
    return found ? found_at(face, *range, code) : Found{};
}

Found find_in_chain(const kit_face& chain, char32_t code) {
    Found found;
    for (int i = 0; i < chain.chained && !found.face; ++i) {
        found = find_glyph(*chain.chain[i], code);
    }
    return found;
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
