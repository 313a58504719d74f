#include "widget_states.h"

namespace manual {
namespace {

std::vector<WidgetKind> all_kinds() {
    std::vector<WidgetKind> kinds;
#define KIND(name, about) kinds.push_back({name, about, {}})
#define STATE(name, ...) kinds.back().states.push_back({name, #__VA_ARGS__, {__VA_ARGS__}})
#define ROW()
#include "gallery_widgets.h"
    return kinds;
}

}  // namespace

const std::vector<WidgetKind>& widget_kinds() {
    static const std::vector<WidgetKind> all = all_kinds();
    return all;
}

}  // namespace manual
