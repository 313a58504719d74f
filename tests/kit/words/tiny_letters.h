// What the model of words takes for the letters of the tiny faces.
#pragma once

#include <map>
#include <sstream>
#include <string>

#include "models/words_model.h"
#include "tiny_face.h"

namespace orvel_test {

constexpr model::Measures kTinyMeasures = {6, 2, 8, 5};

/// The letters of a font file, read line by line.
inline std::map<char32_t, model::Letter> letters_of(const char* file) {
    std::map<char32_t, model::Letter> letters;
    std::istringstream lines(file);
    model::Letter letter;
    char32_t code = 0;
    int w = 0, h = 0, x = 0, y = 0, row = -1;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string key;
        words >> key;
        if (key == "ENCODING") {
            unsigned long number = 0;
            words >> number;
            code = static_cast<char32_t>(number);
        }
        if (key == "DWIDTH") words >> letter.advance;
        if (key == "BBX") words >> w >> h >> x >> y;
        if (key == "ENDCHAR") {
            letters[code] = letter;
            letter = {};
            row = -1;
        }
        if (row >= 0) {
            for (int column = 0; column < w; ++column) {
                const std::string digit(1, line[static_cast<std::size_t>(column / 4)]);
                if (std::stoi(digit, nullptr, 16) & 8 >> column % 4) {
                    letter.dots.push_back({x + column, y + h - 1 - row});
                }
            }
            ++row;
        }
        if (key == "BITMAP") row = 0;
    }
    return letters;
}

/// The character whose letter shows for one that no face has.
inline char32_t alike(char32_t code) {
    if (code == 0xA0 || code == 0x1680 || (code >= 0x2000 && code <= 0x200A)) code = ' ';
    if (code == 0x202F || code == 0x205F || code == 0x3000) code = ' ';
    if (code == 0x2010 || code == 0x2011) code = '-';
    return code == model::kCut ? 0x2026 : code;
}

/// What the tiny face shows.
inline model::Letter tiny_letter(char32_t code) {
    static const std::map<char32_t, model::Letter> letters = letters_of(kTinyFile);
    const auto found = letters.find(alike(code));
    return found == letters.end() ? letters.at(0xFFFD) : found->second;
}

/// What the bare face shows: a hollow box for all that is not there, three points for what was cut.
inline model::Letter bare_letter(char32_t code) {
    static const std::map<char32_t, model::Letter> letters = letters_of(kBareFile);
    if (code == model::kCut) return {6, {{0, 0}, {2, 0}, {4, 0}}};
    if (letters.count(code) != 0) return letters.at(code);
    model::Letter box = {6, {}};
    for (int i = 0; i < 5; ++i) {
        box.dots.push_back({1, i});
        box.dots.push_back({4, i});
        if (i < 4) box.dots.push_back({1 + i, 0});
        if (i < 4) box.dots.push_back({1 + i, 4});
    }
    return box;
}

}  // namespace orvel_test
