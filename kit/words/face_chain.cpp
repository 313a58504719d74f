// Chains of faces.
#include <algorithm>
#include <memory>
#include <new>

#include "words/face_data.h"

namespace {

int count_of(const kit_face& face) { return face.chained == 0 ? 1 : face.chained; }

/// Appends @p face, or the faces that it is a chain of.
void append(kit_face& chain, const kit_face& face) {
    for (int i = 0; i < count_of(face); ++i) {
        chain.chain[chain.chained++] = face.chained == 0 ? &face : face.chain[i];
    }
}

}  // namespace

kit_face* kit_face_fallback(const kit_face* first, const kit_face* second) {
    if (!first || !second || count_of(*first) + count_of(*second) > kit::kMostFaces) return nullptr;
    std::unique_ptr<kit::OwnedFace> owned(new (std::nothrow) kit::OwnedFace());
    if (!owned) return nullptr;
    kit_face& chain = *owned;
    append(chain, *first);
    append(chain, *second);
    chain.ascent = std::max(first->ascent, second->ascent);
    chain.descent = std::max(first->descent, second->descent);
    chain.line = std::max({first->line, second->line, chain.ascent + chain.descent});
    chain.cap = first->cap;
    chain.closable = true;
    return owned.release();
}
