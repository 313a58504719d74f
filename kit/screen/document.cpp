#include "screen/document.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "screen/characters.h"

namespace kit {
namespace {

/// Whether the member number @p at comes before @p name among those sorted by their keys.
struct Before {
    const std::vector<Value>& members;
    bool operator()(std::uint32_t at, std::string_view name) const {
        return members[at].key < name;
    }
};

void write_text(std::string& to, std::string_view text) {
    constexpr char kHex[] = "0123456789abcdef";
    to += '"';
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') {
            to += '\\';
            to += letter;
        } else if (letter == '\n') {
            to += "\\n";
        } else if (static_cast<unsigned char>(letter) < 0x20) {
            to += "\\u00";
            to += kHex[letter / 16];
            to += kHex[letter % 16];
        } else {
            to += letter;
        }
    }
    to += '"';
}

void write_value(std::string& to, const Value& value);

void write_items(std::string& to, const Value& value) {
    const bool named = value.kind == Kind::Object;
    to += named ? '{' : '[';
    for (const Value& item : value.items) {
        if (&item != &value.items.front()) to += ',';
        if (named) {
            write_text(to, item.key);
            to += ':';
        }
        write_value(to, item);
    }
    to += named ? '}' : ']';
}

void write_value(std::string& to, const Value& value) {
    if (value.kind == Kind::List || value.kind == Kind::Object) return write_items(to, value);
    if (value.kind == Kind::String) return write_text(to, value.text);
    if (value.kind == Kind::Number) {
        to += value.text;
    } else if (value.kind == Kind::Boolean) {
        to += value.truth ? "true" : "false";
    } else {
        to += "null";
    }
}

constexpr std::size_t kLongestWord = 40;  // beyond it, nothing is near

/// Letters to insert, delete, replace or swap with their neighbours to make @p b of @p a.
std::size_t distance(std::string_view a, std::string_view b) {
    std::array<std::array<std::size_t, kLongestWord + 1>, 3> rows;
    std::iota(rows[0].begin(), rows[0].end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        auto& row = rows[i % 3];
        const auto& above = rows[(i + 2) % 3];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t other = a[i - 1] == b[j - 1] ? 0 : 1;
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + other});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                row[j] = std::min(row[j], rows[(i + 1) % 3][j - 2] + 1);
            }
        }
    }
    return rows[a.size() % 3][b.size()];
}

}  // namespace

const char* name_of(Kind kind) {
    constexpr const char* kNames[] = {"null",   "true or false", "a number",
                                      "a text", "a list",        "an object"};
    return kNames[static_cast<int>(kind)];
}

const Value* Value::find(std::string_view name) const {
    const auto at = std::lower_bound(sorted.begin(), sorted.end(), name, Before{items});
    return at != sorted.end() && items[*at].key == name ? &items[*at] : nullptr;
}

Value* Value::find(std::string_view name) {
    return const_cast<Value*>(static_cast<const Value*>(this)->find(name));
}

Value& Value::member(std::string_view name) {
    const auto at = std::lower_bound(sorted.begin(), sorted.end(), name, Before{items});
    if (at != sorted.end() && items[*at].key == name) return items[*at];
    sorted.insert(at, static_cast<std::uint32_t>(items.size()));
    Value& made = items.emplace_back();
    made.key = name;
    return made;
}

std::string reason(std::string_view file, Place place, std::string_view what) {
    std::string line(file);
    line += ':' + std::to_string(place.line) + ':' + std::to_string(place.column) + ": ";
    line += what;
    return line;
}

Value text_value(std::string text) {
    Value value;
    value.kind = Kind::String;
    value.text = std::move(text);
    return value;
}

std::string write_json(const Value& value) {
    std::string json;
    write_value(json, value);
    return json;
}

std::string in_quotes(std::string_view text) {
    const std::size_t end = whole_characters(text, 40);
    std::string line;
    write_text(line, text.substr(0, end));
    if (end < text.size()) line.insert(line.size() - 1, "...");
    return line;
}

std::string_view nearest(std::string_view word, const std::vector<std::string_view>& known) {
    std::string_view best;
    std::size_t least = std::min<std::size_t>(word.size() / 3 + 1, 3) + 1;
    for (const std::string_view one : known) {
        if (word.size() > kLongestWord || one.size() > kLongestWord) continue;
        const std::size_t far = distance(word, one);
        if (far >= least || 2 * far > std::min(word.size(), one.size())) continue;
        least = far;
        best = one;
    }
    return best;
}

std::string did_you_mean(std::string_view word, const std::vector<std::string_view>& known) {
    const std::string_view near = nearest(word, known);
    if (near.empty()) return "";
    return "; did you mean " + in_quotes(near) + "?";
}

}  // namespace kit
