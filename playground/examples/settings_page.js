// As examples/settings_page.c: a settings page in both themes, two pictures.

const WIDTH = 640, HEIGHT = 480, SIDE = 200, LEFT = 224, RIGHT = 616, ROW = 40;
const PREVIEW_TOP = 96, PREVIEW_W = 120, PREVIEW_H = 72, PITCH = 136;

function quiet(p) { return kit_mix(p.theme.text, p.theme.surface, 40); }

// Small controls need a stronger line than panels: the same theme with another border.
function control(p) {
    const theme = {...p.theme};
    theme.border = kit_mix(theme.text, theme.surface, 50);
    theme.surface = theme.background;
    return theme;
}

// A list without lines: its items take the sidebar's colour unless they are selected.
function draw_section(p, icon, name, y, selected) {
    const theme = {...p.theme};
    theme.background = theme.surface;
    theme.border = selected ? theme.button_hover : theme.surface;
    show(orvel_widget_list_item(p.canvas, theme, "", "", 8, y, SIDE - 16, 32, selected));
    orvel_draw_icon(p.canvas, icon, 16, y + 6, 20, theme.accent);
    say(p, selected ? kit_bold_12() : kit_sans_12(), name, [46, y, 120, 32], KIT_LEFT,
        theme.text);
}

function draw_sidebar(p) {
    const sections = [
        ["world", "Network"],   ["phone", "Mobile"],          ["image", "Display"],
        ["music", "Sound"],     ["message", "Notifications"], ["lock", "Privacy"],
        ["battery", "Battery"], ["clock", "Date and time"],
    ];
    const t = p.theme, field = control(p);
    orvel_canvas_fill_rect(p.canvas, 0, 0, SIDE, HEIGHT, t.surface);
    orvel_canvas_fill_rect(p.canvas, SIDE, 0, 1, HEIGHT, t.border);

    show(orvel_widget_avatar(p.canvas, t, "", 16, 16, 36));
    say(p, kit_bold_18(), "M", [17, 16, 36, 37], KIT_CENTRE, t.background);
    say(p, kit_bold_12(), "Mara Lind", [62, 17, 130, 18], KIT_LEFT, t.text);
    say(p, kit_sans_11(), "Administrator", [62, 34, 130, 18], KIT_LEFT, quiet(p));

    show(orvel_widget_search(p.canvas, field, "", 16, 68, SIDE - 32, 26));
    say(p, kit_sans_12(), "Search settings", [46, 68, 130, 26], KIT_LEFT, quiet(p));

    for (let i = 0; i < 8; ++i) {
        draw_section(p, sections[i][0], sections[i][1], 108 + 34 * i, i == 2);
    }
    show(orvel_widget_separator(p.canvas, t, 16, 402, SIDE - 33));
    say(p, kit_sans_12(), "Storage", [16, 418, 80, 20], KIT_LEFT, t.text);
    say(p, kit_sans_11(), "182 of 256 GB", [80, 418, 104, 20], KIT_RIGHT, quiet(p));
    show(orvel_widget_progress(p.canvas, t, 16, 446, SIDE - 32, 10, 182.0 / 256));
}

// A small screen made of real widgets in the theme that it stands for.
function draw_preview(p, look, x) {
    const Y = PREVIEW_TOP, W = PREVIEW_W, H = PREVIEW_H;
    orvel_canvas_fill_rect(p.canvas, x, Y, W, H, look.background);
    orvel_canvas_fill_rect(p.canvas, x, Y, 30, H, look.surface);
    show(orvel_widget_window(p.canvas, look, "", x + 38, Y + 10, 72, 52));
    for (let i = 0; i < 3; ++i) {
        orvel_canvas_fill_rect(p.canvas, x + 6, Y + 12 + 10 * i, 18, 3, look.border);
        orvel_canvas_fill_rect(p.canvas, x + 44, Y + 28 + 7 * i, 44 - 10 * i, 2, look.text);
    }
    show(orvel_widget_button(p.canvas, look, "", x + 84, Y + 48, 20, 9));
    orvel_canvas_rect(p.canvas, x, Y, W, H, p.theme.border);
}

function draw_choice(p, name, x, selected) {
    const Y = PREVIEW_TOP, W = PREVIEW_W, H = PREVIEW_H;
    const button = control(p);
    if (selected) {
        orvel_canvas_rect(p.canvas, x, Y, W, H, p.theme.accent);
        orvel_canvas_rect(p.canvas, x - 1, Y - 1, W + 2, H + 2, p.theme.accent);
    }
    show(orvel_widget_radio(p.canvas, button, "", x, Y + H + 10, selected));
    say(p, selected ? kit_bold_12() : kit_sans_12(), name, [x + 16, Y + H + 5, W, 20],
        KIT_LEFT, p.theme.text);
}

