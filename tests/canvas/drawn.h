// What one drawing call leaves on a fresh canvas.
#pragma once

#include <string>

#include "support/picture.h"

namespace orvel_test {

/// The picture after @p shape was drawn with @p args, in kInk.
template <typename Shape, typename... Args>
std::string drawn(int width, int height, Shape shape, Args... args) {
    const auto canvas = make_canvas(width, height);
    shape(canvas.get(), args..., kInk);
    return picture(canvas.get());
}

constexpr const char* kEmpty4x3 = "....\n....\n....\n";
constexpr const char* kFull4x3 = "####\n####\n####\n";

}  // namespace orvel_test
