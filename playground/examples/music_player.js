// As examples/music_player.c: a music player.

const WIDTH = 640, HEIGHT = 480, LEFT = 24, RIGHT = 616, COVER = 200, BAR = 376;

function quiet(p) { return kit_mix(p.theme.text, p.theme.surface, 45); }

function rgb(r, g, b) {
    return [r, g, b, 255];
}

// The cover: a night ferry under the moon, made of lines, discs and triangles.
function draw_sky(c, x, y) {
    for (let row = 0; row < 132; ++row) {
        const color =
            row < 80 ? kit_mix(rgb(24, 20, 60), rgb(120, 60, 130), Math.trunc(row * 100 / 80))
                     : kit_mix(rgb(120, 60, 130), rgb(250, 150, 120),
                                Math.trunc((row - 80) * 100 / 52));
        orvel_canvas_line(c, x, y + row, x + COVER - 1, y + row, color);
    }
    for (let i = 0; i < 34; ++i) {
        const star = i * 7919 % 14400;
        orvel_canvas_pixel(c, x + 4 + star % 193, y + 4 + Math.trunc(star / 193),
                           rgb(255, 236, 214));
    }
    orvel_canvas_fill_circle(c, x + 138, y + 62, 33, rgb(188, 96, 128));
    orvel_canvas_fill_circle(c, x + 138, y + 62, 28, rgb(255, 222, 178));
}

function draw_sea(c, x, y) {
    orvel_canvas_fill_triangle(c, x, y + 131, x, y + 92, x + 74, y + 131, rgb(66, 38, 92));
    orvel_canvas_fill_triangle(c, x + 30, y + 131, x + 72, y + 104, x + 122, y + 131,
                               rgb(86, 46, 102));
    orvel_canvas_fill_triangle(c, x + 150, y + 131, x + 199, y + 98, x + 199, y + 131,
                               rgb(66, 38, 92));
    for (let row = 132; row < COVER; ++row) {
        orvel_canvas_line(c, x, y + row, x + COVER - 1, y + row,
                          kit_mix(rgb(96, 52, 112), rgb(20, 16, 48),
                                  Math.trunc((row - 132) * 100 / 68)));
    }
    for (let i = 0; i < 11; ++i) { // the moon on the water
        const half = 30 - 2 * i + i * 5 % 7;
        orvel_canvas_fill_rect(c, x + 138 - half + i * 3 % 5, y + 138 + 5 * i, 2 * half, 2,
                               rgb(255, 206, 160));
    }
}

function draw_ferry(c, x, y) {
    const hull = rgb(16, 12, 34), light = rgb(255, 214, 120);
    orvel_canvas_fill_triangle(c, x + 34, y + 130, x + 52, y + 130, x + 52, y + 144, hull);
    orvel_canvas_fill_rect(c, x + 52, y + 130, 56, 15, hull);
    orvel_canvas_fill_triangle(c, x + 107, y + 130, x + 120, y + 130, x + 107, y + 144, hull);
    orvel_canvas_fill_rect(c, x + 50, y + 119, 54, 12, hull);
    orvel_canvas_fill_rect(c, x + 60, y + 109, 32, 11, hull);
    orvel_canvas_fill_rect(c, x + 82, y + 98, 7, 12, rgb(226, 88, 92));
    orvel_canvas_fill_rect(c, x + 82, y + 98, 7, 3, hull);
    for (let i = 0; i < 7; ++i) orvel_canvas_fill_rect(c, x + 54 + 7 * i, y + 123, 3, 3, light);
    for (let i = 0; i < 3; ++i) orvel_canvas_fill_rect(c, x + 64 + 7 * i, y + 112, 3, 3, light);
}

function draw_cover(p, x, y) {
    draw_sky(p.canvas, x, y);
    draw_sea(p.canvas, x, y);
    draw_ferry(p.canvas, x, y);
    orvel_canvas_rect(p.canvas, x - 1, y - 1, COVER + 2, COVER + 2, p.theme.border);
}

function draw_spectrum(p, at) {
    const levels = [38, 55, 74, 92, 97, 88, 93, 81, 64, 70, 86, 90, 76, 58, 49, 61,
                                 72, 66, 80, 69, 51, 42, 48, 60, 57, 63, 47, 36, 31, 44, 52, 40,
                                 33, 38, 27, 22, 30, 34, 24, 18, 21, 15, 17, 11, 8,  6];
    const values = levels.map((level) => level / 100);
    const frameless = {...p.theme, border: p.theme.background};
    const bars = orvel_widget_bars(p.canvas, frameless, at.x, at.y, at.w, at.h);
    orvel_widget_set_data(bars, values);
    show(bars);
}

function draw_action(p, icon, size, name, at, color) {
    show(orvel_widget_button(p.canvas, p.theme, "", at.x, at.y, at.w, at.h));
    orvel_draw_icon(p.canvas, icon, at.x + 18 - size / 2, at.y + 13 - size / 2, size, color);
    say(p, kit_sans_12(), name, [at.x + 34, at.y, at.w - 34, at.h], KIT_LEFT,
        p.theme.button_text);
}

