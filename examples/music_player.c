/* A music player. Usage: music_player FOLDER */
#include "output.h"
#include "page.h"

enum { WIDTH = 640, HEIGHT = 480, LEFT = 24, RIGHT = 616, COVER = 200, BAR = 376 };

static orvel_color quiet(const page* p) { return kit_mix(p->theme.text, p->theme.surface, 45); }

static orvel_color rgb(int r, int g, int b) {
    return (orvel_color){(unsigned char)r, (unsigned char)g, (unsigned char)b, 255};
}

/* The cover: a night ferry under the moon, made of lines, discs and triangles. */
static void draw_sky(orvel_canvas* c, int x, int y) {
    for (int row = 0; row < 132; ++row) {
        const orvel_color color =
            row < 80 ? kit_mix(rgb(24, 20, 60), rgb(120, 60, 130), row * 100 / 80)
                     : kit_mix(rgb(120, 60, 130), rgb(250, 150, 120), (row - 80) * 100 / 52);
        orvel_canvas_line(c, x, y + row, x + COVER - 1, y + row, color);
    }
    for (int i = 0; i < 34; ++i) {
        const int star = i * 7919 % 14400;
        orvel_canvas_pixel(c, x + 4 + star % 193, y + 4 + star / 193, rgb(255, 236, 214));
    }
    orvel_canvas_fill_circle(c, x + 138, y + 62, 33, rgb(188, 96, 128));
    orvel_canvas_fill_circle(c, x + 138, y + 62, 28, rgb(255, 222, 178));
}

static void draw_sea(orvel_canvas* c, int x, int y) {
    orvel_canvas_fill_triangle(c, x, y + 131, x, y + 92, x + 74, y + 131, rgb(66, 38, 92));
    orvel_canvas_fill_triangle(c, x + 30, y + 131, x + 72, y + 104, x + 122, y + 131,
                               rgb(86, 46, 102));
    orvel_canvas_fill_triangle(c, x + 150, y + 131, x + 199, y + 98, x + 199, y + 131,
                               rgb(66, 38, 92));
    for (int row = 132; row < COVER; ++row) {
        orvel_canvas_line(c, x, y + row, x + COVER - 1, y + row,
                          kit_mix(rgb(96, 52, 112), rgb(20, 16, 48), (row - 132) * 100 / 68));
    }
    for (int i = 0; i < 11; ++i) { /* the moon on the water */
        const int half = 30 - 2 * i + i * 5 % 7;
        orvel_canvas_fill_rect(c, x + 138 - half + i * 3 % 5, y + 138 + 5 * i, 2 * half, 2,
                               rgb(255, 206, 160));
    }
}

static void draw_ferry(orvel_canvas* c, int x, int y) {
    const orvel_color hull = rgb(16, 12, 34), light = rgb(255, 214, 120);
    orvel_canvas_fill_triangle(c, x + 34, y + 130, x + 52, y + 130, x + 52, y + 144, hull);
    orvel_canvas_fill_rect(c, x + 52, y + 130, 56, 15, hull);
    orvel_canvas_fill_triangle(c, x + 107, y + 130, x + 120, y + 130, x + 107, y + 144, hull);
    orvel_canvas_fill_rect(c, x + 50, y + 119, 54, 12, hull);
    orvel_canvas_fill_rect(c, x + 60, y + 109, 32, 11, hull);
    orvel_canvas_fill_rect(c, x + 82, y + 98, 7, 12, rgb(226, 88, 92));
    orvel_canvas_fill_rect(c, x + 82, y + 98, 7, 3, hull);
    for (int i = 0; i < 7; ++i) orvel_canvas_fill_rect(c, x + 54 + 7 * i, y + 123, 3, 3, light);
    for (int i = 0; i < 3; ++i) orvel_canvas_fill_rect(c, x + 64 + 7 * i, y + 112, 3, 3, light);
}

