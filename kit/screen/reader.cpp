// The reader of JSON: nlohmann's, by its events, and where each of them stood.
#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>
#include <numeric>

#include "screen/characters.h"
#include "screen/document.h"
#include "screen/number.h"

namespace kit {
namespace {

constexpr const char* kEndsWord = " \t\r\n{}[],:\"";

bool is_one_of(char letter, const char* letters) {
    return std::strchr(letters, letter) != nullptr;  // a text without zero bytes
}

/// Tells line and column of offsets that never go back.
class Ruler {
public:
    explicit Ruler(std::string_view text) : text_(text) {}

    Place at(std::size_t offset) {
        for (; at_ < offset; ++at_) {
            if (text_[at_] == '\n') {
                ++place_.line;
                place_.column = 1;
            } else if (!is_later_byte(text_[at_])) {
                ++place_.column;
            }
        }
        return place_;
    }

private:
    std::string_view text_;
    std::size_t at_ = 0;
    Place place_ = {1, 1};
};

/// What a person would call what stands at @p at.
std::string seen(std::string_view text, std::size_t at) {
    if (at >= text.size()) return "the end of the file";
    const char letter = text[at];
    if (letter == '"') return "a text";
    if (is_one_of(letter, "-0123456789")) return "a number";
    if (is_one_of(letter, "{}[],:")) return std::string("\"") + letter + '"';
    const std::size_t end = std::min(text.find_first_of(kEndsWord, at), text.size());
    return in_quotes(text.substr(at, end - at));
}

/// What nlohmann's @p message says was expected, in the words of these files.
const char* wanted(std::string_view message) {
    const auto says = [message](const char* part) {
        return message.find(part) != std::string_view::npos;
    };
    if (says("parsing object key")) return "a key in quotes";
    if (says("parsing object separator")) return "\":\"";
    if (says("parsing object")) return "\",\" or \"}\"";
    if (says("parsing array")) return "\",\" or \"]\"";
    if (says("; expected end of input")) return "the end of the file";
    return "a value";
}

/// The part of nlohmann's @p message behind @p start, without what was read; empty without it.
std::string after(std::string_view message, std::string_view start) {
    const std::size_t at = message.find(start);
    if (at == std::string_view::npos) return "";
    message.remove_prefix(at + start.size());
    return std::string(message.substr(0, message.find("; last read")));
}

/// Makes the tree. Each call returns false when the reading has to stop.
class Builder {
public:
    Builder(std::string_view text, std::string_view file, Value& root, std::string& why)
        : text_(text), file_(file), ruler_(text), root_(root), why_(why) {}

    bool null() { return add(Kind::Null) != nullptr; }
    bool boolean(bool truth) {
        Value* value = add(Kind::Boolean);
        if (value) value->truth = truth;
        return value != nullptr;
    }
    bool number_integer(std::int64_t number) { return add_number(static_cast<double>(number)); }
    bool number_unsigned(std::uint64_t number) { return add_number(static_cast<double>(number)); }
    bool number_float(double number, const std::string&) { return add_number(number); }
    bool string(std::string& text) {
        Value* value = add(Kind::String);
        if (!value || !shows(text)) return false;
        value->text = std::move(text);
        return true;
    }
    bool binary(std::vector<std::uint8_t>&) { return false; }  // GCOVR_EXCL_LINE: not in text

    bool start_object(std::size_t) { return open(Kind::Object); }
    bool start_array(std::size_t) { return open(Kind::List); }
    bool end_object() {
        if (!sort(*open_.back())) return false;
        return end_array();
    }
    bool end_array() {
        pass();
        open_.pop_back();
        return true;
    }
    bool key(std::string& name) {
        key_place_ = pass();
        if (!shows(name)) return false;
        key_ = std::move(name);
        return true;
    }

    bool parse_error(std::size_t position, const std::string&, const std::exception& error);

private:
    bool refuse(Place place, const std::string& what) {
        why_ = reason(file_, place, what);
        return false;
    }

    bool shows(const std::string& text) {
        if (text.find('\0') == std::string::npos) return true;
        return refuse(token_, "found the character U+0000, which nothing can show");
    }

    /// Goes past the next token; between two of them are only spaces, commas and colons.
    Place pass() {
        cursor_ = std::min(text_.find_first_not_of(" \t\r\n,:", cursor_), text_.size());
        token_ = ruler_.at(cursor_);
        begin_ = cursor_;
        const char first = text_[cursor_++];
        if (first == '"') {
            for (; text_[cursor_] != '"'; ++cursor_) cursor_ += text_[cursor_] == '\\' ? 1U : 0U;
            ++cursor_;
        } else if (!is_one_of(first, "{}[]")) {
            const std::size_t digits = number_length(text_.substr(begin_));
            const std::size_t word = first == 'f' ? 5U : 4U;  // false, true, null
            cursor_ = begin_ + (digits > 0 ? digits : word);
        }
        return token_;
    }

