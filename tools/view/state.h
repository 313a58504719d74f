// What a scene that is read anew keeps of the one before.
#pragma once

#include <set>
#include <string>

#include "orvel_screen.h"

namespace orvel_tools {

/// The id of the node with the keyboard, by what the screen says of itself; empty when none has it.
std::string focused(kit_screen* screen);

/// Gives @p to the values of @p names that @p from has, and the keyboard to the same node, as far
/// as it has them, too.
void carry_over(kit_screen* from, kit_screen* to, const std::set<std::string>& names);

}  // namespace orvel_tools
