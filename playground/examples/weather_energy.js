// As examples/weather_energy.c: a dashboard in both themes, two pictures.

const WIDTH = 800, HEIGHT = 480, LEFT = 20, MIDDLE = 300, RIGHT = 780;
const TOP = 64, FOOT = 454, TAB = 96;

const kSun = [0xdf, 0x8e, 0x1d, 255];
const kGreen = [0x40, 0xa0, 0x2b, 255];
const kRain = [0x20, 0x9f, 0xb5, 255];

function quiet(p) { return kit_mix(p.theme.text, p.theme.surface, 30); }

function draw_header(p) {
    const sections = ["Overview", "Rooms", "Energy", "History"];
    const t = p.theme;
    orvel_canvas_fill_rect(p.canvas, 0, 0, WIDTH, 44, t.surface);
    kit_icon(p.canvas, "home", LEFT, 8, 28, t.accent);
    say(p, kit_bold_18(), "Lindenhof", [LEFT + 38, 0, 200, 44], KIT_LEFT, t.text);

    show(orvel_widget_menu(p.canvas, t, "|||", MIDDLE, 0, 4 * TAB, 44, 0));
    for (let i = 0; i < 4; ++i) {
        say(p, i == 0 ? kit_bold_12() : kit_sans_12(), sections[i],
            [MIDDLE + TAB * i, 0, TAB, 43], KIT_CENTRE, i == 0 ? t.text : quiet(p));
    }
    show(orvel_widget_separator(p.canvas, t, 0, 44, WIDTH));

    orvel_draw_icon(p.canvas, "mail", RIGHT - 72, 11, 24, t.text);
    const X = RIGHT - 49, Y = 12, R = 8; // the number of letters, clear of the icon
    orvel_canvas_fill_circle(p.canvas, X, Y, R + 2, t.surface);
    orvel_canvas_fill_circle(p.canvas, X, Y, R, t.error);
    say(p, kit_bold_11(), "2", [X - R, Y - R, 2 * R + 1, 2 * R + 1], KIT_CENTRE,
        t.surface);
    show(orvel_widget_avatar(p.canvas, t, "", RIGHT - 26, 9, 26));
    say(p, kit_bold_12(), "A", [RIGHT - 25, 9, 26, 26], KIT_CENTRE, t.background);
}

// A sun behind a cloud: two icons, the cloud first widened by a rim of the ground's colour.
function draw_sky_icon(p, x, y) {
    orvel_draw_icon(p.canvas, "sun", x + 18, y - 8, 60, kSun);
    for (let dy = -2; dy <= 2; dy += 2) {
        for (let dx = -2; dx <= 2; dx += 2) {
            orvel_draw_icon(p.canvas, "cloud", x + dx, y + 12 + dy, 64, p.theme.surface);
        }
    }
    orvel_draw_icon(p.canvas, "cloud", x, y + 12, 64, quiet(p));
}

function draw_fact(p, x, name, value) {
    say(p, kit_bold_12(), value, [x, TOP + 106, 82, 16], KIT_LEFT, p.theme.text);
    say(p, kit_sans_11(), name, [x, TOP + 122, 82, 16], KIT_LEFT, quiet(p));
}

function draw_now(p) {
    const t = p.theme;
    show(orvel_widget_panel(p.canvas, t, LEFT, TOP, MIDDLE - LEFT - 20, 152));
    say(p, kit_sans_40(), "18°", [LEFT + 16, TOP + 14, 120, 40], KIT_LEFT, t.text);
    say(p, kit_bold_12(), "Mostly cloudy", [LEFT + 16, TOP + 60, 140, 16], KIT_LEFT,
        t.text);
    say(p, kit_sans_11(), "High 21°, low 12°", [LEFT + 16, TOP + 76, 140, 16], KIT_LEFT,
        quiet(p));
    draw_sky_icon(p, LEFT + 160, TOP + 16);
    show(orvel_widget_separator(p.canvas, t, LEFT + 16, TOP + 98, MIDDLE - LEFT - 53));
    draw_fact(p, LEFT + 16, "Wind", "14 km/h");
    draw_fact(p, LEFT + 104, "Humidity", "62 %");
    draw_fact(p, LEFT + 184, "Rain", "10 %");
}

