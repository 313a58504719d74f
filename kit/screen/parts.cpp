#include "screen/parts.h"

#include <algorithm>

#include "screen/items.h"

namespace kit {
namespace {

int odd(int size) { return size - (size % 2 == 0 ? 1 : 0); }

}  // namespace

int item_at(const Node& node, int x) {
    const int count = count_items(node.text);
    const int width = count > 0 ? node.inside().w / count : 0;
    const int from = x - node.inside().x;
    if (width < 1 || from < 0 || from / width >= count) return -1;
    return from / width;
}

int stars_at(const Node& node, int x) {
    const kit_box box = node.inside();
    int first = box.x, pitch = 10, side = 5;  // the library's own
    if (box.h >= 16) {
        const int pad = 3 + kit_face_cap(node.look.face) / 3;
        first += 3;
        side = odd(std::clamp((box.w - 6) / 5, 1, box.h - 6));
        pitch = std::max(side, std::min(side + pad / 2, (box.w - 6 - side) / 4));
    }
    if (x < first) return 0;
    const int gap = pitch - side;  // half of it belongs to each of two stars
    return std::clamp((x - first + gap / 2) / pitch + 1, 1, 5);
}

int side_at(const Node& node, int x) {
    const kit_box box = node.inside();
    if (x < box.x + std::min(box.h, box.w / 2)) return -1;
    return x >= box.x + box.w - std::min(box.h, box.w / 2) ? 1 : 0;
}

Rail rail_of(const Node& node) {
    kit_widget widget = widget_of(node);
    const kit_box box = node.inside();
    int mark = 0;
    kit_size(&widget, nullptr, &mark);  // which is as high as its knob
    const int side = odd(std::min({mark, box.w, box.h}));
    const int length = std::max(0, box.w - side);
    const double part = std::clamp(node.value, 0.0, 1.0);
    const int start = box.x + side / 2;
    return {start, length, start + static_cast<int>(part * length), side / 2};
}

}  // namespace kit
