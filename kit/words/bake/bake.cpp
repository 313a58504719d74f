// usage: bake_faces LISTS FONTS OUTPUT
// Bakes the kit's faces: draws the characters of LISTS (characters.txt, digits.txt) with FreeType
// and the DejaVu fonts of the folder FONTS, and writes each face as a source file to OUTPUT. The
// same FreeType and fonts give the same bytes.
#include <ft2build.h>

#include <cctype>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>
#include FT_FREETYPE_H

#include "words/strokes.h"

namespace {

struct Design {
    const char* name;
    unsigned size;
    const char* file;
    const char* list;
};

constexpr Design kDesigns[] = {
    {"sans", 11, "DejaVuSans.ttf", "characters.txt"},
    {"sans", 12, "DejaVuSans.ttf", "characters.txt"},
    {"sans", 14, "DejaVuSans.ttf", "characters.txt"},
    {"sans", 18, "DejaVuSans.ttf", "characters.txt"},
    {"sans", 24, "DejaVuSans.ttf", "characters.txt"},
    {"sans", 40, "DejaVuSans.ttf", "characters.txt"},
    {"bold", 11, "DejaVuSans-Bold.ttf", "characters.txt"},
    {"bold", 12, "DejaVuSans-Bold.ttf", "characters.txt"},
    {"bold", 14, "DejaVuSans-Bold.ttf", "characters.txt"},
    {"bold", 18, "DejaVuSans-Bold.ttf", "characters.txt"},
    {"bold", 24, "DejaVuSans-Bold.ttf", "characters.txt"},
    {"mono", 12, "DejaVuSansMono.ttf", "characters.txt"},
    {"digits", 64, "DejaVuSans.ttf", "digits.txt"},
    {"digits", 96, "DejaVuSans.ttf", "digits.txt"},
};

/// Of strokes. (A string, since GCC 12 warns of comparing vectors of bytes.)
using Bytes = std::string;

std::string file_text(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + ": cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

/// As zip archives and PNG files have it.
std::uint32_t crc32(const std::string& bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

std::string hex(std::uint32_t number) {
    std::ostringstream text;
    text << std::hex << number;
    return text.str();
}

/// The ranges at the start of each line, up to the words of explanation.
std::vector<FT_ULong> characters(std::string path) {
    std::istringstream lines(file_text(path));
    std::vector<FT_ULong> codes;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        for (std::string word; words >> word && word.size() >= 4;) {
            if (word.find_first_not_of("0123456789ABCDEF-") != std::string::npos) break;
            const FT_ULong first = std::stoul(word, nullptr, 16);
            const bool single = word.size() == 4;
            const FT_ULong last = single ? first : std::stoul(word.substr(5), nullptr, 16);
            for (FT_ULong code = first; code <= last; ++code) {
                if (!codes.empty() && code <= codes.back()) {
                    throw std::runtime_error(path.append(": not in order: ").append(word));
                }
                codes.push_back(code);
            }
        }
    }
    return codes;
}

struct Letter {
    FT_ULong code;
    FT_UInt index;  // in the font
    long advance, left, top;
    unsigned width, height;
    std::size_t offset;
};

/// The loading of examples/letters.c: whole pixels, hinted for them.
class Font {
public:
    Font(const std::string& path, unsigned size) : text_(file_text(path)) {
        if (FT_Init_FreeType(&library_) != 0 || FT_New_Face(library_, path.c_str(), 0, &face_) ||
            FT_Set_Pixel_Sizes(face_, 0, size) != 0) {
            throw std::runtime_error(path + ": is no font of that size");
        }
    }
    ~Font() { FT_Done_FreeType(library_); }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    std::string source() const {
        FT_Int major = 0, minor = 0, patch = 0;
        FT_Library_Version(library_, &major, &minor, &patch);
        return "FreeType " + std::to_string(major) + "." + std::to_string(minor) + "." +
               std::to_string(patch) + ", CRC-32 of the font " + hex(crc32(text_));
    }

    FT_UInt index(FT_ULong code) const { return FT_Get_Char_Index(face_, code); }

    FT_GlyphSlot load(FT_UInt index) const {
        if (FT_Load_Glyph(face_, index, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO) != 0 ||
            face_->glyph->bitmap.pixel_mode != FT_PIXEL_MODE_MONO) {
            throw std::runtime_error("a letter that cannot be drawn");
        }
        return face_->glyph;
    }

    long kerning(FT_UInt left, FT_UInt right) const {
        FT_Vector kerning = {0, 0};
        FT_Get_Kerning(face_, left, right, FT_KERNING_DEFAULT, &kerning);
        return kerning.x >> 6;
    }

    const FT_Size_Metrics& metrics() const { return face_->size->metrics; }

private:
    std::string text_;
    FT_Library library_ = nullptr;
    FT_Face face_ = nullptr;
};

Bytes strokes_of(const FT_Bitmap& bitmap) {
    std::vector<unsigned char> rows;
    const unsigned stride = (bitmap.width + 7) / 8;
    for (unsigned row = 0; row < bitmap.rows; ++row) {
        const unsigned char* const from = bitmap.buffer + static_cast<int>(row) * bitmap.pitch;
        rows.insert(rows.end(), from, from + stride);
    }
    const std::vector<unsigned char> strokes =
        kit::strokes_of(rows.data(), static_cast<int>(bitmap.width), static_cast<int>(bitmap.rows));
    if (strokes.empty()) throw std::runtime_error("a letter of too many strokes");
    return {strokes.begin(), strokes.end()};
}

/// The letters of the font, and the strokes of all of them behind one another, different ones once.
std::pair<std::vector<Letter>, Bytes> letters(const Font& font, const std::string& list) {
    std::pair<std::vector<Letter>, Bytes> result;
    std::map<Bytes, std::size_t> known;
    for (const FT_ULong code : characters(list)) {
        const FT_UInt index = font.index(code);
        if (index == 0) continue;  // Mono lacks a few
        FT_GlyphSlot slot = font.load(index);
        const Bytes strokes = strokes_of(slot->bitmap);
        const auto [place, is_new] = known.emplace(strokes, result.second.size());
        if (is_new) result.second += strokes;
        result.first.push_back({code, index, slot->advance.x >> 6, slot->bitmap_left,
                                slot->bitmap_top, slot->bitmap.width, slot->bitmap.rows,
                                place->second});
    }
    return result;
}

/// The number of each vector among the different ones, in the order of their first occurrence.
std::vector<std::size_t> classes(const std::vector<std::vector<long>>& vectors,
                                 std::vector<std::vector<long>>& different) {
    std::map<std::vector<long>, std::size_t> known;
    std::vector<std::size_t> numbers;
    for (const std::vector<long>& vector : vectors) {
        const auto [place, is_new] = known.emplace(vector, known.size());
        if (is_new) different.push_back(vector);
        numbers.push_back(place->second);
    }
    return numbers;
}

std::vector<std::vector<long>> turned(const std::vector<std::vector<long>>& rows) {
    std::vector<std::vector<long>> columns(rows.empty() ? 0 : rows[0].size());
    for (const std::vector<long>& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) columns[i].push_back(row[i]);
    }
    return columns;
}

/// Writes numbers and records in lines of at most 100 columns.
class Source {
public:
    explicit Source(std::ostream& out) : out_(out) {}

