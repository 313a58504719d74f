#include "screen/values.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "screen/look.h"
#include "screen/refusal.h"
#include "screen/shortcut.h"

namespace kit {
namespace {

bool is_name(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), in_name);
}

bool is_side(const Value& value) { return whole_between(value, 0, kMostSide); }
bool is_words(const Value& value) {
    return value.kind == Kind::String || value.kind == Kind::Number;
}

template <typename Fits>
bool all_of(const Value& value, const Fits& good) {
    return value.kind == Kind::List && std::all_of(value.items.begin(), value.items.end(), good);
}

bool is_pad(const Value& value) {
    const std::size_t count = value.items.size();
    return is_side(value) || (all_of(value, is_side) && (count == 2 || count == 4));
}

bool is_gap(const Value& value) {
    return is_side(value) || (all_of(value, is_side) && value.items.size() == 2);
}

bool is_bounds(const Value& value) {
    const auto is_open = [](const Value& side) { return side.kind == Kind::Null || is_side(side); };
    return is_side(value) || (all_of(value, is_open) && value.items.size() == 2);
}

bool is_number_value(const Value& value) { return value.kind == Kind::Number; }

bool is_range(const Value& value) {
    const std::size_t count = value.items.size();
    if (!all_of(value, is_number_value) || (count != 2 && count != 3)) return false;
    const bool steps = count == 2 || value.items[2].number > 0;
    return steps && value.items[0].number < value.items[1].number &&
           std::isfinite(value.items[1].number - value.items[0].number);
}

bool is_color(const Value& value) {
    const Look any;
    orvel_color color;
    return value.kind == Kind::String && read_color(value.text, any, color);
}

bool is_theme(const Value& value) {
    if (value.kind == Kind::String) return true;
    orvel_theme theme;
    return value.kind == Kind::Object &&
           std::all_of(value.items.begin(), value.items.end(), [&](const Value& member) {
               orvel_color color;
               return role_of(theme, member.key) && member.kind == Kind::String &&
                      read_hex(member.text, color);
           });
}

bool is_item(const Value& value) {
    return is_words(value) && value.text.find('|') == std::string::npos;
}

bool is_number_or_null(const Value& value) {
    return value.kind == Kind::Null || value.kind == Kind::Number;
}

bool is_numbers(const Value& value) { return all_of(value, is_number_or_null); }

/// What a member of a series has to be, if there is one of that name.
std::optional<Type> type_in_series(std::string_view key) {
    if (key == "values") return Type::Numbers;
    if (key == "name") return Type::Words;
    if (key == "color") return Type::Color;
    return std::nullopt;
}

bool is_one_series(const Value& value) {
    if (value.kind != Kind::Object || !value.find("values")) return false;
    return std::all_of(value.items.begin(), value.items.end(), [](const Value& member) {
        const std::optional<Type> type = type_in_series(member.key);
        return type && fits(*type, member);
    });
}

bool is_choice(Type type, const Value& value) {
    const auto choices = choices_of(type);
    return value.kind == Kind::String &&
           std::find(choices.begin(), choices.end(), value.text) != choices.end();
}

bool is_series(const Value& value) {
    return all_of(value, is_one_series) && value.items.size() <= std::size_t{kMostSeries};
}

bool is_nothing(const Value& value) {
    return value.kind == Kind::Null || (value.kind == Kind::Boolean && value.truth);
}

/// The first member that is no role with a colour.
void refuse_role(const Trail& trail, const Value& value) {
    orvel_theme theme;
    orvel_color color;
    std::vector<std::string_view> roles = role_names();
    roles.pop_back();                          // "quiet" is mixed of others
    for (const Value& member : value.items) {  // GCOVR_EXCL_BR_LINE: one of them is wrong
        const Trail into = trail.into(member.key);
        if (!role_of(theme, member.key)) {
            refuse(into, member.key_place,
                   "unknown role of a theme" + did_you_mean(member.key, roles));
        }
        if (member.kind != Kind::String || !read_hex(member.text, color)) {
            refuse(into, member.place, found(member) + ", expected a colour, \"#rrggbb\"");
        }
    }
}

/// The first item that a list of texts or numbers may not have.
void refuse_item(const Trail& trail, Type type, const Value& value) {
    int number = 0;
    for (const Value& item : value.items) {  // GCOVR_EXCL_BR_LINE: one of them is wrong
        const bool good = type == Type::Items ? is_item(item) : is_number_or_null(item);
        if (!good) {
            refuse(trail.into(number), item.place,
                   found(item) + (type == Type::Items ? ", expected a text without \"|\""
                                                      : ", expected a number or null"));
        }
        ++number;
    }
}

void check_in_series(const Trail& trail, const Value& member) {
    const std::optional<Type> type = type_in_series(member.key);
    if (!type) {
        refuse(trail, member.key_place,
               "unknown key of a series" + did_you_mean(member.key, {"values", "name", "color"}));
    }
    if (!fits(*type, member)) refuse_misfit(trail, *type, member);
}

