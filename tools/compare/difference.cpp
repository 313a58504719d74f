#include "compare/difference.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace orvel_tools {
namespace {

constexpr orvel_color kRed = {255, 0, 0, 255}, kBlue = {0, 0, 255, 255};
constexpr orvel_color kWhite = {255, 255, 255, 255}, kMaskLine = {96, 96, 96, 255};

bool same(const orvel_color& a, const orvel_color& b) {
    return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}

int most_steps(const orvel_color& a, const orvel_color& b) {
    return std::max(std::max(std::abs(a.r - b.r), std::abs(a.g - b.g)),
                    std::max(std::abs(a.b - b.b), std::abs(a.a - b.a)));
}

/// The pixels under masks, a byte each; empty when there is no mask.
Bytes covered(const std::vector<Mask>& masks, int width, int height) {
    Bytes cover;
    if (masks.empty()) return cover;
    cover.assign(std::size_t(width) * std::size_t(height), 0);
    for (const auto& [pattern, box, reason, line] : masks) {
        const int left = std::min(box.left, width), right = std::min(box.left + box.width, width);
        for (int y = box.top; y < std::min(box.top + box.height, height); ++y) {
            const auto row = cover.begin() + std::ptrdiff_t(y) * width;
            std::fill(row + left, row + right, static_cast<unsigned char>(1));
        }
    }
    return cover;
}

/// Collects the pixels that differ.
class Count {
public:
    explicit Count(Difference& found) : found_(found) {}

    void add(int x, int y, const orvel_color& a, const orvel_color& b) {
        left_ = found_.count ? std::min(left_, x) : x;
        right_ = std::max(right_, x);
        top_ = found_.count ? top_ : y;
        bottom_ = y;
        ++found_.count;
        found_.steps = std::max(found_.steps, most_steps(a, b));
        colors_differ_ = colors_differ_ || a.r != b.r || a.g != b.g || a.b != b.b;
    }

    void finish() {
        if (found_.count == 0) return;
        found_.box = {left_, top_, right_ - left_ + 1, bottom_ - top_ + 1};
        found_.alpha_only = !colors_differ_;
    }

private:
    Difference& found_;
    int left_ = 0, top_ = 0, right_ = -1, bottom_ = -1;
    bool colors_differ_ = false;
};

orvel_color faded(const orvel_color& color) {
    const int light = (2126 * color.r + 7152 * color.g + 722 * color.b) / 10000;
    const auto grey = static_cast<unsigned char>(192 + light / 4);
    return {grey, grey, grey, 255};
}

bool has(const Picture& picture, int x, int y) { return x < picture.width && y < picture.height; }

}  // namespace

Difference difference(const Picture& expected, const Picture& actual,
                      const std::vector<Mask>& masks) {
    Difference found;
    found.width = expected.width;
    found.height = expected.height;
    found.actual_width = actual.width;
    found.actual_height = actual.height;
    const int width = std::min(expected.width, actual.width);
    const int height = std::min(expected.height, actual.height);
    const Bytes cover = covered(masks, width, height);
    found.masked = std::count(cover.begin(), cover.end(), 1);
    Count count(found);
    for (int y = 0; y < height; ++y) {
        const orvel_color *a = &expected.at(0, y), *b = &actual.at(0, y);
        if (std::memcmp(a, b, sizeof *a * std::size_t(width)) == 0) continue;
        for (int x = 0; x < width; ++x) {
            if (same(a[x], b[x])) continue;
            if (!cover.empty() && cover[std::size_t(y) * std::size_t(width) + std::size_t(x)]) {
                ++found.masked_differing;
            } else {
                count.add(x, y, a[x], b[x]);
            }
        }
    }
    count.finish();
    return found;
}

Picture drawn_difference(const Picture& expected, const Picture& actual,
                         const std::vector<Mask>& masks) {
    constexpr int kBetween = 8;  // from stripe to stripe
    Picture drawn;
    drawn.width = std::max(expected.width, actual.width);
    drawn.height = std::max(expected.height, actual.height);
    drawn.pixels.reserve(std::size_t(drawn.width) * std::size_t(drawn.height));
    const Bytes cover = covered(masks, drawn.width, drawn.height);
    for (int y = 0; y < drawn.height; ++y) {
        for (int x = 0; x < drawn.width; ++x) {
            const bool before = has(expected, x, y), now = has(actual, x, y);
            orvel_color color = kWhite;
            if (before && now) {
                const bool masked = !cover.empty() && cover[drawn.pixels.size()];
                color = faded(expected.at(x, y));
                if (masked && (x + y) % 4 == 0) color = kMaskLine;
                if (!masked && !same(expected.at(x, y), actual.at(x, y))) color = kRed;
            } else if (before) {
                color = (x + y) % kBetween == 0 ? kRed : expected.at(x, y);
            } else if (now) {
                color = (x - y + drawn.height * kBetween) % kBetween == 0 ? kBlue : actual.at(x, y);
            }
            drawn.pixels.push_back(color);
        }
    }
    return drawn;
}

}  // namespace orvel_tools
