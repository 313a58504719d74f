#include "widgets/random_widgets.h"

#include <climits>
#include <cmath>
#include <iterator>
#include <sstream>

#include "support/random.h"

namespace orvel_test {
namespace {

template <typename T, std::size_t N>
T any_of(Random& random, const T (&values)[N]) {
    return values[random.between(0, static_cast<int>(N) - 1)];
}

int any_int(Random& random) { return static_cast<int>(static_cast<std::uint32_t>(random.next())); }

int extreme(Random& random) {
    constexpr int kLimits[] = {INT_MIN, INT_MIN + 1, INT_MIN / 2, -65536,  -46341,      -1,     0,
                               1,       46340,       65536,       1 << 30, INT_MAX - 1, INT_MAX};
    if (random.one_in(3)) return any_int(random);
    const unsigned near = static_cast<unsigned>(any_of(random, kLimits));
    return static_cast<int>(near + static_cast<unsigned>(random.between(-40, 40)));
}

int number(Random& random, bool wild, int low, int high) {
    return wild && random.one_in(2) ? extreme(random) : random.between(low, high);
}

/// Bytes of every value but zero, with many separators.
std::string any_text(Random& random) {
    std::string text;
    for (int left = random.between(0, 12); left > 0; --left) {
        const int choice = random.between(0, 9);
        const int byte = choice < 3   ? '|'
                         : choice < 8 ? random.between(32, 126)
                                      : random.between(1, 255);
        text += static_cast<char>(byte);
    }
    return text;
}

std::string any_icon(Random& random) {
    constexpr const char* kNames[] = {"", "nothing", "Home", "picture", "missing"};
    if (random.one_in(4)) return any_of(random, kNames);
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    return names[random.between(0, count - 1)];
}

/// In thousandths, so that no sine or cosine falls on the edge between two pixels.
double any_fraction(Random& random) {
    if (random.one_in(12)) return NAN;
    if (random.one_in(3)) return random.between(0, 20) / 20.0;
    return random.between(0, 1000) / 1000.0;
}

double any_datum(Random& random) {
    constexpr double kValues[] = {NAN, INFINITY, -INFINITY, -0.5, 1.5, 1e300, -0.0, 0, 1, 5e-324};
    return random.one_in(3) ? any_of(random, kValues) : random.between(0, 1000) / 1000.0;
}

}  // namespace

orvel_widget random_widget(int kind, std::uint64_t number_of_widget) {
    Random random(number_of_widget);
    orvel_widget widget;
    widget.kind = kind;
    const bool wild = random.one_in(8);
    widget.x = number(random, wild, -20, 50);
    widget.y = number(random, wild, -20, 45);
    widget.w = number(random, wild, -6, 60);
    widget.h = number(random, wild, -6, 40);
    widget.hover = random.one_in(2);
    widget.active = random.one_in(2);
    widget.amount = random.one_in(3) ? any_int(random) : random.between(-2, 6);
    widget.value = any_fraction(random);
    const bool named = widget.kind == ORVEL_WIDGET_ICON || widget.kind == ORVEL_WIDGET_IMAGE;
    widget.text = named ? any_icon(random) : any_text(random);
    if (random.one_in(2)) widget.icon_name = any_icon(random);
    for (int left = random.between(0, 9); left > 0; --left) {
        widget.data.push_back(any_datum(random));
    }
    return widget;
}

std::string described(const orvel_widget& widget) {
    std::ostringstream out;
    out << "kind " << widget.kind << " at (" << widget.x << ", " << widget.y << "), " << widget.w
        << " x " << widget.h << ", hover " << widget.hover << ", active " << widget.active
        << ", amount " << widget.amount << ", value " << widget.value << ", icon '"
        << widget.icon_name << "', text";
    for (const char c : widget.text) out << ' ' << int(static_cast<unsigned char>(c));
    out << ", data";
    for (const double datum : widget.data) out << ' ' << datum;
    return out.str();
}

}  // namespace orvel_test