static void draw_cover(const page* p, int x, int y) {
    draw_sky(p->canvas, x, y);
    draw_sea(p->canvas, x, y);
    draw_ferry(p->canvas, x, y);
    orvel_canvas_rect(p->canvas, x - 1, y - 1, COVER + 2, COVER + 2, p->theme.border);
}

static void draw_spectrum(const page* p, kit_box at) {
    static const int levels[] = {38, 55, 74, 92, 97, 88, 93, 81, 64, 70, 86, 90, 76, 58, 49, 61,
                                 72, 66, 80, 69, 51, 42, 48, 60, 57, 63, 47, 36, 31, 44, 52, 40,
                                 33, 38, 27, 22, 30, 34, 24, 18, 21, 15, 17, 11, 8,  6};
    enum { COUNT = sizeof levels / sizeof levels[0] };
    double values[COUNT];
    for (int i = 0; i < COUNT; ++i) values[i] = levels[i] / 100.0;
    orvel_theme frameless = p->theme;
    frameless.border = p->theme.background;
    orvel_widget* bars = orvel_widget_bars(p->canvas, &frameless, at.x, at.y, at.w, at.h);
    orvel_widget_set_data(bars, values, COUNT);
    show(bars);
}

static void draw_action(const page* p, const char* icon, int size, const char* name, kit_box at,
                        orvel_color color) {
    show(orvel_widget_button(p->canvas, &p->theme, "", at.x, at.y, at.w, at.h));
    orvel_draw_icon(p->canvas, icon, at.x + 18 - size / 2, at.y + 13 - size / 2, size, color);
    say(p, kit_sans_12(), name, (kit_box){at.x + 34, at.y, at.w - 34, at.h}, KIT_LEFT,
        p->theme.button_text);
}

static void draw_song(const page* p) {
    const orvel_theme* t = &p->theme;
    const int x = LEFT + COVER + 24, w = RIGHT - x;
    say(p, kit_sans_11(), "PLAYING FROM ALBUM", (kit_box){x, 22, w, 14}, KIT_LEFT, t->accent);
    say(p, kit_bold_18(), "Harbour Lights", (kit_box){x, 42, w, 26}, KIT_LEFT, t->text);
    say(p, kit_sans_12(), "The Night Ferry  ·  Crossings  ·  2024", (kit_box){x, 70, w, 18},
        KIT_LEFT, quiet(p));
    draw_action(p, "heart", 18, "Liked", (kit_box){x, 98, 84, 26}, t->error);
    draw_action(p, "plus", 24, "Playlist", (kit_box){x + 92, 98, 94, 26}, t->accent);
    draw_action(p, "share", 18, "Share", (kit_box){x + 194, 98, 84, 26}, t->accent);
    draw_spectrum(p, (kit_box){x, 140, w, 86});
}

static void draw_track(const page* p, int index, int y) {
    static const char* const tracks[][4] = {
        {"3", "Slow Engines", "The Night Ferry", "4:12"},
        {"4", "Harbour Lights", "The Night Ferry", "5:38"},
        {"5", "Café on Deck B", "Ana Ruiz Trio", "3:21"},
        {"6", "Öresund at Four in the Morning", "Kattegat", "6:05"},
    };
    enum { H = 30 };
    const int playing = index == 1;
    const orvel_color detail = playing ? p->theme.text : quiet(p);
    orvel_theme plain = p->theme;
    plain.border = playing ? plain.button_hover : plain.background;
    plain.accent = plain.border;
    show(orvel_widget_list_item(p->canvas, &plain, "", "", LEFT, y, RIGHT - LEFT, H, playing));
    if (playing) {
        orvel_canvas_fill_rect(p->canvas, LEFT, y, 3, H, p->theme.accent);
        orvel_draw_icon(p->canvas, "play", LEFT + 12, y + 7, 16, p->theme.accent);
    } else {
        say(p, kit_sans_11(), tracks[index][0], (kit_box){LEFT + 12, y, 16, H}, KIT_CENTRE,
            quiet(p));
    }
    say(p, playing ? kit_bold_12() : kit_sans_12(), tracks[index][1],
        (kit_box){LEFT + 44, y, 300, H}, KIT_LEFT, p->theme.text);
    say(p, kit_sans_11(), tracks[index][2], (kit_box){LEFT + 344, y, 150, H}, KIT_LEFT, detail);
    say(p, kit_sans_11(), tracks[index][3], (kit_box){RIGHT - 72, y, 60, H}, KIT_RIGHT, detail);
}

