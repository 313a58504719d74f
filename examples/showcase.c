/* An instrument panel of 320 x 240 pixels, made of shapes and words. */
#include "orvel_kit.h"
#include "output.h"

static const orvel_color desk = {13, 16, 22, 255}, slab = {24, 29, 39, 255};
static const orvel_color edge = {52, 61, 78, 255}, well = {9, 11, 16, 255};
static const orvel_color faint = {29, 38, 50, 255}, label = {122, 136, 160, 255};
static const orvel_color white = {232, 237, 245, 255}, cyan = {64, 201, 224, 255};
static const orvel_color green = {72, 199, 116, 255}, amber = {255, 184, 77, 255};
static const orvel_color red = {240, 84, 84, 255}, dim_cyan = {20, 70, 84, 255};

/* 1000 times the sine of whole degrees, by Bhaskara's formula: integers give the same picture on
   every machine. */
static int sine(int degrees) {
    degrees = (degrees % 360 + 360) % 360;
    const int sign = degrees < 180 ? 1 : -1;
    const int a = degrees % 180 * (180 - degrees % 180);
    return sign * 4000 * a / (40500 - a);
}

/* The point at a distance and an angle, counted clockwise from the right, from a centre. */
typedef struct {
    int x, y;
} point;

static point polar(int cx, int cy, int distance, int degrees) {
    const point p = {cx + distance * sine(degrees + 90) / 1000,
                     cy + distance * sine(degrees) / 1000};
    return p;
}

/* A digit as displays of seven strokes have it, 4u wide and 7u high for a stroke of u pixels, its
 * top left at (x, y). */
static void draw_digit(orvel_canvas* canvas, int x, int y, int u, int digit, orvel_color lit) {
    /* Bit 0 is the top stroke, then clockwise around, bit 6 the middle. */
    static const unsigned char strokes[10] = {0x3f, 0x06, 0x5b, 0x4f, 0x66,
                                              0x6d, 0x7d, 0x07, 0x7f, 0x6f};
    static const struct {
        int x, y, w, h;
    } places[7] = {{0, 0, 4, 1}, {3, 0, 1, 4}, {3, 3, 1, 4}, {0, 6, 4, 1},
                   {0, 3, 1, 4}, {0, 0, 1, 4}, {0, 3, 4, 1}};
    for (int i = 0; i < 7; ++i) {
        if (strokes[digit] >> i & 1) {
            orvel_canvas_fill_rect(canvas, x + places[i].x * u, y + places[i].y * u,
                                   places[i].w * u, places[i].h * u, lit);
        }
    }
}

/* A number of the given count of digits with leading zeros, 5u a digit. */
static void draw_number(orvel_canvas* canvas, int x, int y, int u, int value, int digits,
                        orvel_color lit) {
    for (int i = digits - 1; i >= 0; --i) {
        draw_digit(canvas, x + i * 5 * u, y, u, value % 10, lit);
        value /= 10;
    }
}

/* A slab with its corners cut by a pixel, a lit upper edge, and a caption. */
static void draw_slab(orvel_canvas* c, int x, int y, int w, int h, const char* caption) {
    orvel_canvas_fill_rect(c, x + 1, y, w - 2, h, edge);
    orvel_canvas_fill_rect(c, x, y + 1, w, h - 2, edge);
    orvel_canvas_fill_rect(c, x + 1, y + 1, w - 2, h - 2, slab);
    kit_text_draw(c, kit_sans_11(), caption, x + 7, y + 12, label);
}

static void draw_lamp(orvel_canvas* c, int x, int y, orvel_color lit) {
    orvel_canvas_fill_circle(c, x, y, 4, well);
    orvel_canvas_fill_circle(c, x, y, 3, lit);
    orvel_canvas_pixel(c, x - 1, y - 1, white);
}

