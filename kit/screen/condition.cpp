#include "screen/condition.h"

#include "screen/number.h"

namespace kit {
namespace {

struct Sign {
    std::string_view written;
    Condition::Sign sign;
};

// Longer ones first, since they begin with the shorter ones.
constexpr Sign kSigns[] = {{"==", Condition::Equal},     {"!=", Condition::Unequal},
                           {"<=", Condition::LessEqual}, {">=", Condition::MoreEqual},
                           {"<", Condition::Less},       {">", Condition::More}};

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

/// 'Fog', a number, true, false or null.
bool read_literal(std::string_view text, Value& literal, std::string& why) {
    const bool quoted = text.size() >= 2 && text.front() == '\'' && text.back() == '\'';
    if (quoted) {
        literal.kind = Kind::String;
        literal.text = text.substr(1, text.size() - 2);
        return true;
    }
    std::string ignored;
    const bool word = text == "true" || text == "false" || text == "null";
    if (word || is_number(text)) return read_document(text, "", literal, ignored);
    why = "found " + in_quotes(text) + ", expected a number, 'a text', true, false or null";
    return false;
}

bool is_something(const Value* value) {
    if (!value) return false;
    if (value->kind == Kind::Boolean) return value->truth;
    if (value->kind == Kind::Number) return compare_numbers(value->text, "0") != 0;
    if (value->kind == Kind::String) return !value->text.empty();
    return value->kind == Kind::Object || !value->items.empty();
}

bool equal(const Value& a, const Value& b) {
    if (a.kind != b.kind) return false;
    if (a.kind == Kind::Boolean) return a.truth == b.truth;
    if (a.kind == Kind::Number) return compare_numbers(a.text, b.text) == 0;
    return a.text == b.text;
}

bool in_order(const Value& a, Condition::Sign sign, const Value& b) {
    if (a.kind != b.kind || (a.kind != Kind::Number && a.kind != Kind::String)) return false;
    const int order =
        a.kind == Kind::Number ? compare_numbers(a.text, b.text) : a.text.compare(b.text);
    if (sign == Condition::Less) return order < 0;
    if (sign == Condition::LessEqual) return order <= 0;
    return sign == Condition::More ? order > 0 : order >= 0;
}

}  // namespace

bool read_condition(std::string_view text, Condition& result, std::string& why) {
    result = {};
    std::string_view left = text;
    for (std::size_t at = 1; at < text.size() && result.sign == Condition::Holds; ++at) {
        for (const Sign& sign : kSigns) {
            if (text.substr(at, sign.written.size()) != sign.written) continue;
            result.sign = sign.sign;
            left = text.substr(0, at);
            const std::string_view right = trimmed(text.substr(at + sign.written.size()));
            if (!read_literal(right, result.literal, why)) return false;
            break;
        }
    }
    left = trimmed(left);
    if (result.sign == Condition::Holds && !left.empty() && left.front() == '!') {
        result.negated = true;
        left.remove_prefix(1);
    }
    if (read_path(left, result.path, why)) return true;
    why = "found " + in_quotes(text) +
          ", expected a name, alone, with ! before it, or compared with one value: battery < 20, "
          "!open, sky == 'Fog'";
    return false;
}

bool holds(const Condition& condition, const Scope& scope) {
    const Value nothing;
    const Value* value = look_up(condition.path, scope);
    if (condition.sign == Condition::Holds) return is_something(value) != condition.negated;
    const Value& left = value ? *value : nothing;
    if (condition.sign == Condition::Equal) return equal(left, condition.literal);
    if (condition.sign == Condition::Unequal) return !equal(left, condition.literal);
    return in_order(left, condition.sign, condition.literal);
}

}  // namespace kit
