// A scene as a program of C: the scene and its data as texts in it.

function letters(text) {
    const written = text
        .replace(/["\\]/g, "\\$&")
        .replace(/\?(?=\?)/g, "?\\")
        .replace(/\t/g, "\\t")
        .replace(/\r/g, "\\r")
        .replace(
            /[\0-\x08\x0b\x0c\x0e-\x1f\x7f]/g,
            (each) => `\\${each.charCodeAt(0).toString(8).padStart(3, "0")}`,
        );
    return written
        .split("\n")
        .map((line, i, all) => `    "${line}${i < all.length - 1 ? "\\n" : ""}"`)
        .join("\n");
}

/** Pictures as runs of pixels, and the function by which the screen asks for them. */
function picturesInC(pictures) {
    if (pictures.length === 0) return "";
    const runs = pictures.map(({ rgba }, i) => {
        const words = new DataView(rgba.buffer, rgba.byteOffset, rgba.length),
            parts = [];
        for (let at = 0; at < rgba.length;) {
            const color = words.getUint32(at),
                from = at;
            while (at < rgba.length && words.getUint32(at) === color) at += 4;
            parts.push(`${(at - from) / 4}, 0x${color.toString(16).padStart(8, "0")}`);
        }
        const lines = [];
        while (parts.length > 0) lines.push(`    ${parts.splice(0, 6).join(", ")}`);
        return `static const unsigned runs${i}[] = {\n${lines.join(",\n")}};\n`;
    });
    const rows = pictures.map(
        ({ name, width, height }, i) =>
            `    {"${name.replace(/["\\]/g, "\\$&")}", ${width}, ${height}, runs${i}, NULL},\n`,
    );
    return `/* Pictures, as runs of pixels: how many, and their colour. */
${runs.join("")}
static struct picture {
    const char* name;
    int w, h;
    const unsigned* runs;
    orvel_canvas* canvas;
} pictures[] = {
${rows.join("")}};
enum { PICTURES = sizeof pictures / sizeof pictures[0] };

static orvel_canvas* unpacked(const struct picture* from) {
    orvel_canvas* canvas = kit_canvas(from->w, from->h);
    const unsigned* run = from->runs;
    for (int i = 0, left = (int)run[0]; i < from->w * from->h; ++i, --left) {
        if (left == 0) left = (int)(run += 2)[0];
        const orvel_color color = {(unsigned char)(run[1] >> 24), (unsigned char)(run[1] >> 16),
                                   (unsigned char)(run[1] >> 8), (unsigned char)run[1]};
        orvel_canvas_pixel(canvas, i % from->w, i / from->w, color);
    }
    return canvas;
}

static const orvel_canvas* picture(void* self, const char* name) {
    (void)self;
    for (int i = 0; i < PICTURES; ++i) {
        if (strcmp(pictures[i].name, name) != 0) continue;
        if (!pictures[i].canvas) pictures[i].canvas = unpacked(&pictures[i]);
        return pictures[i].canvas;
    }
    return NULL;
}

static const kit_screen_host host = {.picture = picture};
`;
}

/** The program that draws a scene's picture. */
export function sceneProgram({ scene, data, theme, pictures }) {
    const texts = [`static const char scene[] =\n${letters(scene)};\n`];
    if (data !== null) texts.push(`static const char data[] =\n${letters(data)};\n`);
    if (theme !== null)
        texts.push(`static const char theme[] =\n${letters(JSON.stringify(theme))};\n`);
    if (pictures.length > 0) texts.push(picturesInC(pictures));
    const given = [data === null ? "NULL" : "data", pictures.length > 0 ? "&host" : "NULL"].join(
        ", ",
    );
    const themed =
        theme === null
            ? ""
            : `
    if (kit_screen_change(screen, NULL, "theme", theme, why, sizeof why) != 0) goto refused;`;
    const freed =
        pictures.length === 0
            ? ""
            : `
    for (int i = 0; i < PICTURES; ++i) orvel_canvas_destroy(pictures[i].canvas);`;
    return `#include <orvel_screen.h>
#include <stdio.h>
${pictures.length > 0 ? "#include <string.h>\n" : ""}
${texts.join("\n")}
int main(void) {
    char why[1024] = "";
    int w, h, status = 1;
    orvel_canvas* canvas = NULL;
    kit_screen* screen =
        kit_screen_read(scene, sizeof scene - 1, "scene", ${given}, why, sizeof why);
    if (!screen) goto refused;${themed}
    kit_screen_size(screen, &w, &h);
    canvas = kit_canvas(w, h);
    if (kit_screen_draw(screen, canvas, NULL) == 0 && kit_save_bmp(canvas, "picture.bmp") == 0) {
        status = 0;
    }
refused:
    if (why[0]) fprintf(stderr, "%s\\n", why);
    orvel_canvas_destroy(canvas);
    kit_screen_close(screen);${freed}
    return status;
}
`;
}
