#include "session.h"

#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "file_bytes.h"

namespace orvel_tools {
namespace {

using Json = nlohmann::ordered_json;

/// Why a line is refused.
struct Refused {
    std::string why;
};

constexpr int kFarthest = 1000000;         // of the pointer, in pixels
constexpr long long kLatest = 1000000000;  // eleven days
constexpr int kLongestSide = 32767;        // of a screen
constexpr int kDeepest = 100;              // lists and objects in each other

std::string written(const std::string& text) {
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

long long integer(const Json& value, const char* name, long long lowest, long long highest) {
    const bool whole = value.is_number_integer();
    // What is beyond a signed number of 64 bits is unsigned.
    const bool fits = whole && (!value.is_number_unsigned() ||
                                value.get<std::uint64_t>() <= static_cast<std::uint64_t>(kLatest));
    const long long number = fits ? value.get<long long>() : highest + 1;
    if (fits && number >= lowest && number <= highest) return number;
    throw Refused{std::string("\"") + name + "\": expected a whole number from " +
                  std::to_string(lowest) + " to " + std::to_string(highest)};
}

/// Two numbers of at most @p most, as [x, y].
void pair(const Json& value, const char* name, int lowest, int most, int& x, int& y) {
    if (!value.is_array() || value.size() != 2) {
        throw Refused{std::string("\"") + name + "\": expected two numbers, [x, y]"};
    }
    x = static_cast<int>(integer(value[0], name, lowest, most));
    y = static_cast<int>(integer(value[1], name, lowest, most));
}

std::string text(const Json& value, const char* name) {
    if (!value.is_string() || value.get<std::string>().find('\0') != std::string::npos) {
        throw Refused{std::string("\"") + name + "\": expected a text without zeros"};
    }
    return value.get<std::string>();
}

/// What a line can tell beside its time: the event, how its value is read, and one key more.
struct Word {
    const char* name;
    int event;
    void (*read)(const Json& value, const char* name, SessionEvent& event);
    const char* more[2] = {nullptr, nullptr};

    bool takes(const std::string& key) const {
        return key == name || (more[0] && key == more[0]) || (more[1] && key == more[1]);
    }
};

void read_place(const Json& value, const char* name, SessionEvent& event) {
    pair(value, name, -kFarthest, kFarthest, event.input.x, event.input.y);
}

void read_true(const Json& value, const char* name, SessionEvent&) {
    if (value != true) throw Refused{std::string("\"") + name + "\": expected true"};
}

void read_text_of(const Json& value, const char* name, SessionEvent& event) {
    event.text = text(value, name);
    event.input.caret = static_cast<int>(event.text.size());
}

void read_key_of(const Json& value, const char* name, SessionEvent& event) {
    if (read_key(text(value, name), event.input.key, event.input.modifiers)) return;
    throw Refused{R"("key": expected a character or a name, "a", "ctrl+a" or "shift+tab")"};
}

void read_set(const Json& value, const char*, SessionEvent& event) {
    event.kind = SessionEvent::kSet;
    if (!value.is_object()) throw Refused{R"("set": expected an object of names and values)"};
}

void read_size(const Json& value, const char* name, SessionEvent& event) {
    event.kind = SessionEvent::kSize;
    pair(value, name, 1, kLongestSide, event.width, event.height);
}

void read_picture_name(const Json& value, const char* name, SessionEvent& event) {
    event.kind = SessionEvent::kPicture;
    event.text = text(value, name);
    if (names_a_picture(event.text)) return;
    throw Refused{R"("picture": expected a name of letters, digits, "_", "-" and dots)"};
}

constexpr Word kWords[] = {
    {"move", KIT_EVENT_MOVE, read_place},
    {"press", KIT_EVENT_PRESS, read_place, {"button", "with"}},
    {"release", KIT_EVENT_RELEASE, read_place, {"button"}},
    {"leave", KIT_EVENT_LEAVE, read_true},
    {"wheel", KIT_EVENT_WHEEL, read_place, {"by"}},
    {"key", KIT_EVENT_KEY, read_key_of},
    {"text", KIT_EVENT_TEXT, read_text_of},
    {"compose", KIT_EVENT_COMPOSE, read_text_of, {"caret"}},
    {"paste", KIT_EVENT_PASTE, read_text_of},
    {"blur", KIT_EVENT_BLUR, read_true},
    {"focus", KIT_EVENT_FOCUS, read_true},
    {"set", KIT_EVENT_TIME, read_set},
    {"size", KIT_EVENT_TIME, read_size},
    {"picture", KIT_EVENT_TIME, read_picture_name},
};

const Word* word_called(const std::string& name) {
    for (const Word& word : kWords) {
        if (name == word.name) return &word;
    }
    return nullptr;
}

void read_more(const std::string& name, const Json& value, SessionEvent& event) {
    kit_screen_event& input = event.input;
    if (name == "button") input.button = static_cast<int>(integer(value, "button", 0, 31));
    if (name == "with" && !read_modifiers(text(value, "with"), input.modifiers)) {
        throw Refused{R"("with": expected ctrl, alt or shift, or several of them, "ctrl+shift")"};
    }
    if (name == "by") pair(value, "by", -kFarthest, kFarthest, input.dx, input.dy);
    if (name == "caret") {
        const auto length = static_cast<long long>(event.text.size());
        input.caret = static_cast<int>(integer(value, "caret", 0, length));
    }
}

/// The one key of a line that says what happened; null where only time passed.
const Word* word_of(const Json& line) {
    const Word* found = nullptr;
    for (const auto& [name, value] : line.items()) {
        const Word* const word = word_called(name);
        if (word && found) {
            throw Refused{std::string("found \"") + found->name + "\" and \"" + name +
                          "\", expected one of them"};
        }
        if (word) found = word;
    }
    return found;
}

/// The values of an object as they are written, but for blanks around and in them: what a number
/// tells by its zeros would be lost with it. The text is known to be an object.
std::vector<std::string> values_of(const std::string& object) {
    std::vector<std::string> values;
    bool is_text = false, is_value = false;
    int depth = 0;
    for (std::size_t i = 0; i < object.size(); ++i) {
        const char letter = object[i];
        const std::size_t length = is_text && letter == '\\' ? 2 : 1;
        if (letter == '"') is_text = !is_text;
        if (!is_text && (letter == '}' || letter == ']')) --depth;
        if (!is_text && (depth == 0 || (depth == 1 && letter == ','))) is_value = false;
        if (is_value && (is_text || !std::strchr(" \t\r", letter))) {
            values.back().append(object, i, length);
        }
        i += length - 1;
        if (is_text) continue;
        if (letter == '{' || letter == '[') ++depth;
        if (depth == 1 && letter == ':') {
            is_value = true;
            values.emplace_back();
        }
    }
    return values;
}

/// One line; data that are set together become events of their own.
void read_line(const Json& line, const std::string& text, Session& session, int number) {
    if (!line.is_object()) throw Refused{"expected an object"};
    const Word* const word = word_of(line);
    for (const auto& [name, value] : line.items()) {
        if (name != "at" && !(word && word->takes(name)))
            throw Refused{"unknown key " + written(name)};
    }
    if (!line.contains("at")) throw Refused{"\"at\" is missing, the time in milliseconds"};
    SessionEvent event;
    event.line = number;
    event.at = integer(line["at"], "at", 0, kLatest);
    if (!session.empty() && event.at < session.back().at) {
        throw Refused{"\"at\": earlier than the line before"};
    }
    if (word) {
        event.input.kind = word->event;
        word->read(line[word->name], word->name, event);
        for (const auto& [name, value] : line.items()) read_more(name, value, event);
    }
    if (event.kind != SessionEvent::kSet) return session.push_back(event);
    const auto place = static_cast<std::size_t>(std::distance(line.begin(), line.find("set")));
    const std::vector<std::string> values = values_of(values_of(text)[place]);
    auto json = values.begin();
    for (const auto& [name, value] : line["set"].items()) {
        if (name.find('\0') != std::string::npos) throw Refused{"\"set\": a name with a zero"};
        event.text = name;
        event.json = *json++;
        session.push_back(event);
    }
}

/// Refuses what the parser would let pass: keys that repeat, and depths without an end.
class Strictness {
public:
    bool operator()(int depth, Json::parse_event_t event, const Json& parsed) {
        if (depth > kDeepest) throw Refused{"lists and objects lie too deep"};
        if (event == Json::parse_event_t::object_start) keys_.emplace_back();
        if (event == Json::parse_event_t::object_end) keys_.pop_back();
        if (event == Json::parse_event_t::key && !keys_.back().insert(parsed).second) {
            throw Refused{"the key " + parsed.dump() + " is there twice"};
        }
        return true;
    }

private:
    std::vector<std::set<std::string>> keys_;
};

void read_line_of_text(const std::string& line, Session& session, int number) {
    Strictness strictness;
    try {
        read_line(Json::parse(line, std::ref(strictness)), line, session, number);
    } catch (const nlohmann::detail::parse_error& error) {
        throw Refused{"no JSON from column " + std::to_string(error.byte)};
    } catch (const nlohmann::detail::exception&) {
        throw Refused{"a number is too large"};
    }
}

/// An end of a line stands for a blank there; within texts there is none.
std::string on_one_line(std::string json) {
    std::replace_if(
        json.begin(), json.end(), [](char letter) { return letter == '\n' || letter == '\r'; },
        ' ');
    return json;
}

std::string place_of(const SessionEvent& event) {
    return "[" + std::to_string(event.input.x) + "," + std::to_string(event.input.y) + "]";
}

std::string held(const SessionEvent& event) {
    const std::string keys = modifiers_text(event.input.modifiers);
    return keys.empty() ? "" : ",\"with\":\"" + keys.substr(0, keys.size() - 1) + "\"";
}

std::string input_line(const SessionEvent& event) {
    const kit_screen_event& input = event.input;
    const std::string button =
        input.button == 0 ? "" : ",\"button\":" + std::to_string(input.button);
    switch (input.kind) {
    case KIT_EVENT_MOVE: return ",\"move\":" + place_of(event);
    case KIT_EVENT_PRESS: return ",\"press\":" + place_of(event) + button + held(event);
    case KIT_EVENT_RELEASE: return ",\"release\":" + place_of(event) + button;
    case KIT_EVENT_LEAVE: return ",\"leave\":true";
    case KIT_EVENT_WHEEL:
        return ",\"wheel\":" + place_of(event) + ",\"by\":[" + std::to_string(input.dx) + "," +
               std::to_string(input.dy) + "]";
    case KIT_EVENT_KEY: return ",\"key\":" + written(key_text(input.key, input.modifiers));
    case KIT_EVENT_TEXT: return ",\"text\":" + written(event.text);
    case KIT_EVENT_COMPOSE:
        return ",\"compose\":" + written(event.text) + ",\"caret\":" + std::to_string(input.caret);
    case KIT_EVENT_PASTE: return ",\"paste\":" + written(event.text);
    case KIT_EVENT_BLUR: return ",\"blur\":true";
    case KIT_EVENT_FOCUS: return ",\"focus\":true";
    default: return "";
    }
}

const char* change_called(int kind) {
    switch (kind) {
    case KIT_CHANGE_VALUE: return "value";
    case KIT_CHANGE_PRESS: return "press";
    case KIT_CHANGE_COPY: return "copy";
    case KIT_CHANGE_PASTE: return "paste";
    default: return "sound";
    }
}

}  // namespace

std::optional<Session> read_session(const std::string& path, std::string& error) {
    std::string all;
    if (!read_text(path, all, error)) return std::nullopt;
    Session session;
    std::istringstream lines(all);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
        try {
            read_line_of_text(line, session, number);
        } catch (const Refused& refused) {
            error = shown_path(path, "standard input") + ":" + std::to_string(number) + ": " +
                    refused.why;
            return std::nullopt;
        }
    }
    return session;
}

std::string session_line(const SessionEvent& event) {
    std::string line = "{\"at\":" + std::to_string(event.at);
    switch (event.kind) {
    case SessionEvent::kInput: line += input_line(event); break;
    case SessionEvent::kSet:
        line += ",\"set\":{" + written(event.text) + ":" + on_one_line(event.json) + "}";
        break;
    case SessionEvent::kSize:
        line +=
            ",\"size\":[" + std::to_string(event.width) + "," + std::to_string(event.height) + "]";
        break;
    case SessionEvent::kPicture: line += ",\"picture\":" + written(event.text); break;
    }
    return line + "}\n";
}

std::string change_line(const kit_change& change, long long at) {
    return "{\"at\":" + std::to_string(at) + ",\"change\":\"" + change_called(change.kind) +
           "\",\"id\":" + written(change.id) + ",\"name\":" + written(change.name) +
           ",\"value\":" + change.value + "}\n";
}

std::string text_of_json(const std::string& json) {
    const Json value = Json::parse(json, nullptr, false);
    return value.is_string() ? value.get<std::string>() : "";
}

bool names_a_picture(const std::string& name) {
    constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-.";
    return !name.empty() && name.size() <= 100 && name[0] != '.' &&
           name.find_first_not_of(kLetters) == std::string::npos;
}

}  // namespace orvel_tools
