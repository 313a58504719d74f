// Random trees, whose layout keeps its rules, and which are drawn after a change as if they were
// drawn anew. ORVEL_SWEEP_CASE replays one by its number.
#include <algorithm>

#include "random_screens.h"
#include "screen/build.h"
#include "screens.h"
#include "support/cases.h"

namespace {

using namespace orvel_test;
using kit::Node;
using kit::Nodes;

struct Span {
    int start, end;
};

Span span(const kit_box& box, int axis) {
    return axis == 0 ? Span{box.x, box.x + box.w} : Span{box.y, box.y + box.h};
}

std::vector<const Node*> children_of(const Nodes& nodes, int parent) {
    std::vector<const Node*> children;
    kit::for_children(nodes, parent, [&](int i) { children.push_back(&kit::at(nodes, i)); });
    return children;
}

bool is_free(const Node& node, int axis) {
    const auto side = static_cast<std::size_t>(axis);
    return node.grow > 0 && node.given[side] < 0 && node.least[side] == 0 &&
           node.most[side] == kit::kMostSide;
}

/// No child is smaller or larger than it may be, or of another size than it was given.
void expect_bounds(const Node& node, int axis) {
    const auto side = static_cast<std::size_t>(axis);
    const Span own = span(node.box, axis);
    const int size = own.end - own.start, least = node.least[side];
    EXPECT_GE(size, least);
    EXPECT_LE(size, std::max(least, node.most[side]));
    if (node.given[side] >= 0) {
        EXPECT_EQ(size, std::max(least, std::min(node.most[side], node.given[side])));
    }
}

/// The children of one line: one behind the other with their gaps, inside where they fit, and with
/// nothing left over where one may grow without end.
void expect_line(const Node& parent, const std::vector<const Node*>& line, int axis) {
    const Span room = span(parent.inside(), axis);
    int used = parent.gap[0] * static_cast<int>(line.size() - 1), last = -1;
    bool grows = false;
    for (const Node* child : line) {
        const Span own = span(child->box, axis);
        used += own.end - own.start;
        grows |= child->grow > 0 && child->given[static_cast<std::size_t>(axis)] < 0 &&
                 is_free(*child, axis);
    }
    const bool fits = used <= room.end - room.start;
    int end = room.start - parent.gap[0];
    for (const Node* child : line) {
        const Span own = span(child->box, axis);
        if (!parent.scroll || fits) {
            EXPECT_GE(own.start, end + parent.gap[0]);
        } else if (child != line.front()) {
            EXPECT_EQ(own.start, end + parent.gap[0]);
        }
        EXPECT_TRUE(!fits || own.end <= room.end);
        end = own.end;
        if (!is_free(*child, axis) || child->grow != 1) continue;
        const int size = own.end - own.start;  // of equal growers, the earlier ones have the rest
        if (last >= 0) {
            EXPECT_LE(size, last);
            EXPECT_LE(last, size + 1);
        }
        last = size;
    }
    EXPECT_TRUE(!grows || !fits || end == room.end);
}

/// Across, a child lies inside where it fits.
void expect_across(const Node& child, const Span& room, int axis) {
    const Span own = span(child.box, axis);
    EXPECT_GE(own.start, room.start);
    EXPECT_TRUE(own.end <= room.end || own.end - own.start > room.end - room.start);
}

void expect_lines(const Node& parent, const std::vector<const Node*>& children, int axis) {
    std::vector<const Node*> line;
    int bottom = parent.inside().y;
    for (std::size_t i = 0; i < children.size(); ++i) {
        line.push_back(children[i]);
        if (i + 1 < children.size() && children[i + 1]->row == children[i]->row) continue;
        expect_line(parent, line, axis);
        if (parent.wrap) {  // below the line before
            int next = bottom;
            for (const Node* child : line) {
                EXPECT_GE(child->box.y, bottom);
                next = std::max(next, child->box.y + child->box.h);
            }
            bottom = next + parent.gap[1];
        }
        line.clear();
    }
}

void expect_rules(const Nodes& nodes) {
    for (int i = 0; i < kit::count_of(nodes); ++i) {
        const Node& node = kit::at(nodes, i);
        if (node.hidden || !node.holds_nodes()) continue;
        const auto children = children_of(nodes, i);
        if (children.empty()) continue;
        if (node.axis() >= 0) expect_lines(node, children, node.axis());
        for (const Node* child : children) {
            for (const int axis : {0, 1}) {
                expect_bounds(*child, axis);
                const bool across = axis != node.axis() && !node.wrap;
                if (across) expect_across(*child, span(node.inside(), axis), axis);
            }
            EXPECT_TRUE(kit::same(kit::meet(child->visible, node.visible), child->visible));
        }
    }
}

Nodes laid_out(const std::string& scene, const std::string& data) {
    kit::Sources sources({}, "scene", "", false);
    sources.read(scene);
    kit::check(sources, sources.first());
    kit::Value values;
    std::string why;
    EXPECT_TRUE(kit::read_document(data, "data", values, why)) << why;
    Nodes nodes = kit::build(sources, values);
    const auto& size = sources.first().document.find("size")->items;
    kit::lay_out(nodes, static_cast<int>(size[0].number), static_cast<int>(size[1].number));
    for (Node& node : nodes) node.source = nullptr;  // which goes
    return nodes;
}

/// What was drawn in a part is what would be drawn anew, and the rest is as it was.
void expect_redrawn(kit_screen* screen, RandomScreens& random) {
    const CanvasPtr canvas = drawn(screen);
    const int width = orvel_canvas_width(canvas.get()), height = orvel_canvas_height(canvas.get());
    for (int change = 0; change < 3; ++change) {
        std::string name, to;
        random.change(name, to);
        ASSERT_EQ(set(screen, name.c_str(), to.c_str()), "");
        // What lies outside of the dirty box shows itself by not having this colour.
        const CanvasPtr marked = make_canvas(width, height);
        kit_copy(marked.get(), 0, 0, canvas.get(), nullptr);
        kit_box dirty;
        ASSERT_EQ(kit_screen_draw(screen, canvas.get(), &dirty), 0);
        kit_copy(marked.get(), dirty.x, dirty.y, canvas.get(), &dirty);
        ASSERT_EQ(checksum(marked.get()), checksum(canvas.get())) << "drew outside " << dirty;
        ASSERT_EQ(checksum(drawn(screen).get()), checksum(canvas.get()))
            << name << " = " << to << ", dirty " << dirty;
    }
}

void sweep(std::uint64_t count) {
    for (const std::uint64_t number : some_cases(count)) {
        RandomScreens random(number);
        const std::string text = random.scene(), data = random.data();
        SCOPED_TRACE("case " + std::to_string(number) + "\n" + text + "\n" + data);
        expect_rules(laid_out(text, data));
        if (number % 10 == 0) expect_redrawn(opened(text, data.c_str()).get(), random);
        if (testing::Test::HasFailure()) return;
    }
}

TEST(LayoutSweepTest, RandomTreesKeepTheRules) { sweep(3000); }
TEST(LayoutSweepTest, ManyRandomTreesKeepTheRules) { sweep(100000); }

}  // namespace
