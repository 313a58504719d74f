#include "models/icon_model.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <fstream>
#include <functional>
#include <stdexcept>

namespace orvel_test {
namespace {

using Kind = Expression::Kind;
using Numbers = std::vector<int>;

int as_signed(std::uint32_t number) { return static_cast<std::int32_t>(number); }

/// Always within int: no radius of the table is above 2^30.
std::uint32_t toward_zero(double value) {
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
}

/// Reads one line of the table.
class LineReader {
public:
    LineReader(const std::string& line, std::vector<std::string>& variables)
        : line_(line), variables_(variables) {}

    IconStep step() {
        IconStep step{{}, "", 0, "", {}, 'c'};
        while (take("if ")) step.conditions.push_back(condition());
        const std::string first = word();
        if (take("=")) {
            step.word = "=";
            step.numbers.push_back(sum());
            variables_.push_back(first);
            step.kept = variables_.size() - 1;
        } else {
            step.word = first;
            if (take("\"")) step.text = quoted();
            read_operands(step);
        }
        if (!rest().empty()) fail();
        return step;
    }

private:
    void read_operands(IconStep& step) {
        do {
            const std::string left = rest();
            if (left == "a" || left == "b" || left == "c") {
                step.color = word()[0];
                return;
            }
            step.numbers.push_back(sum());
        } while (take(","));
    }

    IconStep::Condition condition() {
        const std::size_t subject = variable(word());
        const bool at_least = take(">=");
        if (!at_least && !take("!=")) fail();
        const IconStep::Condition found = {subject, at_least, number()};
        if (!take(":")) fail();
        return found;
    }

    Expression sum() {
        Expression left = product();
        for (;;) {
            if (take("+")) {
                left = {Kind::add, 0, {left, product()}};
            } else if (take("-")) {
                left = {Kind::subtract, 0, {left, product()}};
            } else {
                return left;
            }
        }
    }

    Expression product() {
        Expression left = operand();
        for (;;) {
            if (take("*")) {
                left = {Kind::multiply, 0, {left, operand()}};
            } else if (take("/")) {
                left = {Kind::divide, 0, {left, operand()}};
            } else {
                return left;
            }
        }
    }

    Expression operand() {
        if (take("(")) {
            Expression inner = sum();
            if (!take(")")) fail();
            return inner;
        }
        skip_blanks();
        if (at_ < line_.size() && std::isdigit(static_cast<unsigned char>(line_[at_]))) {
            return {Kind::number, number(), {}};
        }
        const std::string name = word();
        if (!take("(")) {
            return {Kind::variable, static_cast<std::uint32_t>(variable(name)), {}};
        }
        const std::map<std::string, Kind> functions = {
            {"trunc", Kind::truncate}, {"cos", Kind::cosine}, {"sin", Kind::sine}};
        Expression call = {functions.at(name), 0, {sum()}};
        if (!take(",")) fail();
        call.operands.push_back(sum());
        if (!take(")")) fail();
        return call;
    }

    std::size_t variable(const std::string& name) const {
        const auto found = std::find(variables_.begin(), variables_.end(), name);
        if (found == variables_.end()) fail();
        return static_cast<std::size_t>(found - variables_.begin());
    }

    std::uint32_t number() {
        const std::string digits = word();
        if (digits.empty()) fail();
        return static_cast<std::uint32_t>(std::stoul(digits));
    }

    std::string word() {
        skip_blanks();
        const std::size_t start = at_;
        while (at_ < line_.size() && std::isalnum(static_cast<unsigned char>(line_[at_]))) ++at_;
        return line_.substr(start, at_ - start);
    }

    std::string quoted() {
        const std::size_t end = line_.find('"', at_);
        const std::string text = line_.substr(at_, end - at_);
        at_ = end + 1;
        if (!take(",")) fail();
        return text;
    }

    bool take(const std::string& token) {
        skip_blanks();
        if (line_.compare(at_, token.size(), token) != 0) return false;
        at_ += token.size();
        return true;
    }

    void skip_blanks() {
        while (at_ < line_.size() && line_[at_] == ' ') ++at_;
    }
    std::string rest() {
        skip_blanks();
        return line_.substr(at_);
    }
    [[noreturn]] void fail() const { throw std::runtime_error("icon table: " + line_); }

