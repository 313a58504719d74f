// What is wrong with a scene, and where.
#pragma once

#include <string>
#include <string_view>

#include "screen/document.h"

namespace kit {

/// A scene file, read.
struct Source {
    std::string name;  // in the scene's folder
    std::string file;  // as reasons call it
    Value document;
    int height = 0;     // of the includes below it, with itself; 0 until it was looked at
    bool open = false;  // while what it includes is looked at
};

/// Raised, with a whole line, where a scene cannot be shown; no call of the interface lets it out.
struct Refused {
    std::string why;
};

/// The way from a scene's root to what is being read: a key, or an item of a list.
struct Trail {
    const Source* source;
    const Trail* up = nullptr;
    std::string_view key = {};
    int item = -1;

    Trail into(std::string_view name) const { return {source, this, name, -1}; }
    Trail into(int number) const { return {source, this, {}, number}; }
};

/// "root.column[2].text"
std::string path_of(const Trail& trail);

/// "FILE:LINE:COLUMN: PATH: what"; without the numbers where the place is nowhere.
std::string line_of(const Source& source, Place place, std::string_view path,
                    std::string_view what);

[[noreturn]] void refuse(const Trail& trail, Place place, std::string_view what);

/// "found 3": the value as it was written, where that is short, else its kind.
std::string found(const Value& value);

/// Copies a reason to the caller's buffer, cut between characters.
void give_reason(std::string_view text, char* why, std::size_t size);

}  // namespace kit