static void draw_header(orvel_canvas* c) {
    orvel_canvas_fill_rect(c, 0, 0, 320, 26, slab);
    orvel_canvas_line(c, 0, 26, 319, 26, edge);
    orvel_canvas_fill_triangle(c, 9, 19, 17, 5, 25, 19, cyan);
    orvel_canvas_fill_triangle(c, 14, 16, 17, 11, 20, 16, slab);
    kit_text_draw(c, kit_bold_12(), "Orvel SDK", 34, 17, white);
    draw_lamp(c, 208, 13, green);
    draw_lamp(c, 222, 13, amber);
    draw_lamp(c, 236, 13, red);
    draw_number(c, 255, 6, 2, 12, 2, cyan);
    orvel_canvas_fill_rect(c, 276, 10, 2, 2, cyan);
    orvel_canvas_fill_rect(c, 276, 15, 2, 2, cyan);
    draw_number(c, 281, 6, 2, 47, 2, cyan);
}

/* A round gauge over 270 degrees, 0 to 100. */
static void draw_gauge(orvel_canvas* c, int cx, int cy, int r, int value) {
    orvel_canvas_fill_circle(c, cx, cy, r, edge);
    orvel_canvas_fill_circle(c, cx, cy, r - 2, well);
    for (int step = 0; step <= 100; step += 2) {
        const int angle = 135 + 270 * step / 100;
        const orvel_color zone = step < 60 ? green : step < 84 ? amber : red;
        const int tall = step % 10 == 0;
        const point outer = polar(cx, cy, r - 6, angle);
        const point inner = polar(cx, cy, r - (tall ? 14 : 9), angle);
        orvel_canvas_line(c, outer.x, outer.y, inner.x, inner.y, tall ? white : zone);
    }
    const int angle = 135 + 270 * value / 100;
    const point tip = polar(cx, cy, r - 12, angle);
    const point left = polar(cx, cy, 4, angle + 90), right = polar(cx, cy, 4, angle - 90);
    orvel_canvas_fill_triangle(c, left.x, left.y, tip.x, tip.y, right.x, right.y, red);
    orvel_canvas_fill_circle(c, cx, cy, 6, edge);
    orvel_canvas_fill_circle(c, cx, cy, 4, slab);
    draw_number(c, cx - 15, cy + r - 27, 2, value, 3, amber);
}

/* An oscilloscope: a grid, and two waves as chains of lines. */
static void draw_scope(orvel_canvas* c, int x, int y, int w, int h) {
    orvel_canvas_fill_rect(c, x, y, w, h, well);
    for (int gx = x + 10; gx < x + w; gx += 10) orvel_canvas_line(c, gx, y, gx, y + h - 1, faint);
    for (int gy = y + 8; gy < y + h; gy += 8) orvel_canvas_line(c, x, gy, x + w - 1, gy, faint);
    orvel_canvas_line(c, x, y + h / 2, x + w - 1, y + h / 2, edge);
    int previous = 0, previous_dim = 0;
    for (int i = 0; i < w; i += 2) {
        const int swell = sine(i * 180 / w);
        const int wave = y + h / 2 - (h / 2 - 4) * sine(i * 5) / 1000 * swell / 1000;
        const int dim = y + h / 2 - (h / 2 - 8) * sine(i * 3 + 60) / 1000;
        if (i > 0) {
            orvel_canvas_line(c, x + i - 2, previous_dim, x + i, dim, dim_cyan);
            orvel_canvas_line(c, x + i - 2, previous, x + i, wave, cyan);
            orvel_canvas_line(c, x + i - 2, previous + 1, x + i, wave + 1, cyan);
        }
        previous = wave;
        previous_dim = dim;
    }
    orvel_canvas_rect(c, x - 1, y - 1, w + 2, h + 2, edge);
}

/* Columns of lit segments with a mark at each peak. */
static void draw_spectrum(orvel_canvas* c, int x, int y) {
    static const int levels[14] = {5, 8, 11, 9, 12, 10, 7, 9, 6, 8, 5, 4, 3, 2};
    for (int i = 0; i < 14; ++i) {
        for (int step = 0; step < 13; ++step) {
            const orvel_color lit = step < 8 ? green : step < 11 ? amber : red;
            const int on = step < levels[i] || step == levels[i] + 1;
            orvel_canvas_fill_rect(c, x + i * 8, y - step * 4, 6, 3, on ? lit : faint);
        }
    }
}

