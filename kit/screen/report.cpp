// What a careful look would find wrong with a screen.
#include <algorithm>
#include <map>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "screen/contrast.h"
#include "screen/fits.h"
#include "screen/items.h"
#include "screen/node.h"
#include "screen/number.h"
#include "screen/shown.h"

namespace kit {
namespace {

std::string tenths(int number) {
    return std::to_string(number / 10) + '.' + std::to_string(number % 10);
}

bool holds(const kit_box& outer, const kit_box& inner) { return same(meet(outer, inner), inner); }

/// What lies under a node, as far as that is one colour.
Paint ground_of(const Nodes& nodes, int i) {
    const kit_box box = at(nodes, i).visible;
    for (int child = i; child > 0; child = at(nodes, child).parent) {
        const Node& parent = at(nodes, at(nodes, child).parent);
        Paint under = {};
        bool unclear = false;
        if (parent.axis() < 0) {  // what was drawn before may lie under it
            for (int k = at(nodes, child).parent + 1; k < child; ++k) {
                const Node& other = at(nodes, k);
                if (!paints(other) || is_empty(meet(other.visible, box))) continue;
                const bool plain = other.is(Sort::Rect) && holds(other.visible, box);
                unclear = !plain;
                under = plain ? other.color : Paint{};
            }
        }
        if (unclear) return {};
        if (under.there) return under;
        if (parent.frames()) return {true, parent.look.theme.surface};
        if (parent.ground.there) return parent.ground;
    }
    return {true, nodes.front().look.theme.background};
}

/// How many of a list of numbers lie outside; those that are missing do not.
int outside(const std::vector<double>& numbers, double low, double high) {
    return static_cast<int>(std::count_if(numbers.begin(), numbers.end(), [=](double number) {
        return number < low || number > high;
    }));
}

std::string hex(orvel_color color) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (const int channel : {color.r, color.g, color.b}) {
        text += kDigits[channel / 16];
        text += kDigits[channel % 16];
    }
    return text;
}

class Reporter {
public:
    Reporter(const Nodes& nodes, const kit_format* panel) : nodes_(nodes), panel_(panel) {}

    void node(int i) {
        const Node& node = at(nodes_, i);
        id(i, node);
        if (node.hidden) return;
        if (node.parent >= 0) overflow(i, node, at(nodes_, node.parent));
        if (node.unknown) tell(i, "unknown: there is no " + in_quotes(node.text));
        if (is_empty(node.visible)) return;
        chosen(i, node);
        range(i, node);
        words(i, node);
        const std::string what = lost(node);
        if (!what.empty()) tell(i, "cut: " + what);
        contrast(i, node);
        target(i, node);
        shortcut(i, node);
    }

    std::string text;

private:
    void tell(int i, const std::string& what) {
        const Node& node = at(nodes_, i);
        text += kit::line_of(*node.source, node.place, path_of(nodes_, i), what) + '\n';
    }

    /// Ids that two nodes of one scene file have; what is included twice has its own each time.
    void id(int i, const Node& node) {
        if (node.id.empty()) return;
        int include = node.parent;
        while (include >= 0 && !at(nodes_, include).is(Sort::Include)) {
            include = at(nodes_, include).parent;
        }
        const auto [first, fresh] = ids_.try_emplace({include, node.id}, i);
        if (fresh) return;
        tell(i, "id: " + in_quotes(node.id) + " is that of " + path_of(nodes_, first->second) +
                    ", too");
    }

    void overflow(int i, const Node& node, const Node& parent) {
        const kit_box room = parent.inside(), box = node.box;
        const bool across = parent.scroll && parent.axis() == kAcross;
        const bool down = parent.scroll && parent.axis() == kDown;
        const int right = box.x + box.w - room.x - room.w, below = box.y + box.h - room.y - room.h;
        const std::string beyond = " pixels beyond the ";
        if (right > 0 && !across && box.h > 0) {
            tell(i, "overflow: " + std::to_string(right) + beyond + "right of its parent");
        }
        if (below > 0 && !down && box.w > 0) {
            tell(i, "overflow: " + std::to_string(below) + beyond + "bottom of its parent");
        }
    }

    /// -1 chooses none.
    void choice(int i, const char* key, int number, int count) {
        if (number >= -1 && number < std::max(count, 1)) return;
        std::string most;
        if (count > 1) most = " to " + std::to_string(count - 1);
        tell(i,
             "range: " + in_quotes(key) + " is " + std::to_string(number) + ", expected 0" + most);
    }

