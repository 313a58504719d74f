// In which form ink lies in the library. Builds for pages find their own header of this name first.
#pragma once

namespace kit {

/// Whether it is rows of bits only, not strokes, which are drawn in half the time.
constexpr bool kInkIsRows = false;

}  // namespace kit
