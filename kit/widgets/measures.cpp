#include "widgets/measures.h"

#include <algorithm>

namespace kit {

Measures measures_of(const kit_face* face) {
    // A face that was read may claim anything; what is larger than this is drawn cut.
    constexpr int kTallest = 4096;
    const int cap = std::clamp(kit_face_cap(face), 1, kTallest);
    const int above = std::clamp(kit_face_ascent(face) - cap, 0, kTallest);
    const int below = std::clamp(kit_face_descent(face), 0, kTallest);
    Measures m;
    m.cap = cap;
    m.letters = cap + 2 * std::max(above, below);
    m.pad = 3 + cap / 3;
    m.mark = odd(std::max(9, cap + 5));
    m.icon = std::max(16, cap + 7);
    m.row = std::max(m.icon, m.letters) + 8;
    m.band = std::max(12, m.letters + 4);  // 12 is the library's own
    m.pill = odd(std::max(11, cap + 7));
    m.wide = 10 * m.mark;
    return m;
}

}  // namespace kit