    void begin(const std::string& type, const std::string& name) {
        out_ << "\nconstexpr " << type << " " << name << "[] = {\n";
    }
    void item(const std::string& text) {
        if (line_.size() + text.size() + 1 > 100) flush();
        line_ += text + ",";
    }
    void end() {
        flush();
        out_ << "};\n";
    }
    template <typename Numbers>
    void array(const std::string& type, const std::string& name, const Numbers& numbers) {
        begin(type, name);
        for (const auto number : numbers) item(std::to_string(static_cast<long>(number)));
        end();
    }

private:
    void flush() {
        if (!line_.empty()) out_ << line_ << "\n";
        line_.clear();
    }

    std::ostream& out_;
    std::string line_;
};

void check_range(long value, long low, long high) {
    if (value < low || value > high) throw std::runtime_error("a number outside its field");
}

void write_letters(Source& source, const std::vector<Letter>& letters) {
    source.begin("kit::BakedGlyph", "kGlyphs");
    for (const Letter& letter : letters) {
        check_range(static_cast<long>(letter.offset), 0, 0xFFFFFF);
        check_range(letter.advance, 0, 255);
        check_range(letter.left, -128, 127);
        check_range(letter.top, -128, 127);
        check_range(letter.width, 0, 255);
        check_range(letter.height, 0, 255);
        source.item("{" + std::to_string(letter.offset) + "," + std::to_string(letter.advance) +
                    "," + std::to_string(letter.left) + "," + std::to_string(letter.top) + "," +
                    std::to_string(letter.width) + "," + std::to_string(letter.height) + "}");
    }
    source.end();
}

std::size_t write_ranges(Source& source, const std::vector<Letter>& letters) {
    source.begin("kit::CodeRange", "kRanges");
    std::size_t count = 0;
    for (std::size_t i = 0; i < letters.size(); ++count) {
        const std::size_t first = i++;
        while (i < letters.size() && letters[i].code == letters[i - 1].code + 1) ++i;
        source.item("{0x" + hex(static_cast<std::uint32_t>(letters[first].code)) + ",0x" +
                    hex(static_cast<std::uint32_t>(letters[i - 1].code)) + "," +
                    std::to_string(first) + "}");
    }
    source.end();
    return count;
}

/// Returns how the face names its kerning.
std::string write_kerning(Source& source, const Font& font, const std::vector<Letter>& letters) {
    std::vector<std::vector<long>> all;
    for (const Letter& left : letters) {
        all.emplace_back();
        for (const Letter& right : letters) {
            all.back().push_back(font.kerning(left.index, right.index));
            check_range(all.back().back(), -128, 127);
        }
    }
    std::vector<std::vector<long>> rows, columns;
    const std::vector<std::size_t> row = classes(all, rows);
    const std::vector<std::size_t> column = classes(turned(rows), columns);
    if (rows.size() == 1 && columns.size() == 1) return "{}";
    check_range(static_cast<long>(rows.size()), 1, 256);
    check_range(static_cast<long>(columns.size()), 1, 256);
    source.array("std::uint8_t", "kRow", row);
    source.array("std::uint8_t", "kColumn", column);
    std::vector<long> distances;
    for (const std::vector<long>& distance : turned(columns)) {
        distances.insert(distances.end(), distance.begin(), distance.end());
    }
    source.array("std::int8_t", "kDistance", distances);
    return "{kRow, kColumn, kDistance, " + std::to_string(columns.size()) + "}";
}

/// @p lists and @p fonts are folders.
void bake(const Design& design, const std::string& lists, const std::string& fonts,
          std::ostream& out) {
    const Font font(fonts + "/" + design.file, design.size);
    const auto [all, strokes] = letters(font, lists + "/" + design.list);
    const long ascent = font.metrics().ascender >> 6;
    const long descent = -(font.metrics().descender >> 6);
    out << "// Made by scripts/bake from " << design.file
        << "; its notice is in LICENSE-DejaVu.\n// " << font.source()
        << ".\n// clang-format off\n#include \"words/baked.h\"\n\n"
        << "namespace {\n";
    Source source(out);
    const std::vector<unsigned char> bytes(strokes.begin(), strokes.end());
    source.array("unsigned char", "kStrokes", bytes);
    write_letters(source, all);
    const std::size_t ranges = write_ranges(source, all);
    const std::string kerning = write_kerning(source, font, all);
    const long cap = font.load(font.index('H'))->bitmap_top;
    out << "\nusing Baked = kit::Baked<kGlyphs, kStrokes>;\n"
        << "\nconstexpr kit_face kFace = {\n"
        << ascent << ", " << descent << ", " << ascent + descent << ", " << cap << ",\nkRanges, "
        << ranges << ", Baked::ink, Baked::glyphs, nullptr, " << kerning << ",\n{}, 0, false};\n\n"
        << "}  // namespace\n\nconst kit_face* kit_" << design.name << "_" << design.size
        << "() { return &kFace; }\n";
}

}  // namespace

int main(int count, char** words) {
    if (count != 4) {
        std::cerr << "usage: bake_faces LISTS FONTS OUTPUT\n";
        return 2;
    }
    try {
        for (const Design& design : kDesigns) {
            std::ostringstream text;
            bake(design, words[1], words[2], text);
            const std::string path = std::string(words[3]) + "/" + design.name + "_" +
                                     std::to_string(design.size) + ".cpp";
            std::ofstream file(path, std::ios::binary);
            if (!(file << text.str() << std::flush)) {
                throw std::runtime_error(path + ": cannot be written");
            }
        }
    } catch (const std::exception& problem) {
        std::cerr << "bake_faces: " << problem.what() << "\n";
        return 1;
    }
    return 0;
}
