// Values as the keys of nodes take them.
#pragma once

#include "screen/data.h"
#include "screen/kinds.h"
#include "screen/refusal.h"

namespace kit {

constexpr int kMostSeries = 32;  // that kit_chart_draw() takes

/// Whether a value without references is one of this type. What only shows elsewhere is left open:
/// whether a host has a picture, a theme or a face of that name.
bool fits(Type type, const Value& value);

/// Refuses a value of another type: found "strech", expected start, center, end or stretch; did you
/// mean "stretch"? Of a list or a theme, it names the item that is wrong.
[[noreturn]] void refuse_misfit(const Trail& trail, Type type, const Value& value);

/// Refuses a "min" that is more than the "max" beside it.
[[noreturn]] void refuse_bounds(const Trail& trail, const Value& node, const std::string& least,
                                const std::string& most);

/// Whether a text of this type is what it says, without references.
bool as_written(Type type);

/// Whether a scene's folder, or one below it, may hold a file of that name.
bool is_inside_name(std::string_view name);

/// Whether a number is whole and lies in this range.
bool whole_between(const Value& value, double low, double high);

}  // namespace kit