static void draw_fader(orvel_canvas* c, int x, int y, int position, orvel_color cap) {
    orvel_canvas_fill_rect(c, x - 1, y, 3, 44, well);
    for (int i = 0; i <= 44; i += 11) orvel_canvas_line(c, x - 8, y + i, x - 5, y + i, edge);
    orvel_canvas_fill_rect(c, x - 5, y + 40 - position, 11, 7, edge);
    orvel_canvas_fill_rect(c, x - 5, y + 43 - position, 11, 1, cap);
}

/* The horizon of an aircraft: sky and ground in a ring, the ground tilted. */
static void draw_horizon(orvel_canvas* c, int cx, int cy, int r) {
    const orvel_color sky = {58, 128, 196, 255}, ground = {140, 96, 58, 255};
    orvel_canvas_fill_circle(c, cx, cy, r, edge);
    orvel_canvas_fill_circle(c, cx, cy, r - 2, sky);
    for (int dy = -r; dy <= r; ++dy) { /* below the slanting line, inside the ring */
        for (int dx = -r; dx <= r; ++dx) {
            if (dx * dx + dy * dy <= (r - 3) * (r - 3) && 3 * dy > dx + 9) {
                orvel_canvas_pixel(c, cx + dx, cy + dy, ground);
            }
        }
    }
    for (int i = -2; i <= 2; ++i) {
        const int half = i % 2 == 0 ? 7 : 4;
        orvel_canvas_line(c, cx - half, cy + i * 6, cx + half, cy + i * 6, white);
    }
    orvel_canvas_fill_rect(c, cx - 18, cy, 9, 2, amber);
    orvel_canvas_fill_rect(c, cx + 10, cy, 9, 2, amber);
    orvel_canvas_fill_triangle(c, cx - 4, cy + 5, cx, cy - 1, cx + 4, cy + 5, amber);
}

static void draw_footer(orvel_canvas* c) {
    orvel_canvas_fill_rect(c, 0, 222, 320, 18, slab);
    orvel_canvas_line(c, 0, 221, 319, 221, edge);
    kit_text_draw(c, kit_sans_11(), "320 × 240, shapes and words", 10, 235, label);
    for (int i = 0; i < 10; ++i) {
        orvel_canvas_fill_rect(c, 240 + i * 7, 228, 5, 6, i < 7 ? cyan : faint);
    }
}

int main(int argc, char** argv) {
    const char* folder = output_folder(argc, argv);
    orvel_canvas* c = new_canvas(320, 240);
    orvel_canvas_clear(c, desk);
    draw_header(c);
    draw_slab(c, 8, 34, 120, 112, "Speed");
    draw_gauge(c, 68, 92, 48, 72);
    draw_slab(c, 136, 34, 176, 88, "Signal");
    draw_scope(c, 144, 51, 160, 64);
    draw_slab(c, 8, 154, 120, 60, "");
    draw_horizon(c, 38, 184, 25);
    for (int i = 0; i < 3; ++i) {
        static const int positions[3] = {30, 12, 22};
        draw_fader(c, 82 + i * 18, 162, positions[i], i == 0 ? green : i == 1 ? amber : cyan);
    }
    draw_slab(c, 136, 130, 176, 84, "Levels");
    draw_spectrum(c, 145, 203);
    draw_number(c, 268, 150, 4, 98, 2, green);
    kit_text_draw(c, kit_sans_11(), "Peak", 274, 197, label);
    draw_footer(c);
    save(c, orvel_canvas_save_bmp, folder, "showcase.bmp");
    save(c, orvel_canvas_save_bmp_rgba, folder, "showcase-rgba.bmp");
    orvel_canvas_destroy(c);
    return 0;
}
