#include "screen/turn.h"

#include <utility>

#include "screen/data.h"
#include "screen/number.h"
#include "screen/under.h"

namespace kit {
namespace {

/// Whether a value, which is no list or object, is there already; numbers by their size.
bool same(const Value& a, const Value& b) {
    if (a.kind == Kind::Number && b.kind == Kind::Number) {
        return compare_numbers(a.text, b.text) == 0;
    }
    return a.kind == b.kind && a.truth == b.truth && a.text == b.text;
}

}  // namespace

void Turn::set(const Node& control, Value value) {
    Wish& wish = wish_.emplace();
    wish.change = {KIT_CHANGE_VALUE, control.id, control.target, write_json(value)};
    wish.value = std::move(value);
}

void Turn::tell(const Node& node, int kind, const std::string& value) {
    later_.push_back({kind, node.id, "", value});
}

void Turn::sound(const Node& control) {
    if (control.sound.empty()) return;
    tell(control, KIT_CHANGE_SOUND, write_json(text_value(control.sound)));
}

bool Turn::grant(const Wish& wish) {
    if (wish.change.name.empty()) return true;
    const Value& now = made_ && made_->data ? *made_->data : screen_.data;
    Path path;
    std::string why;
    read_path(wish.change.name, path, why);  // which the path of a reference has been
    const Scope scope = {&now};
    const Value* there = look_up(path, scope);  // the control shows it
    if (same(*there, wish.value)) return false;
    Value data = now;
    set_value(data, path, wish.value, why);
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
    bool settled = false;
    if (wish_) {
        Wish wish = std::move(*wish_);
        wish_.reset();
        const bool granted = grant(wish);
        settled = granted && !wish.change.name.empty();  // the nodes are new
        if (granted) changes_.push_back(std::move(wish.change));
    }
    changes_.splice(changes_.end(), later_);
    if (settled) return;
    Live after = live;
    find_under(nodes(), after);
    if (made_ || !same_looks(after, screen_.live)) {
        if (!made_) made_.emplace(Made{std::nullopt, screen_.nodes});
        enliven(made_->nodes, after);
    }
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
