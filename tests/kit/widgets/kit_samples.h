// Every kind of widget as the kit draws it, with what it usually shows.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "orvel_kit.h"

namespace orvel_test {

constexpr int kKinds = 28;

/// The usual record of each kind, by its code, at (2, 2): words, an icon, a value, a box as large
/// as kit_size() says, or a small one for what has no size of its own.
const std::vector<kit_widget>& usual_widgets();

/// The name of a kind, "list item" for instance.
const char* name_of_kind(int kind);

/// What makes a picture different, and its name.
const std::vector<std::pair<unsigned, std::string>>& widget_states();

}  // namespace orvel_test