    void chosen(int i, const Node& node) {
        if (node.show != kAll) choice(i, "show", node.show, node.shown_of);
        const bool items = node.kind->value == Type::Items;
        if (items) choice(i, "selected", node.amount, count_items(node.text));
        if (!items && node.counts) choice(i, "selected", node.amount, count_items(node.items));
    }

    void range(int i, const Node& node) {
        const auto& [low, high] = node.ends;
        if (low.empty()) return;
        const std::string& number = node.is_widget(ORVEL_WIDGET_STEPPER) ? node.text : node.written;
        const bool beyond = is_number(number) &&
                            (compare_numbers(number, low) < 0 || compare_numbers(number, high) > 0);
        const bool chart = node.is(Sort::Chart);  // others keep their numbers as parts of the range
        int count = outside(node.numbers, chart ? node.low : 0, chart ? node.high : 1);
        for (const NodeSeries& one : node.series) count += outside(one.values, node.low, node.high);
        const std::string range = " outside " + low + " to " + high;
        if (beyond) tell(i, "range: " + number + " lies" + range);
        const char* const lie = count == 1 ? " of its values lies" : " of its values lie";
        if (count > 0) tell(i, "range: " + std::to_string(count) + lie + range);
    }

    void words(int i, const Node& node) {
        const bool names_a_file = node.is(Sort::Picture) || node.is_widget(ORVEL_WIDGET_IMAGE);
        const std::string& shown = node.text;
        if (shown.empty() || names_a_file || node.is(Sort::Icon)) return;
        const int missing = kit_text_missing(node.look.face, shown.c_str());
        if (missing == 0) return;
        tell(i, "missing: " + std::to_string(missing) + " characters of " + in_quotes(shown) +
                    " are not in the face");
    }

    void contrast(int i, const Node& node) {
        constexpr int kLargeCap = 17;  // the capitals of letters of 24 pixels
        const bool has_words = node.is(Sort::Text) || node.is_widget(ORVEL_WIDGET_LABEL);
        if (!has_words || node.text.empty()) return;
        const Paint ground = node.ground.there ? node.ground : ground_of(nodes_, i);
        if (!ground.there) return;
        const orvel_color ink = node.color.there ? node.color.color : node.look.theme.text;
        const orvel_color shown = panel_.shown(ink);
        const bool mixed = shown.r != ink.r || shown.g != ink.g || shown.b != ink.b;
        if (panel_.mixes() && mixed) {
            return tell(i,
                        "contrast: " + hex(ink) + " is no colour of the panel, and becomes dots");
        }
        const bool large = kit_face_cap(node.look.face) >= kLargeCap;
        const int least = large ? kLeastLargeContrast : kLeastContrast;
        const int there = contrast_of(shown, panel_.shown(ground.color));
        if (there < least) {
            tell(i, "contrast: " + tenths(there) + " to 1, " + tenths(least) + " is the least");
        }
    }

    /// What can be used may be smaller only where the kit makes it so.
    void target(int i, const Node& node) {
        constexpr int kLeast = 24;
        const bool small = node.box.w < kLeast || node.box.h < kLeast;
        if (!small || !node.is_usable()) return;
        kit_widget widget = widget_of(node);
        int w = 0, h = 0;
        kit_size(&widget, &w, &h);
        if (node.box.w >= std::min(w, kLeast) && node.box.h >= std::min(h, kLeast)) return;
        tell(i, "target: " + std::to_string(node.box.w) + " x " + std::to_string(node.box.h) +
                    " pixels, 24 x 24 are the least");
    }

    /// A key has one effect, that of the first.
    void shortcut(int i, const Node& node) {
        if (node.shortcut.key == 0 || !node.is_usable()) return;
        const auto [first, fresh] =
            keys_.try_emplace({node.shortcut.key, node.shortcut.modifiers}, i);
        if (!fresh) tell(i, "key: it is that of " + path_of(nodes_, first->second) + ", too");
    }

    const Nodes& nodes_;
    const Panel panel_;
    std::map<std::pair<int, unsigned>, int> keys_;
    std::map<std::pair<int, std::string>, int> ids_;
};

}  // namespace

std::string report(const Nodes& nodes, const kit_format* panel) {
    Reporter reporter(nodes, panel);
    for (int i = 0; i < nodes.front().end; ++i) reporter.node(i);  // not what pops up
    return reporter.text;
}

}  // namespace kit
