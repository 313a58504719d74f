// Every widget in every state that it shows.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "orvel.h"

namespace manual {

/// One state: how large a canvas shows it, the code that made it, and that code.
struct WidgetState {
    std::string name;
    int width, height;
    std::string code;
    std::function<orvel_widget*(orvel_canvas*, const orvel_theme&)> make;
};

struct WidgetKind {
    std::string name, about;
    std::vector<WidgetState> states;
};

const std::vector<WidgetKind>& widget_kinds();

}  // namespace manual
