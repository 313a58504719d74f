#include "screen/data.h"

#include <algorithm>
#include <utility>

namespace kit {
namespace {

constexpr std::size_t kMostSteps = kMostDepth;

/// The index in `[12]` at the start of @p text, which it is taken from; -1 when there is none.
int take_index(std::string_view& text) {
    constexpr int kMost = 1000000;
    int index = 0;
    std::size_t at = 1;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        index = std::min(10 * index + (text[at] - '0'), kMost);
    }
    if (at == 1 || at >= text.size() || text[at] != ']') return -1;
    text.remove_prefix(at + 1);
    return index;
}

/// The name at the start of @p text, which it is taken from.
std::string take_name(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), in_name);
    std::string name(text.begin(), end);
    text.remove_prefix(name.size());
    return name;
}

const Value* step_into(const Value& value, const Step& step) {
    if (!step.name.empty()) return value.find(step.name);
    const auto index = static_cast<std::size_t>(step.index);
    return value.kind == Kind::List && index < value.items.size() ? &value.items[index] : nullptr;
}

const Value* named(const std::string& name, const Scope& scope) {
    for (const Scope* at = &scope; at; at = at->outer) {
        if (!at->name.empty()) {
            if (at->name == name) return at->values;
        } else if (at->values) {
            if (const Value* found = at->values->find(name)) return found;
        }
    }
    return nullptr;
}

std::string written(Path::const_iterator at, Path::const_iterator end) {
    std::string text;
    for (; at != end; ++at) {
        if (at->name.empty()) {
            text += '[' + std::to_string(at->index) + ']';
        } else {
            if (!text.empty()) text += '.';
            text += at->name;
        }
    }
    return text;
}

std::vector<std::string_view> keys_of(const Value& object) {
    std::vector<std::string_view> keys;
    if (object.kind != Kind::Object) return keys;
    for (const Value& member : object.items) keys.emplace_back(member.key);
    return keys;
}

std::vector<std::string_view> names_in(const Scope& scope) {
    std::vector<std::string_view> names;
    for (const Scope* at = &scope; at; at = at->outer) {
        if (!at->name.empty()) {
            names.push_back(at->name);
        } else if (at->values) {
            const auto keys = keys_of(*at->values);
            names.insert(names.end(), keys.begin(), keys.end());
        }
    }
    return names;
}

/// How deep lists and objects lie in each other.
std::size_t depth_of(const Value& value) {
    std::size_t deepest = 0;
    if (value.kind != Kind::List && value.kind != Kind::Object) return 0;
    for (const Value& item : value.items) deepest = std::max(deepest, depth_of(item));
    return deepest + 1;
}

/// Why a value cannot be set at the end of a path; empty when it can.
std::string obstacle(const Value& root, const Path& path) {
    const Value* value = &root;
    for (auto step = path.begin(); step != path.end(); ++step) {
        std::string where = written(path.begin(), step);
        if (where.empty()) where = "the data";
        if (step->name.empty()) {
            if (value && value->kind == Kind::List) {
                const std::size_t count = value->items.size();
                const auto index = static_cast<std::size_t>(step->index);
                if (index > count) return where + " has only " + std::to_string(count) + " items";
            } else if ((value && value->kind != Kind::Null) || step->index > 0) {
                return where + " is " + (value ? name_of(value->kind) : "missing") + ", not a list";
            }
        } else if (value && value->kind != Kind::Object && value->kind != Kind::Null) {
            return where + " is " + name_of(value->kind) + ", not an object";
        }
        value = value ? step_into(*value, *step) : nullptr;
    }
    return "";
}

/// The value that a step leads to, made as null when it is missing.
Value& made(Value& value, const Step& step) {
    if (value.kind == Kind::Null) value.kind = step.name.empty() ? Kind::List : Kind::Object;
    if (!step.name.empty()) return value.member(step.name);
    const auto index = static_cast<std::size_t>(step.index);
    return index < value.items.size() ? value.items[index] : value.items.emplace_back();
}

}  // namespace

bool in_name(char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
           (byte >= 'A' && byte <= 'Z') || byte == '_' || byte == '-' || byte >= 0x80;
}

bool read_path(std::string_view text, Path& path, std::string& why) {
    path.clear();
    std::string_view rest = text;
    while (true) {
        const bool indexed = !path.empty() && rest.front() == '[';
        if (!path.empty() && !indexed && rest.front() != '.') break;
        if (!path.empty() && !indexed) rest.remove_prefix(1);
        Step step;
        if (indexed) {
            step.index = take_index(rest);
        } else {
            step.name = take_name(rest);
        }
        if ((indexed ? step.index < 0 : step.name.empty()) || path.size() == kMostSteps) break;
        path.push_back(std::move(step));
        if (rest.empty()) return true;
    }
    why = in_quotes(text) + " is no path like now.temp or days[2].name";
    return false;
}

const Value* look_up(const Path& path, const Scope& scope) {
    const Value* value = path.empty() ? nullptr : named(path.front().name, scope);
    for (std::size_t i = 1; value && i < path.size(); ++i) value = step_into(*value, path[i]);
    return value && value->kind != Kind::Null ? value : nullptr;
}

bool may_be_there(const Path& path, const Scope& scope) {
    const Value* value = named(path.front().name, scope);
    if (!value) return false;
    for (auto step = path.begin() + 1; step != path.end() && value->kind != Kind::Null; ++step) {
        const Value* next = step_into(*value, *step);
        if (!next) return step->name.empty() && value->kind == Kind::List;
        value = next;
    }
    return true;
}

std::string written(const Path& path) { return written(path.begin(), path.end()); }

std::string missing(const Path& path, const Scope& scope) {
    const std::string whole = written(path);
    const Value* value = named(path.front().name, scope);
    if (!value) {
        return "there is no " + whole + " in the data" +
               did_you_mean(path.front().name, names_in(scope));
    }
    auto step = path.begin() + 1;
    for (; step != path.end(); ++step) {
        const Value* next = step_into(*value, *step);
        if (!next) break;
        value = next;
    }
    if (step == path.end()) return whole + " is null in the data";
    const std::string where = written(path.begin(), step);
    if (!step->name.empty() && value->kind != Kind::Object) {
        return where + " is " + name_of(value->kind) + " in the data, without a " + step->name;
    }
    if (!step->name.empty()) {
        return where + " has no " + step->name + " in the data" +
               did_you_mean(step->name, keys_of(*value));
    }
    if (value->kind != Kind::List) {
        return where + " is " + name_of(value->kind) + " in the data, not a list";
    }
    return where + " has only " + std::to_string(value->items.size()) + " items in the data";
}

bool set_value(Value& root, const Path& path, Value value, std::string& why) {
    why = obstacle(root, path);
    if (why.empty() && path.size() + depth_of(value) > kMostDepth) {
        why = written(path) + " would lie too deep";
    }
    if (!why.empty()) return false;
    Value* at = &root;
    for (const Step& step : path) at = &made(*at, step);
    value.key = std::move(at->key);  // what it is called there, and where, stays
    value.key_place = at->key_place;
    *at = std::move(value);
    return true;
}

bool set_json(Value& root, std::string_view path, std::string_view json, std::string& why) {
    Path steps;
    Value value;
    if (!read_path(path, steps, why) || !read_document(json, path, value, why)) return false;
    return set_value(root, steps, std::move(value), why);
}

}  // namespace kit