function draw_song(p) {
    const t = p.theme;
    const x = LEFT + COVER + 24, w = RIGHT - x;
    say(p, kit_sans_11(), "PLAYING FROM ALBUM", [x, 22, w, 14], KIT_LEFT, t.accent);
    say(p, kit_bold_18(), "Harbour Lights", [x, 42, w, 26], KIT_LEFT, t.text);
    say(p, kit_sans_12(), "The Night Ferry  ·  Crossings  ·  2024", [x, 70, w, 18],
        KIT_LEFT, quiet(p));
    draw_action(p, "heart", 18, "Liked", {x, y: 98, w: 84, h: 26}, t.error);
    draw_action(p, "plus", 24, "Playlist", {x: x + 92, y: 98, w: 94, h: 26}, t.accent);
    draw_action(p, "share", 18, "Share", {x: x + 194, y: 98, w: 84, h: 26}, t.accent);
    draw_spectrum(p, {x, y: 140, w, h: 86});
}

function draw_track(p, index, y) {
    const tracks = [
        ["3", "Slow Engines", "The Night Ferry", "4:12"],
        ["4", "Harbour Lights", "The Night Ferry", "5:38"],
        ["5", "Café on Deck B", "Ana Ruiz Trio", "3:21"],
        ["6", "Öresund at Four in the Morning", "Kattegat", "6:05"],
    ];
    const H = 30;
    const playing = index == 1;
    const detail = playing ? p.theme.text : quiet(p);
    const plain = {...p.theme};
    plain.border = playing ? plain.button_hover : plain.background;
    plain.accent = plain.border;
    show(orvel_widget_list_item(p.canvas, plain, "", "", LEFT, y, RIGHT - LEFT, H, playing));
    if (playing) {
        orvel_canvas_fill_rect(p.canvas, LEFT, y, 3, H, p.theme.accent);
        orvel_draw_icon(p.canvas, "play", LEFT + 12, y + 7, 16, p.theme.accent);
    } else {
        say(p, kit_sans_11(), tracks[index][0], [LEFT + 12, y, 16, H], KIT_CENTRE,
            quiet(p));
    }
    say(p, playing ? kit_bold_12() : kit_sans_12(), tracks[index][1],
        [LEFT + 44, y, 300, H], KIT_LEFT, p.theme.text);
    say(p, kit_sans_11(), tracks[index][2], [LEFT + 344, y, 150, H], KIT_LEFT, detail);
    say(p, kit_sans_11(), tracks[index][3], [RIGHT - 72, y, 60, H], KIT_RIGHT, detail);
}

// The catalogue has no such sign: two triangles and a bar make it. Way is 1 or -1.
function draw_skip(p, cx, cy, way) {
    for (let i = 0; i < 2; ++i) {
        const base = cx + way * (8 * i - 8);
        orvel_canvas_fill_triangle(p.canvas, base, cy - 7, base, cy + 7, base + way * 8, cy,
                                   p.theme.text);
    }
    orvel_canvas_fill_rect(p.canvas, way > 0 ? cx + 9 : cx - 10, cy - 7, 2, 15, p.theme.text);
}

function draw_transport(p) {
    const CX = WIDTH / 2, CY = BAR + 64;
    const t = p.theme;
    orvel_canvas_fill_rect(p.canvas, 0, BAR, WIDTH, HEIGHT - BAR, t.surface);
    show(orvel_widget_separator(p.canvas, t, 0, BAR, WIDTH));

    show(orvel_widget_slider(p.canvas, t, LEFT + 48, BAR + 14, RIGHT - LEFT - 96, 137.0 / 338));
    say(p, kit_sans_11(), "2:17", [LEFT, BAR + 9, 40, 20], KIT_LEFT, t.text);
    say(p, kit_sans_11(), "5:38", [RIGHT - 40, BAR + 9, 40, 20], KIT_RIGHT, quiet(p));

    orvel_canvas_fill_circle(p.canvas, CX, CY, 24, t.accent);
    orvel_canvas_fill_rect(p.canvas, CX - 8, CY - 10, 6, 21, t.background);
    orvel_canvas_fill_rect(p.canvas, CX + 3, CY - 10, 6, 21, t.background);
    draw_skip(p, CX - 60, CY, -1);
    draw_skip(p, CX + 60, CY, 1);
    orvel_draw_icon(p.canvas, "download", CX - 124, CY - 10, 20, t.text);
    orvel_draw_icon(p.canvas, "list", CX + 104, CY - 10, 20, t.text);

    orvel_canvas_fill_rect(p.canvas, LEFT, CY - 14, 28, 28, t.button);
    orvel_draw_icon(p.canvas, "music", LEFT + 4, CY - 10, 20, t.accent);
    say(p, kit_bold_12(), "Kitchen", [LEFT + 38, CY - 16, 100, 16], KIT_LEFT, t.text);
    say(p, kit_sans_11(), "Lossless, 48 kHz", [LEFT + 38, CY, 110, 16], KIT_LEFT,
        quiet(p));
    orvel_draw_icon(p.canvas, "signal", RIGHT - 140, CY - 12, 24, t.text);
    show(orvel_widget_slider(p.canvas, t, RIGHT - 104, CY - 4, 100, 0.6));
}

const p = {canvas: kit_canvas(WIDTH, HEIGHT), theme: {}};
orvel_theme_default(p.theme);
orvel_canvas_clear(p.canvas, p.theme.background);
draw_cover(p, LEFT, 24);
draw_song(p);
for (let i = 0; i < 4; ++i) draw_track(p, i, 242 + 32 * i);
draw_transport(p);
orvel_canvas_save_bmp(p.canvas, "music_player.bmp");
orvel_canvas_destroy(p.canvas);

function show(widget) {
    orvel_widget_draw(widget);
    orvel_widget_destroy(widget);
}

function say(p, face, text, at, align, color) {
    kit_text_box(p.canvas, face, text, at, align, color);
}
