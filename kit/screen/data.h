// Live data: values by their paths, and templates that show them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screen/document.h"

namespace kit {

/// One step of a path: into the member `name`, or to the item `index` where the name is empty.
struct Step {
    std::string name;
    int index = -1;  // counted from 0
};

/// `now.temp`, `days[2].name`.
using Path = std::vector<Step>;

/// Names are of letters, digits, "_", "-" and anything beyond ASCII.
bool in_name(char letter);

/// Names that a template can use: the members of `values` (an object) where `name` is empty, else
/// the one value under `name`, which hides those further out. Everything is borrowed.
struct Scope {
    const Value* values = nullptr;
    std::string_view name = {};
    const Scope* outer = nullptr;

    // Where that lies in the data of the whole screen, which a scope without these two is.
    const Path* origin = nullptr;   // of the one value; null where it was made
    const Value* with = nullptr;    // what the values were made from, as it is written
    const Scope* around = nullptr;  // which that sees
};

/// `path:decimals|fallback`.
struct Reference {
    Path path;
    std::string written;  // the path, for reasons
    int decimals = -1;    // -1: the number as it is written
    std::optional<std::string> fallback;
};

/// A text with references in it; `$${` is a literal `${`.
struct Template {
    struct Part {
        std::string literal;  // what stands before the reference
        std::optional<Reference> reference;
    };
    std::vector<Part> parts;

    /// The only reference, when there is nothing around it: such a text keeps the value's type.
    const Reference* whole() const;
    /// Whether it is a text without references.
    bool plain() const;
};

/* What can fail returns false or null and then says in `why` what is wrong, without a place. */

bool read_path(std::string_view text, Path& path, std::string& why);
bool read_template(std::string_view text, Template& result, std::string& why);

/// The value at the end of a path; null where there is none. What is null counts as missing.
const Value* look_up(const Path& path, const Scope& scope);

/// Whether data of this shape have such a value, though it may be null in these, or in a list that
/// is shorter now.
bool may_be_there(const Path& path, const Scope& scope);

/// The way from the data of the whole screen to the value at the end of a path. False where the
/// value was made for the scope, so that there is none.
bool find_origin(const Path& path, const Scope& scope, Path& origin);

/// "now.temp", "days[2].name"
std::string written(const Path& path);

/// "there is no now.tmp; did you mean now.temp?"
std::string missing(const Path& path, const Scope& scope);

constexpr std::size_t kMostText = 65536;  // bytes of a text that a template makes

/// The text of a template. A list or an object has no text; what has decimals and is no number
/// (nor a text that is one) takes the fallback.
bool fill(const Template& source, const Scope& scope, std::string& text, std::string& why);

/// The value of a template: of a whole reference the data's own, without a copy, else a text made
/// in @p room. A rounded number is a number; so is a fallback that is written like one, and true
/// and false are booleans.
const Value* evaluate(const Template& source, const Scope& scope, Value& room, std::string& why);

/// Sets the value at the end of a path; objects on its way are made where they are missing, and an
/// index one past the end of a list adds to it. On failure nothing has changed.
bool set_value(Value& root, const Path& path, Value value, std::string& why);
bool set_json(Value& root, std::string_view path, std::string_view json, std::string& why);

}  // namespace kit
