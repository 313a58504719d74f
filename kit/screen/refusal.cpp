#include "screen/refusal.h"

#include "screen/characters.h"

namespace kit {

std::string path_of(const Trail& trail) {
    std::string path;
    if (trail.up) path = path_of(*trail.up);
    if (trail.item >= 0) return path + '[' + std::to_string(trail.item) + ']';
    if (!path.empty()) path += '.';
    path += trail.key;
    return path;
}

std::string line_of(const Source& source, Place place, std::string_view path,
                    std::string_view what) {
    std::string words(path);
    if (!words.empty()) words += ": ";
    words += what;
    if (place.line > 0) return reason(source.file, place, words);
    return source.file + ": " + words;
}

void refuse(const Trail& trail, Place place, std::string_view what) {
    throw Refused{line_of(*trail.source, place, path_of(trail), what)};
}

std::string found(const Value& value) {
    if (value.kind == Kind::String) return "found " + in_quotes(value.text);
    if (value.kind == Kind::Number) return "found " + value.text.substr(0, 40);
    if (value.kind == Kind::Boolean) return value.truth ? "found true" : "found false";
    if (value.kind == Kind::Null) return "found null";
    constexpr std::size_t kLongest = 40;
    const std::string json = write_json(value);
    if (json.size() <= kLongest) return "found " + json;
    return std::string("found ") + name_of(value.kind);
}

void give_reason(std::string_view text, char* why, std::size_t size) {
    if (!why || size == 0) return;
    const std::size_t length = whole_characters(text, size - 1);
    for (std::size_t i = 0; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        why[i] = byte < ' ' || byte == 0x7F ? '?' : text[i];
    }
    why[length] = '\0';
}

}  // namespace kit
