// Texts with references in them.
#include "screen/data.h"
#include "screen/number.h"

namespace kit {
namespace {

constexpr std::string_view kOpen = "${";

/// `path:decimals|fallback`
bool read_reference(std::string_view text, Reference& reference, std::string& why) {
    const std::size_t bar = text.find('|');
    if (bar != std::string_view::npos) reference.fallback = text.substr(bar + 1);
    std::string_view path = text.substr(0, bar);
    const std::size_t colon = path.find(':');
    if (colon != std::string_view::npos) {
        const std::string_view decimals = path.substr(colon + 1);
        path = path.substr(0, colon);
        if (decimals.size() != 1 || decimals[0] < '0' || decimals[0] > '9') {
            why = "found " + in_quotes(decimals) + " behind a colon, expected decimals, 0 to 9";
            return false;
        }
        reference.decimals = decimals[0] - '0';
    }
    reference.written = path;
    return read_path(path, reference.path, why);
}

/// A value without its decimals may be a text that writes a number, as many programs give it.
bool has_number(const Value& value) {
    return value.kind == Kind::Number || (value.kind == Kind::String && is_number(value.text));
}

/// The fallback of a whole reference: what it is written like.
const Value& scalar(const std::string& text, Value& room) {
    if (is_number(text) || text == "true" || text == "false") {
        std::string why;
        read_document(text, "", room, why);  // which is one value
    } else {
        room.kind = Kind::String;
        room.text = text;
    }
    return room;
}

/// The value of a reference; null when it takes the fallback, or, with a reason, when it has none.
const Value* value_of(const Reference& reference, const Scope& scope, std::string& why) {
    why.clear();
    const Value* value = look_up(reference.path, scope);
    const bool fits = value && (reference.decimals < 0 || has_number(*value));
    if (fits || reference.fallback) return fits ? value : nullptr;
    if (value) {
        why = reference.written + " is " + name_of(value->kind) + " in the data, not a number";
    } else {
        why = missing(reference.path, scope);
    }
    return nullptr;
}

bool text_of(const Reference& reference, const Scope& scope, std::string& text, std::string& why) {
    const Value* value = value_of(reference, scope, why);
    if (!value) {
        if (why.empty()) text += *reference.fallback;
        return why.empty();
    }
    if (value->kind == Kind::Boolean) {
        text += value->truth ? "true" : "false";
        return true;
    }
    if (value->kind == Kind::Number || value->kind == Kind::String) {
        text += reference.decimals < 0 ? value->text : rounded(value->text, reference.decimals);
        return true;
    }
    why = reference.written + " is " + name_of(value->kind) + " in the data, which has no text";
    return false;
}

}  // namespace

const Reference* Template::whole() const {
    const bool alone = parts.size() == 1 && parts[0].literal.empty();
    return alone ? &*parts[0].reference : nullptr;
}

bool Template::plain() const { return parts.empty() || !parts[0].reference; }

bool read_template(std::string_view text, Template& result, std::string& why) {
    result.parts.clear();
    std::string literal;
    while (!text.empty()) {
        if (text.substr(0, 3) == "$${") {
            literal += kOpen;
            text.remove_prefix(3);
        } else if (text.substr(0, 2) != kOpen) {
            literal += text.front();
            text.remove_prefix(1);
        } else {
            const std::size_t end = text.find('}');
            if (end == std::string_view::npos) {
                why = "found " + in_quotes(text) + " without a }; a literal ${ is written $${";
                return false;
            }
            Template::Part& part = result.parts.emplace_back();
            part.literal.swap(literal);
            part.reference.emplace();
            if (!read_reference(text.substr(2, end - 2), *part.reference, why)) return false;
            text.remove_prefix(end + 1);
        }
    }
    if (!literal.empty()) result.parts.push_back({std::move(literal), std::nullopt});
    return true;
}  // GCOVR_EXCL_BR_LINE: what a way out by an exception leaves to do

bool fill(const Template& source, const Scope& scope, std::string& text, std::string& why) {
    text.clear();
    for (const Template::Part& part : source.parts) {
        text += part.literal;
        if (part.reference && !text_of(*part.reference, scope, text, why)) return false;
        if (text.size() > kMostText) {
            why = "found a text of more than " + std::to_string(kMostText) + " bytes";
            return false;
        }
    }
    return true;
}

const Value* evaluate(const Template& source, const Scope& scope, Value& room, std::string& why) {
    room = {};
    const Reference* whole = source.whole();
    if (!whole) {
        room.kind = Kind::String;
        return fill(source, scope, room.text, why) ? &room : nullptr;
    }
    const Value* value = value_of(*whole, scope, why);
    if (!value) return why.empty() ? &scalar(*whole->fallback, room) : nullptr;
    if (whole->decimals < 0) return value;
    return &scalar(rounded(value->text, whole->decimals), room);
}

}  // namespace kit