// The third preview is half of each: its right half is a copy of the dark one's pixels.
function draw_appearance(p, light) {
    const dark_look = {}, light_look = {};
    orvel_theme_default(dark_look);
    orvel_theme_light(light_look);
    say(p, kit_bold_12(), "Appearance", [LEFT, 66, 200, 20], KIT_LEFT, p.theme.text);
    draw_preview(p, light_look, LEFT);
    draw_preview(p, light_look, LEFT + 2 * PITCH);
    draw_preview(p, dark_look, LEFT + PITCH);
    kit_copy(p.canvas, LEFT + 2 * PITCH + PREVIEW_W / 2, PREVIEW_TOP, p.canvas,
             [LEFT + PITCH + PREVIEW_W / 2, PREVIEW_TOP, PREVIEW_W / 2, PREVIEW_H]);
    draw_choice(p, "Light", LEFT, light);
    draw_choice(p, "Dark", LEFT + PITCH, !light);
    draw_choice(p, "Follow the sun", LEFT + 2 * PITCH, 0);
}

function draw_label(p, name, detail, y) {
    const middle = detail ? y + 4 : y;
    say(p, kit_sans_12(), name, [LEFT + 16, middle, 200, detail ? 18 : ROW], KIT_LEFT,
        p.theme.text);
    if (detail) {
        say(p, kit_sans_11(), detail, [LEFT + 16, y + 19, 240, 18], KIT_LEFT, quiet(p));
    }
}

function draw_panel(p) {
    const TOP = 208, END = RIGHT - 16;
    const t = p.theme;
    show(orvel_widget_panel(p.canvas, t, LEFT, TOP, RIGHT - LEFT, 5 * ROW + 1));
    for (let i = 1; i < 5; ++i) {
        show(orvel_widget_separator(p.canvas, t, LEFT + 16, TOP + i * ROW, END - LEFT - 17));
    }
    draw_label(p, "Brightness", null, TOP);
    show(orvel_widget_slider(p.canvas, t, END - 200, TOP + 16, 152, 0.72));
    say(p, kit_sans_12(), "72 %", [END - 40, TOP, 40, ROW], KIT_RIGHT, t.text);

    draw_label(p, "Night light", "Warmer colours from 21:00 to 7:00", TOP + ROW);
    show(orvel_widget_toggle(p.canvas, t, END - 36, TOP + ROW + 11, 36, 18, 1));

    draw_label(p, "Text size", null, TOP + 2 * ROW);
    show(orvel_widget_dropdown(p.canvas, t, "", END - 120, TOP + 2 * ROW + 8, 120, 25, 0));
    say(p, kit_sans_12(), "Medium", [END - 110, TOP + 2 * ROW + 8, 80, 25], KIT_LEFT,
        t.text);

    draw_label(p, "Turn off after", null, TOP + 3 * ROW);
    show(orvel_widget_stepper(p.canvas, t, END - 120, TOP + 3 * ROW + 8, 120, 25, 10));
    orvel_canvas_fill_rect(p.canvas, END - 95, TOP + 3 * ROW + 8, 70, 25, t.surface);
    say(p, kit_sans_12(), "10 min", [END - 95, TOP + 3 * ROW + 8, 70, 25], KIT_CENTRE,
        t.text);

    draw_label(p, "Dim when on battery", null, TOP + 4 * ROW);
    const tick = control(p);
    show(orvel_widget_checkbox(p.canvas, tick, "", END - 9, TOP + 4 * ROW + 16, 1));
}

function draw_button(p, theme, name, x) {
    show(orvel_widget_button(p.canvas, theme, "", x, 428, 88, 28));
    say(p, kit_bold_12(), name, [x, 428, 88, 28], KIT_CENTRE, theme.button_text);
}

function draw_footer(p) {
    const primary = {...p.theme};
    primary.button = primary.border = primary.accent;
    primary.button_text = primary.background;
    orvel_draw_icon(p.canvas, "info", LEFT, 432, 20, p.theme.accent);
    say(p, kit_sans_11(), "2 unsaved changes", [LEFT + 28, 428, 160, 28], KIT_LEFT,
        quiet(p));
    draw_button(p, p.theme, "Cancel", RIGHT - 184);
    draw_button(p, primary, "Apply", RIGHT - 88);
}

function draw_page(p, light) {
    orvel_canvas_clear(p.canvas, p.theme.background);
    draw_sidebar(p);
    say(p, kit_bold_18(), "Display", [LEFT, 16, 200, 36], KIT_LEFT, p.theme.text);
    say(p, kit_sans_11(), "Built-in panel, 1920 × 1200 at 60 Hz",
        [LEFT, 16, RIGHT - LEFT, 40], KIT_RIGHT, quiet(p));
    draw_appearance(p, light);
    draw_panel(p);
    draw_footer(p);
}

const p = {canvas: kit_canvas(WIDTH, HEIGHT), theme: {}};
orvel_theme_default(p.theme);
draw_page(p, 0);
orvel_canvas_save_bmp(p.canvas, "settings_dark.bmp");
orvel_theme_light(p.theme);
draw_page(p, 1);
orvel_canvas_save_bmp(p.canvas, "settings_light.bmp");
orvel_canvas_destroy(p.canvas);

function show(widget) {
    orvel_widget_draw(widget);
    orvel_widget_destroy(widget);
}

function say(p, face, text, at, align, color) {
    kit_text_box(p.canvas, face, text, at, align, color);
}
