// As examples/icon_sheets.c: all 68 icons at three sizes on both themes, with their names below
// them.

const COLUMNS = 7, ROWS = 10, CELL_W = 120, CELL_H = 82, MARGIN = 12, GAP = 8;

const sizes = [48, 24, 16];

// Whether the design measures from the top edge of the canvas: further down, home loses its body,
// and power's stem crosses everything below it.
function measures_from_the_top(name) {
    return name === "home" || name === "power";
}

// Draws the icon on a canvas of its own, and copies that so that the icon's box is at (x, y): with
// what some designs paint beside their box, but of no other icon's room.
function draw_icon(sheet, theme, name, x, y, size) {
    const edge = GAP / 2 - 1, top = measures_from_the_top(name) ? 1 : edge;
    const tile = kit_canvas(size + 2 * edge, size + 2 * edge);
    orvel_canvas_clear(tile, theme.background);
    orvel_draw_icon_ex(tile, name, edge, top, size, theme.text, theme.accent, theme.background);
    kit_copy(sheet, x - edge, y - top, tile, null);
    orvel_canvas_destroy(tile);
}

function draw_cell(sheet, theme, name, x, y) {
    const caption = [x, y + sizes[0] + 4, CELL_W, 18];
    let left = x + (CELL_W - 48 - 24 - 16 - 2 * GAP) / 2;
    for (let i = 0; i < sizes.length; ++i) {
        draw_icon(sheet, theme, name, left, y + sizes[0] - sizes[i], sizes[i]);
        left += sizes[i] + GAP;
    }
    kit_text_box(sheet, kit_sans_11(), name, caption, KIT_CENTRE, theme.text);
}

function draw_sheet(theme, file) {
    const sheet = kit_canvas(COLUMNS * CELL_W + 2 * MARGIN, ROWS * CELL_H + MARGIN);
    orvel_canvas_clear(sheet, theme.background);
    const names = orvel_icon_list();
    for (let i = 0; i < names.length; ++i) {
        draw_cell(sheet, theme, names[i], MARGIN + i % COLUMNS * CELL_W,
                  MARGIN + Math.trunc(i / COLUMNS) * CELL_H);
    }
    orvel_canvas_save_bmp(sheet, file);
    orvel_canvas_destroy(sheet);
}

const theme = {};
orvel_theme_default(theme);
draw_sheet(theme, "icons-dark.bmp");
orvel_theme_light(theme);
draw_sheet(theme, "icons-light.bmp");
