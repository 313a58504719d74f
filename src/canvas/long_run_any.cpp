#include "canvas/canvas.h"

namespace orvel {

void fill_long_run(orvel_color* first, std::int64_t count, std::uint32_t word) {
    fill_any_run(first, count, word);
}

}  // namespace orvel