function draw_day(p, index, y) {
    const days = [
        ["Sunday", "sun", 12, 23], ["Monday", "sun", 14, 26], ["Tuesday", "cloud", 15, 22],
        ["Wednesday", "cloud", 11, 18], ["Thursday", "sun", 9, 19],
    ];
    const [name, icon, low, high] = days[index];
    const SCALE = 3, START = LEFT + 158;
    const color = icon === "sun" ? kSun : quiet(p);
    say(p, kit_sans_12(), name, [LEFT + 16, y, 80, 30], KIT_LEFT,
        p.theme.text);
    orvel_draw_icon(p.canvas, icon, LEFT + 98, y + 3, 24, color);
    say(p, kit_sans_11(), `${low}°`, [LEFT + 120, y, 30, 30], KIT_RIGHT, quiet(p));
    orvel_canvas_fill_rect(p.canvas, START, y + 13, 20 * SCALE, 4, p.theme.border);
    orvel_canvas_fill_rect(p.canvas, START + (low - 8) * SCALE, y + 13,
                           (high - low) * SCALE, 4, p.theme.accent);
    say(p, kit_bold_12(), `${high}°`, [START + 20 * SCALE, y, 26, 30], KIT_RIGHT,
        p.theme.text);
}

function draw_forecast(p) {
    const y = TOP + 164;
    show(orvel_widget_panel(p.canvas, p.theme, LEFT, y, MIDDLE - LEFT - 20, FOOT - 12 - y));
    say(p, kit_bold_12(), "Next five days", [LEFT + 16, y + 12, 200, 16], KIT_LEFT,
        p.theme.text);
    for (let i = 0; i < 5; ++i) draw_day(p, i, y + 34 + 34 * i);
}

function draw_source(p, index, icon, name, value, unit, color) {
    const x = MIDDLE + 123 * index;
    const stripe = {...p.theme, accent: color};
    show(orvel_widget_card(p.canvas, stripe, x, TOP, 111, 72));
    kit_icon(p.canvas, icon, x + 12, TOP + 9, 24, color);
    say(p, kit_sans_11(), name, [x + 42, TOP + 12, 66, 18], KIT_LEFT, quiet(p));
    say(p, kit_bold_18(), value, [x + 14, TOP + 40, 60, 20], KIT_LEFT, p.theme.text);
    say(p, kit_sans_11(), unit,
        [x + 20 + kit_text_width(kit_bold_18(), value), TOP + 43, 40, 20], KIT_LEFT,
        quiet(p));
}

function draw_key(p, name, x, y, color) {
    orvel_canvas_fill_rect(p.canvas, x, y + 4, 9, 9, color);
    say(p, kit_sans_11(), name, [x + 15, y, 90, 16], KIT_LEFT, quiet(p));
}

// Two bar charts in one place: each has zeros where the other has its values and in the gaps.
function draw_bars(p, at, values, place, color) {
    const data = new Array(72).fill(0);
    const theme = {...p.theme, accent: color, border: p.theme.surface};
    for (let hour = 0; hour < 24; ++hour) data[3 * hour + place] = values[hour] / 50.0;
    const bars = orvel_widget_bars(p.canvas, theme, at.x, at.y, at.w, at.h);
    orvel_widget_set_data(bars, data);
    show(bars);
}

// A rule behind the bars: it fills only what still shows the panel.
function draw_grid_line(p, from, to, y) {
    const ground = p.theme.surface;
    for (let x = from; x < to; ++x) {
        const here = orvel_canvas_pixel_get(p.canvas, x, y);
        if (here.r == ground.r && here.g == ground.g && here.b == ground.b) {
            orvel_canvas_pixel(p.canvas, x, y, p.theme.border);
        }
    }
}

function draw_chart(p) {
    const made = [0,  0,  0,  0,  0,  0,  2,  7, 14, 22, 31, 38,
                                 43, 45, 42, 36, 29, 20, 11, 4, 0,  0,  0,  0];
    const used = [6,  5,  5,  5,  6,  9,  17, 21, 16, 12, 11, 13,
                                 19, 15, 12, 12, 14, 20, 27, 31, 26, 19, 12, 8];
    const hours = ["0:00", "6:00", "12:00", "18:00"];
    const t = p.theme;
    const at = {x: MIDDLE + 24, y: TOP + 118, w: 432, h: 112};
    show(orvel_widget_panel(p.canvas, t, MIDDLE, TOP + 84, RIGHT - MIDDLE, 176));
    say(p, kit_bold_12(), "Power today", [MIDDLE + 16, TOP + 96, 100, 16], KIT_LEFT,
        t.text);
    draw_key(p, "Solar", RIGHT - 120, TOP + 96, kSun);
    draw_key(p, "Use", RIGHT - 56, TOP + 96, t.accent);
    draw_bars(p, at, made, 0, kSun);
    draw_bars(p, at, used, 1, t.accent);
    for (let kilowatts = 0; kilowatts <= 4; kilowatts += 2) {
        const y = at.y + at.h - 2 - kilowatts * 22;
        if (kilowatts > 0) {
            say(p, kit_sans_11(), `${kilowatts} kW`, [at.x, y - 15, 40, 14], KIT_LEFT, quiet(p));
        }
        draw_grid_line(p, MIDDLE + 16, RIGHT - 16, y);
    }
    for (let i = 0; i < 4; ++i) {
        say(p, kit_sans_11(), hours[i], [at.x + 108 * i, at.y + at.h + 4, 48, 18],
            KIT_LEFT, quiet(p));
    }
}

