// A picture that moves: each one that is saved is a frame. Save it as an animated picture.
const canvas = kit_canvas(160, 120), theme = {};
orvel_theme_default(theme);
const frames = 24;

for (let frame = 0; frame < frames; ++frame) {
    const done = frame / (frames - 1);
    orvel_canvas_clear(canvas, theme.background);
    kit_draw(canvas, theme,
             {kind: ORVEL_WIDGET_SPINNER, box: [60, 20, 40, 40], value: frame / frames});
    kit_text_box(canvas, kit_sans_12(), "Loading", [0, 68, 160, 18], KIT_CENTRE, theme.text);
    kit_draw(canvas, theme, {kind: ORVEL_WIDGET_PROGRESS, box: [20, 92, 120, 10], value: done});
    kit_save_bmp(canvas, `frame-${String(frame + 1).padStart(2, "0")}.bmp`);
}
orvel_canvas_destroy(canvas);
