// A theme file with all nine colours.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace orvel_test {

inline const std::string kComplete = R"({
  "background":   "#1e1e2e",
  "surface":      "#28283a",
  "text":         "#cdd6f4",
  "accent":       "#89b4fa",
  "border":       "#45475a",
  "button":       "#313244",
  "button_hover": "#45475a",
  "button_text":  "#cdd6f4",
  "error":        "#f38ba8"
}
)";

/// A text with one change.
inline std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

}  // namespace orvel_test
