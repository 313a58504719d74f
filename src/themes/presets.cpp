#include "themes/hex.h"

using namespace orvel;

// Deliberate: in both themes the hovered button has the colour of the borders, and the text of
// buttons that of all other text.

void orvel_theme_default(orvel_theme* theme) {
    if (!theme) return;
    theme->background = color_from_hex("#1e1e2e");
    theme->surface = color_from_hex("#28283a");
    theme->text = color_from_hex("#cdd6f4");
    theme->accent = color_from_hex("#89b4fa");
    theme->border = color_from_hex("#45475a");
    theme->button = color_from_hex("#313244");
    theme->button_hover = color_from_hex("#45475a");
    theme->button_text = color_from_hex("#cdd6f4");
    theme->error = color_from_hex("#f38ba8");
}

void orvel_theme_light(orvel_theme* theme) {
    if (!theme) return;
    theme->background = color_from_hex("#eff1f5");
    theme->surface = color_from_hex("#e6e9ef");
    theme->text = color_from_hex("#4c4f69");
    theme->accent = color_from_hex("#1e66f5");
    theme->border = color_from_hex("#ccd0da");
    theme->button = color_from_hex("#dce0e8");
    theme->button_hover = color_from_hex("#ccd0da");
    theme->button_text = color_from_hex("#4c4f69");
    theme->error = color_from_hex("#d20f39");
}
