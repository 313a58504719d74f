// What a careful look would find wrong with a screen.
#include <algorithm>
#include <cstdint>
#include <string>

#include "screen/node.h"

namespace kit {
namespace {

// The light of a channel, 0 to 65535, by the curve of sRGB (IEC 61966-2-1).
constexpr int kLight[256] = {
    0,     20,    40,    60,    80,    99,    119,   139,   159,   179,   199,   219,   241,
    264,   288,   313,   340,   367,   396,   427,   458,   491,   526,   562,   599,   637,
    677,   718,   761,   805,   851,   898,   947,   997,   1048,  1101,  1156,  1212,  1270,
    1330,  1391,  1453,  1517,  1583,  1651,  1720,  1790,  1863,  1937,  2013,  2090,  2170,
    2250,  2333,  2418,  2504,  2592,  2681,  2773,  2866,  2961,  3058,  3157,  3258,  3360,
    3464,  3570,  3678,  3788,  3900,  4014,  4129,  4247,  4366,  4488,  4611,  4736,  4864,
    4993,  5124,  5257,  5392,  5530,  5669,  5810,  5953,  6099,  6246,  6395,  6547,  6700,
    6856,  7014,  7174,  7335,  7500,  7666,  7834,  8004,  8177,  8352,  8528,  8708,  8889,
    9072,  9258,  9445,  9635,  9828,  10022, 10219, 10417, 10619, 10822, 11028, 11235, 11446,
    11658, 11873, 12090, 12309, 12530, 12754, 12980, 13209, 13440, 13673, 13909, 14146, 14387,
    14629, 14874, 15122, 15371, 15623, 15878, 16135, 16394, 16656, 16920, 17187, 17456, 17727,
    18001, 18277, 18556, 18837, 19121, 19407, 19696, 19987, 20281, 20577, 20876, 21177, 21481,
    21787, 22096, 22407, 22721, 23038, 23357, 23678, 24002, 24329, 24658, 24990, 25325, 25662,
    26001, 26344, 26688, 27036, 27386, 27739, 28094, 28452, 28813, 29176, 29542, 29911, 30282,
    30656, 31033, 31412, 31794, 32179, 32567, 32957, 33350, 33745, 34143, 34544, 34948, 35355,
    35764, 36176, 36591, 37008, 37429, 37852, 38278, 38706, 39138, 39572, 40009, 40449, 40891,
    41337, 41785, 42236, 42690, 43147, 43606, 44069, 44534, 45002, 45473, 45947, 46423, 46903,
    47385, 47871, 48359, 48850, 49344, 49841, 50341, 50844, 51349, 51858, 52369, 52884, 53401,
    53921, 54445, 54971, 55500, 56032, 56567, 57105, 57646, 58190, 58737, 59287, 59840, 60396,
    60955, 61517, 62082, 62650, 63221, 63795, 64372, 64952, 65535,
};

/// 0 to 655350000.
std::int64_t light_of(orvel_color color) {
    return std::int64_t{2126} * kLight[color.r] + std::int64_t{7152} * kLight[color.g] +
           std::int64_t{722} * kLight[color.b];
}

/// The contrast of two colours as WCAG 2.2 defines it, in tenths, cut.
int contrast_of(orvel_color a, orvel_color b) {
    constexpr std::int64_t kFlare = 655350000 / 20;
    const std::int64_t first = light_of(a) + kFlare, second = light_of(b) + kFlare;
    return static_cast<int>(10 * std::max(first, second) / std::min(first, second));
}

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

bool is_control(const Node& node) {
    for (const int kind :
         {ORVEL_WIDGET_BUTTON, ORVEL_WIDGET_TOGGLE, ORVEL_WIDGET_CHECKBOX, ORVEL_WIDGET_SLIDER,
          ORVEL_WIDGET_TEXTBOX, ORVEL_WIDGET_RADIO, ORVEL_WIDGET_DROPDOWN, ORVEL_WIDGET_RATING,
          ORVEL_WIDGET_STEPPER, ORVEL_WIDGET_TABS, ORVEL_WIDGET_LIST_ITEM, ORVEL_WIDGET_MENU,
          ORVEL_WIDGET_SEARCH}) {
        if (node.is_widget(kind)) return true;
    }
    return false;
}

class Reporter {
public:
    explicit Reporter(const Nodes& nodes) : nodes_(nodes) {}

    void node(int i) {
        const Node& node = at(nodes_, i);
        if (node.parent >= 0) overflow(i, node, at(nodes_, node.parent));
        if (node.unknown) tell(i, "unknown: there is no " + in_quotes(node.text));
        if (is_empty(node.visible)) return;
        words(i, node);
        target(i, node);
    }

    std::string text;

private:
    void tell(int i, const std::string& what) {
        const Node& node = at(nodes_, i);
        text += kit::line_of(*node.source, node.place, path_of(nodes_, i), what) + '\n';
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

    void words(int i, const Node& node) {
        const bool names_a_file = node.is(Sort::Picture) || node.is_widget(ORVEL_WIDGET_IMAGE);
        const std::string& shown = node.text;
        if (shown.empty() || names_a_file || node.is(Sort::Icon)) return;
        const int missing = kit_text_missing(node.look.face, shown.c_str());
        if (missing > 0) {
            tell(i, "missing: " + std::to_string(missing) + " characters of " + in_quotes(shown) +
                        " are not in the face");
        }
        if (is_cut(node)) tell(i, "cut: " + in_quotes(shown) + " does not fit");
        contrast(i, node);
    }

    static bool is_cut(const Node& node) {
        if (node.is(Sort::Text) && node.wrap) {
            Node whole = node;
            whole.lines = 0;
            const int height = want_of(whole, kDown);
            return height > node.inside().h || height > want_of(node, kDown);
        }
        const bool scrolls =
            node.is_widget(ORVEL_WIDGET_TEXTBOX) || node.is_widget(ORVEL_WIDGET_SEARCH);
        if (scrolls || node.frames()) return false;
        return want_of(node, kAcross) > node.inside().w;
    }

    void contrast(int i, const Node& node) {
        constexpr int kLargeCap = 17;  // the capitals of letters of 24 pixels
        if (!node.is(Sort::Text)) return;
        const Paint ground = node.ground.there ? node.ground : ground_of(nodes_, i);
        if (!ground.there) return;
        const orvel_color ink = node.color.there ? node.color.color : node.look.theme.text;
        const int least = kit_face_cap(node.look.face) < kLargeCap ? 45 : 30;
        const int there = contrast_of(ink, ground.color);
        if (there < least) {
            tell(i, "contrast: " + tenths(there) + " to 1, " + tenths(least) + " is the least");
        }
    }

    void target(int i, const Node& node) {
        constexpr int kLeast = 24;
        const bool small = node.box.w < kLeast || node.box.h < kLeast;
        if (!small || !is_control(node) || (node.state & KIT_DISABLED) != 0) return;
        tell(i, "target: " + std::to_string(node.box.w) + " x " + std::to_string(node.box.h) +
                    " pixels, 24 x 24 are the least");
    }

    const Nodes& nodes_;
};

}  // namespace

std::string report(const Nodes& nodes) {
    Reporter reporter(nodes);
    for (int i = 0; i < count_of(nodes); ++i) {
        if (!at(nodes, i).hidden) reporter.node(i);
    }
    return reporter.text;
}

}  // namespace kit
