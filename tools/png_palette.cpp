#include "png_palette.h"

#include <optional>

namespace orvel_tools {
namespace {

std::uint32_t number_of(const orvel_color& color) {
    return std::uint32_t(color.r) << 24 | std::uint32_t(color.g) << 16 |
           std::uint32_t(color.b) << 8 | color.a;
}

/// Finds colours among those that it was given.
class Table {
public:
    /// The place of @p color: its number + 1 if it is known, else a 0 to be filled.
    int& place(const orvel_color& color) {
        const std::uint32_t number = number_of(color);
        std::size_t at = number * 2654435769u >> 22;
        while (numbers_[at] != 0 && keys_[at] != number) at = (at + 1) % kSlots;
        keys_[at] = number;
        return numbers_[at];
    }

private:
    static constexpr std::size_t kSlots = 1024;  // four times what is ever in it
    std::array<std::uint32_t, kSlots> keys_ = {};
    std::array<int, kSlots> numbers_ = {};
};

}  // namespace

Palette palette_of(const Picture& picture) {
    Palette palette;
    Table table;
    int size = 0;
    std::optional<std::uint32_t> last;  // screens have long runs of one colour
    for (const orvel_color& pixel : picture.pixels) {
        const std::uint32_t number = number_of(pixel);
        if (number == last) continue;
        last = number;
        palette.opaque = palette.opaque && pixel.a == 255;
        if (size > 256) continue;
        int& place = table.place(pixel);
        if (place != 0) continue;
        if (size < 256) palette.colors[std::size_t(size)] = pixel;
        place = ++size;
    }
    palette.size = size <= 256 ? size : 0;
    return palette;
}

Bytes Palette::indices(const Picture& picture) const {
    Table table;
    for (int i = 0; i < size; ++i) table.place(colors[std::size_t(i)]) = i + 1;
    Bytes numbers(picture.pixels.size());
    std::optional<std::uint32_t> last;
    unsigned char index = 0;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::uint32_t number = number_of(picture.pixels[i]);
        if (number != last) index = static_cast<unsigned char>(table.place(picture.pixels[i]) - 1);
        last = number;
        numbers[i] = index;
    }
    return numbers;
}

}  // namespace orvel_tools
