// What a host does, and what the manual says of it when calls of the library fail.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "whole/torture/host.h"

namespace orvel_test::torture {

/// What the host tells when one call fails: "open" is every call of open, "open 2" the second,
/// "read short" every call of read that brings a part of the bytes, "read half" half of them.
/// The first rule that fits holds.
struct Rule {
    std::string call;
    std::string told;                 // when this call alone fails
    std::string told_from_then = "";  // when all later ones fail as well; the same unless given
};

struct Scenario {
    std::string name;
    std::function<void(Host&)> act;
    std::string told;         // when nothing fails, and when a call fails that no rule fits
    std::vector<Rule> rules;  // each must be needed
    bool in_new_process = false;
};

using Scenarios = std::vector<Scenario>;

/// The rules of both lists.
std::vector<Rule> with(std::vector<Rule> rules, const std::vector<Rule>& more);
/// The scenarios of all @p lists.
Scenarios joined(const std::vector<Scenarios>& lists);

Scenarios core_scenarios();
Scenarios canvas_scenarios();
Scenarios text_scenarios();
Scenarios icon_scenarios();
Scenarios theme_scenarios();
Scenarios widget_scenarios();
Scenarios sound_scenarios();

}  // namespace orvel_test::torture
