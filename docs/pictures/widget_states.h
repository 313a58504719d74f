// Every widget in every state that it shows.
#pragma once

#include <string>
#include <vector>

#include "orvel_kit.h"

namespace manual {

/// One state: its record, and the source text of that.
struct WidgetState {
    std::string name, code;
    kit_widget record;
};

struct WidgetKind {
    std::string name, about;
    std::vector<WidgetState> states;
};

const std::vector<WidgetKind>& widget_kinds();

}  // namespace manual
