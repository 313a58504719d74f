#include "widgets/distinct_theme.h"

namespace orvel_test {

orvel_theme distinct_theme() {
    return {{16, 16, 16, 255}, {32, 32, 32, 200},    {255, 255, 255, 255},
            {0, 0, 255, 255},  {128, 128, 128, 255}, {64, 64, 0, 255},
            {96, 96, 0, 128},  {255, 255, 0, 255},   {255, 0, 0, 255}};
}

Palette theme_letters(const orvel_theme& theme) {
    return {{'#', theme.border},
            {'s', theme.surface},
            {'A', theme.accent},
            {'t', theme.text},
            {'B', theme.background},
            {'u', theme.button},
            {'h', theme.button_hover},
            {'x', theme.button_text},
            {'e', theme.error},
            {'1', {0xF3, 0x8B, 0xA8, 255}},
            {'2', {0xF9, 0xE2, 0xAF, 255}},
            {'3', {0xA6, 0xE3, 0xA1, 255}},
            {'.', kBlack}};
}

}  // namespace orvel_test
