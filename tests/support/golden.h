// Pictures kept as text files under tests/golden.
#pragma once

#include <string>

#include "support/picture.h"

namespace orvel_test {

/// Whether @p name of the file or folder @p file of tests/golden is written instead of compared:
/// ORVEL_UPDATE_GOLDEN is 1, for all, or one of the two.
bool is_renewed(const std::string& file, const std::string& name);

/// Fails unless the canvas, as a picture, equals the section @p name of the file tests/golden/@p
/// file. On failure it names the first differing pixel, shows both pictures and leaves actual,
/// expected and difference images in the build folder's golden-failures. A section that is renewed
/// must be read like code.
void expect_golden(const std::string& file, const std::string& name, const orvel_canvas* canvas,
                   const Palette& palette);

/// The same for text that is not a picture, such as a list of checksums. Printed, not compared,
/// when one case of a sweep is replayed.
void expect_golden_text(const std::string& file, const std::string& name, const std::string& text);

}  // namespace orvel_test