    const std::string& line_;
    std::vector<std::string>& variables_;
    std::size_t at_ = 0;
};

// ---- The words, by the public shapes

void round_box(orvel_canvas* canvas, const Numbers& n, orvel_color k) {
    const int x = n[0], y = n[1], w = n[2], h = n[3];
    if (w <= 0 || h <= 0) return;
    int q = w / 2 < h / 2 ? w / 2 : h / 2;
    if (n[4] >= 0 && n[4] < q) q = n[4];
    const int right = x + w - 1 - q, bottom = y + h - 1 - q;
    orvel_canvas_fill_rect(canvas, x + q, y, w - q - q, h, k);
    orvel_canvas_fill_rect(canvas, x, y + q, w, h - q - q, k);
    orvel_canvas_fill_circle(canvas, x + q, y + q, q, k);
    orvel_canvas_fill_circle(canvas, right, y + q, q, k);
    orvel_canvas_fill_circle(canvas, x + q, bottom, q, k);
    orvel_canvas_fill_circle(canvas, right, bottom, q, k);
}

void star(orvel_canvas* canvas, const Numbers& n, orvel_color k) {
    const auto point = [&n](double angle, double radius, int& x, int& y) {
        x = n[0] + as_signed(toward_zero(std::cos(angle) * radius));
        y = n[1] + as_signed(toward_zero(std::sin(angle) * radius));
    };
    const double outer = n[2], inner = outer * 0.42;
    for (int tip = 0; tip < 5; ++tip) {
        const double angle = (2 * tip * 3.14159265358979) / 5.0 + (-1.570796326794895);
        int x0, y0, x1, y1, x2, y2;
        point(angle, outer, x0, y0);
        point(angle + 0.628318530717958, inner, x1, y1);
        point(angle + 1.256637061435916, outer, x2, y2);
        orvel_canvas_fill_triangle(canvas, x0, y0, x1, y1, x2, y2, k);
    }
}

void rings(orvel_canvas* canvas, const Numbers& n, int side, int most, orvel_color k) {
    const int least_side[] = {1, 3, 6};
    for (int i = 0; i < most; ++i) {
        if (side >= least_side[i]) orvel_canvas_circle(canvas, n[0], n[1], n[2] - i, k);
    }
}

void draw_step(orvel_canvas* canvas, const IconStep& step, const Numbers& n, int side,
               orvel_color k) {
    const std::map<std::string, std::function<void()>> words = {
        {"fill", [&] { orvel_canvas_fill_rect(canvas, n[0], n[1], n[2], n[3], k); }},
        {"line", [&] { orvel_canvas_line(canvas, n[0], n[1], n[2], n[3], k); }},
        {"thick",
         [&] {
             orvel_canvas_line(canvas, n[0], n[1], n[2], n[3], k);
             orvel_canvas_line(canvas, n[0], n[1] + 1, n[2], n[3] + 1, k);
         }},
        {"circle", [&] { orvel_canvas_circle(canvas, n[0], n[1], n[2], k); }},
        {"disc", [&] { orvel_canvas_fill_circle(canvas, n[0], n[1], n[2], k); }},
        {"tri", [&] { orvel_canvas_fill_triangle(canvas, n[0], n[1], n[2], n[3], n[4], n[5], k); }},
        {"text", [&] { orvel_text_draw(canvas, step.text.c_str(), n[0], n[1], k); }},
        {"round", [&] { round_box(canvas, n, k); }},
        {"star", [&] { star(canvas, n, k); }},
        {"ring", [&] { rings(canvas, n, side, 3, k); }},
        {"ring2", [&] { rings(canvas, n, side, 2, k); }},
    };
    words.at(step.word)();
}

bool holds(const IconStep& step, const std::vector<std::uint32_t>& variables) {
    return std::all_of(step.conditions.begin(), step.conditions.end(),
                       [&](const IconStep::Condition& condition) {
                           const int value = as_signed(variables[condition.variable]);
                           const int limit = as_signed(condition.limit);
                           return condition.at_least ? value >= limit : value != limit;
                       });
}

const std::vector<std::string> kBox = {"x", "y", "s", "h", "cx", "cy"};

}  // namespace

std::uint32_t Expression::at(const std::vector<std::uint32_t>& variables) const {
    const auto of = [&](std::size_t i) { return operands[i].at(variables); };
    switch (kind) {
    case Kind::number: return value;
    case Kind::variable: return variables[value];
    case Kind::add: return of(0) + of(1);
    case Kind::subtract: return of(0) - of(1);
    case Kind::multiply: return of(0) * of(1);
    case Kind::divide: return of(0) / of(1);
    case Kind::truncate: return static_cast<std::uint32_t>(as_signed(of(0)) / as_signed(of(1)));
    case Kind::cosine:
        return toward_zero(std::cos(as_signed(of(0)) * 3.14159265358979 * 0.125) * of(1));
    case Kind::sine:
        return toward_zero(std::sin(as_signed(of(0)) * 3.14159265358979 * 0.125) * of(1));
    }
    throw std::logic_error("an expression of no kind");
}

IconModel::IconModel() {
    std::ifstream table(ORVEL_SOURCE_DIR "/tests/models/icon_table.txt");
    std::vector<std::string> variables;
    for (std::string line; std::getline(table, line);) {
        if (line.empty() || line[0] == '#') continue;
        if (line[0] != ' ') {
            names_.push_back(line);
            variables = kBox;
        } else {
            steps_[names_.back()].push_back(LineReader(line, variables).step());
        }
    }
}

void IconModel::draw(orvel_canvas* canvas, const std::string& name, int x, int y, int size,
                     const IconColors& colors) const {
    const auto left = static_cast<std::uint32_t>(x), top = static_cast<std::uint32_t>(y);
    const auto side = static_cast<std::uint32_t>(size);
    std::vector<std::uint32_t> variables = {left,          top, side, side / 2, left + side / 2,
                                            top + side / 2};
    for (const IconStep& step : steps_.at(name)) {
        if (!holds(step, variables)) continue;
        if (step.word == "=") {
            variables.push_back(step.numbers[0].at(variables));
            if (variables.size() != step.kept + 1) throw std::logic_error("names out of order");
            continue;
        }
        Numbers numbers;
        for (const Expression& number : step.numbers) {
            numbers.push_back(as_signed(number.at(variables)));
        }
        const orvel_color k = step.color == 'a'   ? colors.a
                              : step.color == 'b' ? colors.b
                                                  : colors.c;
        draw_step(canvas, step, numbers, size, k);
    }
}

}  // namespace orvel_test
