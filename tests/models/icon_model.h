// The icons drawn from a table of their steps: slow, and written apart from the library's recipes.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "orvel.h"

namespace orvel_test {

/// A sum, product or quotient of 32-bit numbers, as a tree.
struct Expression {
    enum class Kind { number, variable, add, subtract, multiply, divide, truncate, cosine, sine };

    Kind kind;
    std::uint32_t value;  // the number, or which variable
    std::vector<Expression> operands;

    std::uint32_t at(const std::vector<std::uint32_t>& variables) const;
};

/// One line of the table: a number kept under a name, or something drawn.
struct IconStep {
    struct Condition {
        std::size_t variable;
        bool at_least;  // else: differs from
        std::uint32_t limit;
    };
    std::vector<Condition> conditions;
    std::string word;  // "=" when a number is kept
    std::size_t kept;  // which variable it then is
    std::string text;
    std::vector<Expression> numbers;
    char color;
};

struct IconColors {
    orvel_color c, a, b;
};

class IconModel {
public:
    /// Reads tests/models/icon_table.txt; raises std::runtime_error when a line makes no sense.
    IconModel();

    const std::vector<std::string>& names() const { return names_; }
    void draw(orvel_canvas* canvas, const std::string& name, int x, int y, int size,
              const IconColors& colors) const;

private:
    std::vector<std::string> names_;
    std::map<std::string, std::vector<IconStep>> steps_;
};

}  // namespace orvel_test
