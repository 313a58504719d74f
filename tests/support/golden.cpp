#include "support/golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <utility>

#include "support/cases.h"
#include "support/files.h"

namespace orvel_test {
namespace {

/// A golden file: sections of "== name" and the lines that follow, in the order they were added.
struct GoldenFile {
    std::string path;
    std::vector<std::pair<std::string, std::string>> sections;

    explicit GoldenFile(const std::string& file) : path(ORVEL_SOURCE_DIR "/tests/golden/" + file) {
        std::istringstream lines(read_file(path));
        for (std::string line; std::getline(lines, line);) {
            if (line.rfind("== ", 0) == 0) {
                sections.emplace_back(line.substr(3), "");
            } else if (!sections.empty()) {
                sections.back().second += line + "\n";
            }
        }
    }

    std::string* find(const std::string& name) {
        for (auto& [section, text] : sections) {
            if (section == name) return &text;
        }
        return nullptr;
    }

    void set(const std::string& name, const std::string& text) {
        if (std::string* old = find(name)) {
            *old = text;
        } else {
            sections.emplace_back(name, text);
        }
        std::string all;
        for (const auto& [section, body] : sections) all += "== " + section + "\n" + body;
        write_file(path, all);
    }
};

std::vector<std::string> split_lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

char letter_at(const std::vector<std::string>& rows, std::size_t x, std::size_t y) {
    return y < rows.size() && x < rows[y].size() ? rows[y][x] : ' ';
}

std::string first_difference(const std::string& actual, const std::string& expected) {
    const auto a = split_lines(actual), e = split_lines(expected);
    for (std::size_t y = 0; y < std::max(a.size(), e.size()); ++y) {
        const std::size_t width =
            std::max(y < a.size() ? a[y].size() : 0, y < e.size() ? e[y].size() : 0);
        for (std::size_t x = 0; x < width; ++x) {
            if (letter_at(a, x, y) == letter_at(e, x, y)) continue;
            std::ostringstream out;
            out << "first difference at column " << x << ", row " << y << ": expected '"
                << letter_at(e, x, y) << "', got '" << letter_at(a, x, y) << "'";
            return out.str();
        }
    }
    return "no difference";
}

CanvasPtr image(const std::string& text, const Palette& palette) {
    const auto rows = split_lines(text);
    std::size_t width = 1;
    for (const auto& row : rows) width = std::max(width, row.size());
    auto canvas = make_canvas(static_cast<int>(width), std::max(1, static_cast<int>(rows.size())));
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            orvel_color color = {255, 0, 255, 255};
            for (const Letter& entry : palette) {
                if (entry.letter == rows[y][x]) color = entry.color;
            }
            orvel_canvas_pixel(canvas.get(), static_cast<int>(x), static_cast<int>(y), color);
        }
    }
    return canvas;
}

void leave_images(const std::string& file, const std::string& name, const orvel_canvas* actual,
                  const std::string& actual_text, const std::string& expected_text,
                  const Palette& palette) {
    std::string base = file + "." + name;
    for (char& c : base) {
        if (c == '/' || c == ' ') c = '_';
    }
    const std::string folder = ORVEL_BINARY_DIR "/golden-failures/";
    std::filesystem::create_directories(folder);
    orvel_canvas_save_bmp(actual, (folder + base + ".actual.bmp").c_str());
    const auto expected = image(expected_text, palette);
    orvel_canvas_save_bmp(expected.get(), (folder + base + ".expected.bmp").c_str());

    const auto a = split_lines(actual_text), e = split_lines(expected_text);
    const int width = std::max(orvel_canvas_width(actual), orvel_canvas_width(expected.get()));
    const int height = std::max(orvel_canvas_height(actual), orvel_canvas_height(expected.get()));
    const auto difference = make_canvas(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto column = static_cast<std::size_t>(x), row = static_cast<std::size_t>(y);
            if (letter_at(a, column, row) != letter_at(e, column, row)) {
                orvel_canvas_pixel(difference.get(), x, y, {255, 0, 0, 255});
            }
        }
    }
    orvel_canvas_save_bmp(difference.get(), (folder + base + ".difference.bmp").c_str());
}

}  // namespace

bool is_renewed(const std::string& file, const std::string& name) {
    const char* const value = std::getenv("ORVEL_UPDATE_GOLDEN");
    const std::string which = value ? value : "";
    return which == "1" || (!which.empty() && (which == name || which == file));
}

void expect_golden_text(const std::string& file, const std::string& name, const std::string& text) {
    if (is_replay()) {
        std::cout << file << ", " << name << ":\n" << text;
        return;
    }
    GoldenFile golden(file);
    if (is_renewed(file, name)) return golden.set(name, text);
    const std::string* expected = golden.find(name);
    ASSERT_NE(expected, nullptr) << file << " has no section " << name;
    EXPECT_EQ(text, *expected) << file << ", " << name << ": " << first_difference(text, *expected);
}

void expect_golden(const std::string& file, const std::string& name, const orvel_canvas* canvas,
                   const Palette& palette) {
    const std::string actual = picture(canvas, palette);
    ASSERT_EQ(actual.find('?'), std::string::npos)
        << file << ", " << name << ": a colour without a letter\n"
        << actual;
    GoldenFile golden(file);
    if (is_renewed(file, name)) return golden.set(name, actual);
    const std::string* expected = golden.find(name);
    ASSERT_NE(expected, nullptr) << file << " has no section " << name;
    if (actual == *expected) return;
    leave_images(file, name, canvas, actual, *expected, palette);
    ADD_FAILURE() << file << ", " << name << ": " << first_difference(actual, *expected)
                  << "\nexpected:\n"
                  << *expected << "actual:\n"
                  << actual;
}

}  // namespace orvel_test