    Value* add(Kind kind) {
        pass();
        if (++count_ > kMostValues) {
            refuse(token_, "found more than " + std::to_string(kMostValues) + " values");
            return nullptr;
        }
        Value& value = open_.empty() ? root_ : open_.back()->items.emplace_back();
        value.kind = kind;
        value.place = token_;
        if (!open_.empty() && open_.back()->kind == Kind::Object) {
            value.key = std::move(key_);
            value.key_place = key_place_;
        }
        return &value;
    }

    bool add_number(double number) {
        Value* value = add(Kind::Number);
        if (!value) return false;
        value->number = number;
        value->text = text_.substr(begin_, cursor_ - begin_);
        if (value->text.size() > kMostDigits) return refuse(token_, "found too long a number");
        return true;
    }

    bool open(Kind kind) {
        Value* value = add(kind);
        if (!value) return false;
        open_.push_back(value);  // stays in place: while it is open, nothing is added beside it
        if (open_.size() <= kMostDepth) return true;
        return refuse(token_, "found more than " + std::to_string(kMostDepth) +
                                  " lists and objects in each other");
    }

    bool sort(Value& object);

    std::string_view text_, file_;
    Ruler ruler_;
    Value& root_;
    std::string& why_;
    std::vector<Value*> open_;
    std::string key_;
    Place key_place_, token_;             // of the last key; of the last token
    std::size_t begin_ = 0, cursor_ = 0;  // of the last token: where it begins, and what follows
    int count_ = 0;
};

bool Builder::sort(Value& object) {
    const std::vector<Value>& members = object.items;
    object.sorted.resize(members.size());
    std::iota(object.sorted.begin(), object.sorted.end(), 0U);
    std::sort(object.sorted.begin(), object.sorted.end(), [&members](auto a, auto b) {
        const int order = members[a].key.compare(members[b].key);
        return order != 0 ? order < 0 : a < b;
    });
    for (std::size_t i = 1; i < members.size(); ++i) {
        const Value& first = members[object.sorted[i - 1]];
        const Value& second = members[object.sorted[i]];
        if (first.key != second.key) continue;
        return refuse(second.key_place, "found the key " + in_quotes(second.key) +
                                            " again; it is in line " +
                                            std::to_string(first.key_place.line) + " already");
    }
    return true;
}

bool Builder::parse_error(std::size_t position, const std::string&, const std::exception& error) {
    // From the last token to the one that is wrong, past the commas and colons that are right.
    std::size_t at = std::min(text_.find_first_not_of(" \t\r\n", cursor_), text_.size());
    while (at + 1 < std::min(position, text_.size() + 1) && is_one_of(text_[at], ",:")) {
        at = std::min(text_.find_first_not_of(" \t\r\n", at + 1), text_.size());
    }
    const std::string_view message = error.what();
    const Place place = ruler_.at(at);
    const std::string bad_text = after(message, "invalid string: ");
    if (!bad_text.empty()) return refuse(place, "found a text that is wrong: " + bad_text);
    const std::string bad_number = after(message, "invalid number; ");
    if (!bad_number.empty()) return refuse(place, "found a number that is wrong: " + bad_number);
    if (message.find("number overflow") != std::string_view::npos) {
        return refuse(place, "found a number that is too large");
    }
    return refuse(place, "found " + seen(text_, at) + ", expected " + wanted(message));
}

/// Whether there is anything in @p text that JSON has nowhere.
bool all_characters(std::string_view text, std::string_view file, std::string& why) {
    std::size_t at = 0;
    while (at < text.size() && text[at] != '\0') {
        const Character next = character_at(text, at);
        if (!next.good) break;
        at += next.bytes;
    }
    if (at == text.size()) return true;
    const char* what = text[at] == '\0' ? "found a zero byte" : "found what is not UTF-8";
    why = reason(file, Ruler(text).at(at), what);
    return false;
}

}  // namespace

bool read_document(std::string_view text, std::string_view file, Value& root, std::string& why) {
    root = {};
    if (text.size() > kMostBytes) {
        why = std::string(file) + ": larger than " + std::to_string(kMostBytes >> 20) + " MiB";
        return false;
    }
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, 3) == kByteOrderMark) text.remove_prefix(3);
    if (text.substr(0, 3) == kByteOrderMark) {  // which the parser would pass over, too
        why = reason(file, {1, 1}, "found a second byte order mark, expected a value");
        return false;
    }
    if (!all_characters(text, file, why)) return false;
    Builder builder(text, file, root, why);
    return nlohmann::json::sax_parse(text.begin(), text.end(), &builder);
}

}  // namespace kit