/* The catalogue has no such sign: two triangles and a bar make it. Way is 1 or -1. */
static void draw_skip(const page* p, int cx, int cy, int way) {
    for (int i = 0; i < 2; ++i) {
        const int base = cx + way * (8 * i - 8);
        orvel_canvas_fill_triangle(p->canvas, base, cy - 7, base, cy + 7, base + way * 8, cy,
                                   p->theme.text);
    }
    orvel_canvas_fill_rect(p->canvas, way > 0 ? cx + 9 : cx - 10, cy - 7, 2, 15, p->theme.text);
}

static void draw_transport(const page* p) {
    enum { CX = WIDTH / 2, CY = BAR + 64 };
    const orvel_theme* t = &p->theme;
    orvel_canvas_fill_rect(p->canvas, 0, BAR, WIDTH, HEIGHT - BAR, t->surface);
    show(orvel_widget_separator(p->canvas, t, 0, BAR, WIDTH));

    show(orvel_widget_slider(p->canvas, t, LEFT + 48, BAR + 14, RIGHT - LEFT - 96, 137.0 / 338));
    say(p, kit_sans_11(), "2:17", (kit_box){LEFT, BAR + 9, 40, 20}, KIT_LEFT, t->text);
    say(p, kit_sans_11(), "5:38", (kit_box){RIGHT - 40, BAR + 9, 40, 20}, KIT_RIGHT, quiet(p));

    orvel_canvas_fill_circle(p->canvas, CX, CY, 24, t->accent);
    orvel_canvas_fill_rect(p->canvas, CX - 8, CY - 10, 6, 21, t->background);
    orvel_canvas_fill_rect(p->canvas, CX + 3, CY - 10, 6, 21, t->background);
    draw_skip(p, CX - 60, CY, -1);
    draw_skip(p, CX + 60, CY, 1);
    orvel_draw_icon(p->canvas, "download", CX - 124, CY - 10, 20, t->text);
    orvel_draw_icon(p->canvas, "list", CX + 104, CY - 10, 20, t->text);

    orvel_canvas_fill_rect(p->canvas, LEFT, CY - 14, 28, 28, t->button);
    orvel_draw_icon(p->canvas, "music", LEFT + 4, CY - 10, 20, t->accent);
    say(p, kit_bold_12(), "Kitchen", (kit_box){LEFT + 38, CY - 16, 100, 16}, KIT_LEFT, t->text);
    say(p, kit_sans_11(), "Lossless, 48 kHz", (kit_box){LEFT + 38, CY, 110, 16}, KIT_LEFT,
        quiet(p));
    orvel_draw_icon(p->canvas, "signal", RIGHT - 140, CY - 12, 24, t->text);
    show(orvel_widget_slider(p->canvas, t, RIGHT - 104, CY - 4, 100, 0.6));
}

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    page p = {.canvas = new_canvas(WIDTH, HEIGHT)};
    orvel_theme_default(&p.theme);
    orvel_canvas_clear(p.canvas, p.theme.background);
    draw_cover(&p, LEFT, 24);
    draw_song(&p);
    for (int i = 0; i < 4; ++i) draw_track(&p, i, 242 + 32 * i);
    draw_transport(&p);
    save(p.canvas, orvel_canvas_save_bmp, folder, "music_player.bmp");
    orvel_canvas_destroy(p.canvas);
    return 0;
}