function draw_device(p, index, icon, name, state, on) {
    const at = {x: MIDDLE + 164 * index, y: TOP + 272, w: 152, h: 106};
    show(orvel_widget_panel(p.canvas, p.theme, at.x, at.y, at.w, at.h));
    orvel_draw_icon(p.canvas, icon, at.x + 12, at.y + 11, 24, on ? p.theme.accent : quiet(p));
    show(orvel_widget_toggle(p.canvas, p.theme, at.x + at.w - 44, at.y + 15, 30, 16, on));
    say(p, kit_bold_12(), name, [at.x + 14, at.y + 42, at.w - 28, 16], KIT_LEFT,
        p.theme.text);
    say(p, kit_sans_11(), state, [at.x + 14, at.y + 57, at.w - 28, 16], KIT_LEFT,
        quiet(p));
    return {x: at.x + 14, y: at.y + 78, w: at.w - 28, h: 18};
}

function draw_devices(p) {
    const t = p.theme;
    let at = draw_device(p, 0, "sun", "Heating", "Now 20.8°", 1);
    show(orvel_widget_stepper(p.canvas, t, at.x, at.y, at.w, at.h, 21));
    orvel_canvas_fill_rect(p.canvas, at.x + at.h, at.y, at.w - 2 * at.h, at.h, t.surface);
    say(p, kit_bold_12(), "21.0°", at, KIT_CENTRE, t.text);

    at = draw_device(p, 1, "battery", "Car charger", "Full at 16:40", 1);
    show(orvel_widget_progress(p.canvas, t, at.x, at.y + 4, at.w - 40, 10, 0.64));
    say(p, kit_sans_11(), "64 %", at, KIT_RIGHT, t.text);

    at = draw_device(p, 2, "settings", "Dishwasher", "Waits for the sun", 0);
    show(orvel_widget_button(p.canvas, t, "", at.x, at.y - 2, at.w, at.h + 3));
    say(p, kit_sans_12(), "Start now", [at.x, at.y - 2, at.w, at.h + 3], KIT_CENTRE,
        t.button_text);
}

function draw_footer(p) {
    const at = {x: LEFT, y: FOOT, w: RIGHT - LEFT, h: HEIGHT - FOOT};
    show(orvel_widget_statusbar(p.canvas, p.theme, "", 0, FOOT, WIDTH, HEIGHT - FOOT));
    orvel_canvas_fill_circle(p.canvas, LEFT + 4, FOOT + 13, 4, kGreen);
    say(p, kit_sans_11(), "All systems normal", [LEFT + 16, at.y, 200, at.h], KIT_LEFT,
        p.theme.text);
    say(p, kit_sans_11(), "Saved today 3.84 €   ·   Own power 91 %   ·   Updated 14:05", at,
        KIT_RIGHT, quiet(p));
}

function draw_page(p) {
    orvel_canvas_clear(p.canvas, p.theme.background);
    draw_header(p);
    draw_now(p);
    draw_forecast(p);
    draw_source(p, 0, "sun", "Solar", "4.2", "kW", kSun);
    draw_source(p, 1, "home", "House", "1.4", "kW", p.theme.accent);
    draw_source(p, 2, "battery", "Battery", "76", "%", kGreen);
    draw_source(p, 3, "upload", "To the grid", "1.1", "kW", kRain);
    draw_chart(p);
    draw_devices(p);
    draw_footer(p);
}

const p = {canvas: kit_canvas(WIDTH, HEIGHT), theme: {}};
orvel_theme_light(p.theme);
draw_page(p);
orvel_canvas_save_bmp(p.canvas, "weather_energy_light.bmp");
orvel_theme_default(p.theme);
draw_page(p);
orvel_canvas_save_bmp(p.canvas, "weather_energy_dark.bmp");
orvel_canvas_destroy(p.canvas);

function show(widget) {
    orvel_widget_draw(widget);
    orvel_widget_destroy(widget);
}

function say(p, face, text, at, align, color) {
    kit_text_box(p.canvas, face, text, at, align, color);
}
