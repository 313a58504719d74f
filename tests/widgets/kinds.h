// The kinds of widget, each with its constructor, an usual call of it, and its states. This is the
// only list of them beside the header's own: goldens, sweeps, extremes, torture, fuzzing and the
// manual's gallery walk it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/host_function.h"

namespace orvel_test {

/// One widget in one state, and the size of a canvas that shows it with a margin.
struct KindState {
    std::string name;
    int width, height;
    HostArguments arguments;
    // What the host then sets; nothing is set where these are as here.
    int hover = 0, active = 0;
    std::vector<double> data = {};
};

struct WidgetKind {
    const char* title;
    HostFunction constructor;
    std::vector<KindState> edges;  // each with a golden picture
};

/// In the order of orvel_widget_kind.
const std::vector<WidgetKind>& widget_kinds();

/// A widget of the kind, in a state; null when there is no canvas or no theme.
orvel_widget* make_widget(const WidgetKind& kind, const KindState& state, orvel_canvas* canvas,
                          const orvel_theme* theme);

/// An edge with its kind.
struct WidgetEdge : KindState {
    const WidgetKind* kind;

    orvel_widget* make(orvel_canvas* canvas, const orvel_theme* theme) const {
        return make_widget(*kind, *this, canvas, theme);
    }
};

/// The edges of all kinds.
std::vector<WidgetEdge> widget_edges();

struct DestroyWidget {
    void operator()(orvel_widget* widget) const { orvel_widget_destroy(widget); }
};
using WidgetPtr = std::unique_ptr<orvel_widget, DestroyWidget>;

}  // namespace orvel_test
