// As examples/typical_screen.c: the light of a room.
function draw_frame(canvas, theme) {
    const parts = [
        {kind: ORVEL_WIDGET_TABS,
         box: [13, 32, 294, 26],
         text: "Climate|Light|Music",
         amount: 1},
        {kind: ORVEL_WIDGET_PANEL, box: [13, 57, 294, 150]},
        {kind: ORVEL_WIDGET_STATUSBAR, box: [0, 218, 320, 22], text: "3 of 5 lamps are on"},
    ];
    for (const part of parts) kit_draw(canvas, theme, part);
    kit_icon(canvas, "sun", 13, 4, 24, theme.accent);
    kit_text_box(canvas, kit_bold_14(), "Living room", [44, 0, 200, 32], KIT_LEFT,
                 theme.text);
}

function draw_controls(canvas, theme) {
    const parts = [
        {kind: ORVEL_WIDGET_LABEL, box: [26, 64, 100, 24], text: "Ceiling"},
        {kind: ORVEL_WIDGET_TOGGLE, box: [260, 68, 34, 16], state: KIT_ACTIVE},
        {kind: ORVEL_WIDGET_LABEL, box: [26, 90, 100, 24], text: "Brightness"},
        {kind: ORVEL_WIDGET_SLIDER, box: [134, 94, 160, 16], value: 0.7},
        {kind: ORVEL_WIDGET_LABEL, box: [26, 116, 100, 24], text: "Colour"},
        {kind: ORVEL_WIDGET_RADIO,
         box: [134, 116, 70, 24],
         text: "Warm",
         state: KIT_ACTIVE},
        {kind: ORVEL_WIDGET_RADIO, box: [224, 116, 70, 24], text: "Cold"},
        {kind: ORVEL_WIDGET_LABEL, box: [26, 143, 100, 22], text: "Turn off after"},
        {kind: ORVEL_WIDGET_STEPPER, box: [184, 143, 110, 22], text: "30 min"},
        {kind: ORVEL_WIDGET_CHECKBOX,
         box: [26, 173, 150, 24],
         text: "With the music",
         state: KIT_ACTIVE},
    ];
    for (const part of parts) kit_draw(canvas, theme, part);
}

const canvas = kit_canvas(320, 240); // opaque black
const theme = {};
orvel_theme_default(theme);

orvel_canvas_clear(canvas, theme.background);
draw_frame(canvas, theme);
draw_controls(canvas, theme);
const button = {kind: ORVEL_WIDGET_BUTTON,
                           box: [184, 173, 110, 26],
                           text: "Good night",
                           icon: "moon",
                           state: KIT_HOVER};
kit_draw(canvas, theme, button);

orvel_canvas_save_bmp(canvas, "typical-screen.bmp");
orvel_canvas_destroy(canvas);
