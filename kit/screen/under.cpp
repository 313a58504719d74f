#include "screen/under.h"

#include "screen/live.h"

namespace kit {
namespace {

/// Whether what is drawn below a node is out of reach: words and signs let the pointer through.
bool covers(const Node& node) {
    if (node.ground.there || node.frames() || node.is_control()) return true;
    return node.is(Sort::Rect) || node.is(Sort::Picture) || node.is_widget(ORVEL_WIDGET_IMAGE);
}

}  // namespace

int control_under(const Nodes& nodes, int x, int y) {
    for (int i = count_of(nodes) - 1; i >= 0; --i) {
        const Node& node = at(nodes, i);
        if (node.hidden || !contains(node.visible, x, y) || !covers(node)) continue;
        return node.is_usable() ? i : -1;
    }
    return -1;
}

Tag hovered_by(const Nodes& nodes, const Live& live) {
    if (!live.inside) return 0;
    const int control = control_under(nodes, live.x, live.y);
    const Tag tag = control < 0 ? 0 : at(nodes, control).tag;
    return live.held.tag == 0 || live.held.tag == tag ? tag : 0;
}

}  // namespace kit
