#include "screen/turn.h"

#include <tuple>
#include <utility>

#include "screen/data.h"
#include "screen/number.h"
#include "screen/under.h"

namespace kit {
namespace {

/// All that nodes show of it.
auto shown_of(const Live& live) {
    return std::tie(live.hovered, live.held.tag, live.held.over, live.focused, live.ring);
}

/// Whether two values are the same, numbers by their size.
bool same(const Value& a, const Value& b) {
    if (a.kind == Kind::Number && b.kind == Kind::Number) {
        return compare_numbers(a.text, b.text) == 0;
    }
    return a.kind == b.kind && a.truth == b.truth && a.text == b.text && a.items.empty() &&
           b.items.empty();
}

}  // namespace

void Turn::set(const Node& control, Value value) {
    Wish& wish = wish_.emplace();
    wish.change = {KIT_CHANGE_VALUE, control.id, control.target, write_json(value)};
    wish.value = std::move(value);
}

void Turn::tell(const Node& node, int kind) { changes_.push_back({kind, node.id, "", "null"}); }

bool Turn::grant(const Wish& wish) {
    if (wish.change.name.empty()) return true;
    const Value& now = made_ && made_->data ? *made_->data : screen_.data;
    Path path;
    std::string why;
    read_path(wish.change.name, path, why);  // which a node's reference has been
    const Scope scope = {&now};
    const Value* there = look_up(path, scope);
    if (there && same(*there, wish.value)) return false;
    Value data = now;
    if (!set_value(data, path, wish.value, why)) return false;
    Live after = live;
    try {
        Nodes nodes = kit::shown(screen_.sources, data, screen_.size, after);
        made_.emplace(Made{std::move(data), std::move(nodes)});
    } catch (const Refused&) {  // of what would show
        return false;
    }
    live = std::move(after);
    return true;
}

void Turn::settle() {
    if (wish_) {
        const Wish wish = *std::exchange(wish_, std::nullopt);
        if (grant(wish)) changes_.push_front(wish.change);
    }
    Live after = live;
    after.hovered = hovered_by(nodes(), after);
    if (shown_of(after) == shown_of(screen_.live) && !made_) {
        live = std::move(after);
        return;
    }
    Made made = made_ ? std::move(*made_) : Made{std::nullopt, screen_.nodes};
    enliven(made.nodes, after);
    made_ = std::move(made);
    live = std::move(after);
}

void Turn::finish(kit_screen& screen) {
    if (made_) {
        screen.damage = join(screen.damage, difference(screen.nodes, made_->nodes));
        screen.nodes = std::move(made_->nodes);
        if (made_->data) screen.data = std::move(*made_->data);
    }
    screen.live = std::move(live);
    screen.changes.add(std::move(changes_));
}

}  // namespace kit
