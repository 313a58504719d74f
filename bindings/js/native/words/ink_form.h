// In which form ink lies in the library, in place of kit/words/ink_form.h.
#pragma once

namespace kit {

/// Rows of bits: compressed, as pages load them, they take half the room of strokes.
constexpr bool kInkIsRows = true;

}  // namespace kit
