// The list of a dropdown, from its opening to the item that is taken.
#include <algorithm>

#include "screen/items.h"
#include "screen/popup.h"
#include "screen/scroll.h"
#include "screen/turn.h"

namespace kit {

void open_list(Turn& turn, const Node& dropdown) {
    Live& live = turn.live;
    const int chosen = dropdown.chosen_item();
    live.open = {dropdown.tag, chosen, std::max(chosen, 0)};
    live.tip.spent = true;
    forget_scrolled(live, list_tag(0));
}

void close_list(Turn& turn) {
    turn.live.open = {};
    forget_scrolled(turn.live, list_tag(0));
}

void mark_row(Turn& turn, int row) {
    turn.live.open.marked = row;
    reveal_row(turn.nodes(), turn.live, row);
}

void take_row(Turn& turn, int row) {
    const Node& dropdown = at(turn.nodes(), find_node(turn.nodes(), turn.live.open.tag));
    close_list(turn);
    if (has_item(dropdown.items, row)) choose(turn, dropdown, row);
}

}  // namespace kit