/// The first thing that a list of series may not have.
void refuse_series(const Trail& trail, const Value& list) {
    if (list.items.size() > std::size_t{kMostSeries}) {
        refuse(trail, list.place,
               "found " + std::to_string(list.items.size()) + " series, " +
                   std::to_string(kMostSeries) + " are the most");
    }
    int number = 0;
    for (const Value& one : list.items) {  // GCOVR_EXCL_BR_LINE: one of them is wrong
        const Trail into = trail.into(number++);
        if (one.kind != Kind::Object) {
            refuse(into, one.place,
                   found(one) + ", expected an object with values, name and color");
        }
        for (const Value& member : one.items) check_in_series(into.into(member.key), member);
        if (!one.find("values")) refuse(into, one.place, "found a series without \"values\"");
    }
}

}  // namespace

bool whole_between(const Value& value, double low, double high) {
    return value.kind == Kind::Number && value.number >= low && value.number <= high &&
           value.number == std::floor(value.number);
}

bool is_inside_name(std::string_view name) {
    if (name.empty() || name.find_first_of("\\:") != std::string_view::npos) return false;
    while (true) {  // each step between two slashes
        const std::size_t slash = std::min(name.find('/'), name.size());
        const std::string_view step = name.substr(0, slash);
        if (step.empty() || step == "." || step == "..") return false;
        if (slash == name.size()) return true;
        name.remove_prefix(slash + 1);
    }
}

bool as_written(Type type) {
    return type == Type::Name || type == Type::Where || type == Type::Condition ||
           type == Type::File || type == Type::Shortcut || type == Type::Anything;
}

bool fits(Type type, const Value& value) {
    const bool text = value.kind == Kind::String;
    switch (type) {  // GCOVR_EXCL_BR_LINE: there are no others
    case Type::Anything: return true;
    case Type::Nodes: return value.kind == Kind::List;
    case Type::Node: return value.kind == Kind::Object || value.kind == Kind::Null;
    case Type::Nothing: return is_nothing(value);
    case Type::Room: return value.kind == Kind::Null || is_side(value);
    case Type::Words: return is_words(value);
    case Type::Items: return all_of(value, is_item);
    case Type::Number: return value.kind == Kind::Number;
    case Type::Numbers: return is_numbers(value);
    case Type::Truth: return value.kind == Kind::Boolean;
    case Type::Side:
    case Type::Whole: return is_side(value);
    case Type::Length: return whole_between(value, 1, kMostSide);
    case Type::Digit: return whole_between(value, 0, 9);
    case Type::Index: return whole_between(value, -2147483647, 2147483647);
    case Type::Scalar: return is_words(value) || value.kind == Kind::Boolean;
    case Type::Pad: return is_pad(value);
    case Type::Gap: return is_gap(value);
    case Type::Bounds: return is_bounds(value);
    case Type::Range: return is_range(value);
    case Type::Color: return is_color(value);
    case Type::Theme: return is_theme(value);
    case Type::Face: return text;
    case Type::Icon: return text && orvel_icon_exists(value.text.c_str()) == 1;
    case Type::Align:
    case Type::Side3:
    case Type::Justify:
    case Type::Shape: return is_choice(type, value);
    case Type::Scroll: return is_side(value) || value.kind == Kind::Boolean;
    case Type::Series: return is_series(value);
    case Type::Name: return text && is_name(value.text);
    case Type::Where:
    case Type::Condition: return text;
    case Type::File: return text && is_inside_name(value.text);
    case Type::Shortcut: return text && read_shortcut(value.text).key != 0;
    case Type::With: return value.kind == Kind::Object;
    }
    return false;  // GCOVR_EXCL_LINE: behind that switch
}

void refuse_misfit(const Trail& trail, Type type, const Value& value) {
    if (type == Type::Theme && value.kind == Kind::Object) {
        refuse_role(trail, value);  // GCOVR_EXCL_BR_LINE: throws
    }
    if ((type == Type::Items || type == Type::Numbers) && value.kind == Kind::List) {
        refuse_item(trail, type, value);  // GCOVR_EXCL_BR_LINE: throws
    }
    if (type == Type::Series && value.kind == Kind::List) {
        refuse_series(trail, value);  // GCOVR_EXCL_BR_LINE: throws
    }
    std::string what = found(value) + ", expected ";
    what += expected(type);
    std::vector<std::string_view> known = choices_of(type);
    if (type == Type::Color) known = role_names();
    if (type == Type::Icon) {
        int count = 0;
        const char** const names = orvel_icon_list(&count);
        known.assign(names, names + count);
    }
    if (value.kind == Kind::String) what += did_you_mean(value.text, known);
    refuse(trail, value.place, what);
}

void refuse_bounds(const Trail& trail, const Value& node, const std::string& least,
                   const std::string& most) {
    refuse(trail.into("min"), node.find("min")->place,
           "found " + least + ", which is more than the " + most + " of \"max\"");
}

}  // namespace kit
