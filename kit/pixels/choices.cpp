#include "pixels/choices.h"

#include <algorithm>
#include <limits>

namespace kit {
namespace {

/// Green counts most for the eye, red least among bright colours.
int distance(const Channels& a, const Channels& b) {
    const int r = a[0] - b[0], g = a[1] - b[1], blue = a[2] - b[2];
    return 2 * r * r + 4 * g * g + 3 * blue * blue;
}

/// The most that neighbouring values lie apart.
int largest_gap(int* values, std::size_t count) {
    std::sort(values, values + count);
    int gap = 0;
    for (std::size_t i = 1; i < count; ++i) gap = std::max(gap, values[i] - values[i - 1]);
    return gap;
}

}  // namespace

PaletteChoice::PaletteChoice(const orvel_color* palette, int colors)
    : count_(static_cast<std::size_t>(colors)) {
    for (std::size_t i = 0; i < count_; ++i) colors_[i] = channels_of(palette[i]);
    for (std::size_t channel = 0; channel < gaps_.size(); ++channel) {
        int values[kMost] = {};
        for (std::size_t i = 0; i < count_; ++i) values[i] = colors_[i][channel];
        gaps_[channel] = largest_gap(values, count_);
    }
}

unsigned PaletteChoice::nearest(const Channels& c) const {
    unsigned best = 0;
    int least = std::numeric_limits<int>::max();
    for (unsigned i = 0; i < count_; ++i) {
        const int found = distance(c, colors_[i]);
        if (found < least) {
            least = found;
            best = i;
        }
    }
    return best;
}

unsigned PaletteChoice::ordered(const Channels& c, int threshold) const {
    const unsigned code = nearest(c);
    if (colors_[code] == c) return code;
    Channels moved = c;
    for (std::size_t channel = 0; channel < c.size(); ++channel) {
        moved[channel] += (2 * threshold - 63) * gaps_[channel] / 128;
    }
    return nearest(moved);
}

}  // namespace kit
