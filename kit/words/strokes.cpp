#include "words/strokes.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>

namespace kit {
namespace {

constexpr int kMost = 255;  // of what a byte counts

/// The widest run of a row that goes on down into wider ones, as an upright does.
constexpr int kUpright = 4;

/// So high, a column is drawn sooner as pixels than as a line.
constexpr int kPixels = 2;

/// What is being drawn downwards: the columns [left, right) from the row @p top on.
struct Stroke {
    int left, right, top;
    bool upright;
};

/// Strokes of one form.
struct Strokes {
    int count = 0;
    std::vector<unsigned char> bytes;
};

void put(Strokes& strokes, std::initializer_list<unsigned char> bytes) {
    ++strokes.count;
    strokes.bytes.insert(strokes.bytes.end(), bytes);
}

/// Goes through the rows of a letter, of which each is a few runs.
class Cutter {
public:
    Cutter(const unsigned char* rows, int width, int height)
        : rows_(rows), width_(width), height_(height) {}

    std::vector<unsigned char> cut();

private:
    bool has_ink(int column, int row) const;
    bool goes_on(const Stroke& stroke, int row) const;
    void end_strokes(int row);
    void begin_strokes(int row);
    void begin(int left, int right, int row);
    void add(const Stroke& stroke, int bottom);

    const unsigned char* rows_;
    int width_, height_;
    std::vector<Stroke> open_;
    std::vector<bool> drawn_ = std::vector<bool>(static_cast<std::size_t>(width_));  // of one row
    Strokes pixels_, runs_, boxes_;
};

bool Cutter::has_ink(int column, int row) const {
    if (column < 0 || column >= width_ || row >= height_) return false;
    const std::ptrdiff_t stride = (width_ + 7) / 8;
    return (rows_[row * stride + column / 8] & 0x80U >> column % 8) != 0;
}

bool Cutter::goes_on(const Stroke& stroke, int row) const {
    for (int column = stroke.left; column < stroke.right; ++column) {
        if (!has_ink(column, row)) return false;
    }
    return stroke.upright || (!has_ink(stroke.left - 1, row) && !has_ink(stroke.right, row));
}

/// Ends the strokes that do not go on in this row, and notes what the others draw of it.
void Cutter::end_strokes(int row) {
    std::fill(drawn_.begin(), drawn_.end(), false);
    const auto ends = [&](const Stroke& stroke) {
        if (goes_on(stroke, row)) {
            std::fill(drawn_.begin() + stroke.left, drawn_.begin() + stroke.right, true);
            return false;
        }
        add(stroke, row);
        return true;
    };
    open_.erase(std::remove_if(open_.begin(), open_.end(), ends), open_.end());
}

void Cutter::begin_strokes(int row) {
    for (int left = 0; left < width_; ++left) {
        if (!has_ink(left, row)) continue;
        int right = left + 1;
        while (has_ink(right, row)) ++right;
        begin(left, right, row);
        left = right;
    }
}

/// Begins a stroke with what of a run is not yet drawn.
void Cutter::begin(int left, int right, int row) {
    const int width = right - left;
    const auto is_drawn = [this](int column) { return drawn_[static_cast<std::size_t>(column)]; };
    while (left < right && is_drawn(left)) ++left;
    while (left < right && is_drawn(right - 1)) --right;
    if (left == right) return;
    open_.push_back({left, right, row, right - left == width && width <= kUpright});
}

void Cutter::add(const Stroke& stroke, int bottom) {
    const auto byte = [](int number) { return static_cast<unsigned char>(number); };
    const unsigned char left = byte(stroke.left), top = byte(stroke.top);
    const int width = stroke.right - stroke.left, height = bottom - stroke.top;
    if (width == 1 && height <= kPixels) {
        for (int row = stroke.top; row < bottom; ++row) put(pixels_, {left, byte(row)});
    } else if (height == 1) {
        put(runs_, {left, top, byte(width)});
    } else {
        put(boxes_, {left, top, byte(width), byte(height)});
    }
}

std::vector<unsigned char> Cutter::cut() {
    for (int row = 0; row < height_; ++row) {
        end_strokes(row);
        begin_strokes(row);
    }
    end_strokes(height_);
    std::vector<unsigned char> bytes;
    for (const Strokes* strokes : {&pixels_, &runs_, &boxes_}) {
        if (strokes->count > kMost) return {};
        bytes.push_back(static_cast<unsigned char>(strokes->count));
        bytes.insert(bytes.end(), strokes->bytes.begin(), strokes->bytes.end());
    }
    return bytes;
}

}  // namespace

std::vector<unsigned char> strokes_of(const unsigned char* rows, int width, int height) {
    if (width > kMost || height > kMost) return {};
    return Cutter(rows, width, height).cut();
}

}  // namespace kit
