// The tools below the picture: lists that insert, the theme editor, the comparison, the program of
// C.
import { contrast, isColor, PAIRS, record, ROLES } from "./colors.js";
import { copyText, element, saveFile } from "./elements.js";
import { iconSample, WIDGETS } from "./samples.js";
import { current } from "./stage.js";

function tile({ name, width, height, rgba }, label, insert) {
    const canvas = element("canvas", { width, height, "aria-hidden": "true" });
    canvas.getContext("2d").putImageData(new ImageData(rgba, width, height), 0, 0);
    return element(
        "button",
        { title: `Insert ${label}`, onclick: insert },
        canvas,
        element("span", { textContent: name }),
    );
}

/** Icons and widgets, drawn by the library in the theme of the page; @p insert gets what is
 *  clicked. */
export function insertDrawer(engine, insert) {
    const icons = element("div", { className: "tiles" }),
        widgets = element("div", { className: "tiles wide" });
    const find = element("input", {
        type: "search",
        "aria-label": "Find an icon or a widget",
        placeholder: "Find",
    });
    const panel = element(
        "div",
        {},
        element("div", { className: "row" }, find),
        element("h2", { textContent: "Icons" }),
        icons,
        element("h2", { textContent: "Widgets" }),
        widgets,
    );
    find.addEventListener("input", () => {
        for (const button of panel.querySelectorAll(".tiles button")) {
            button.hidden = !button.textContent.includes(find.value.toLowerCase().trim());
        }
    });
    let drawn = "";
    return {
        name: "Icons and widgets",
        panel,
        async draw(theme) {
            if (drawn === JSON.stringify(theme)) return;
            drawn = JSON.stringify(theme);
            const wish = { theme: record(theme) };
            const all = await engine.ask("icons", wish);
            icons.replaceChildren(
                ...all.map((each) => tile(each, each.name, () => insert(iconSample(each.name)))),
            );
            const nodes = WIDGETS.map(({ name, node, width, height }) => ({
                name,
                node,
                width,
                height,
            }));
            const drawings = await engine.ask("widgets", { ...wish, nodes });
            widgets.replaceChildren(
                ...drawings.map((each, i) => tile(each, each.name, () => insert(WIDGETS[i]))),
            );
        },
    };
}

/** The nine colours, and how well they can be told apart; @p changed gets an edited theme. */
export function themeDrawer(changed) {
    const panel = element("div");
    let theme = {};
    const fields = new Map();
    const table = element("tbody");
    const roles = element("div", { className: "roles" });
    for (const role of ROLES) {
        const color = element("input", { type: "color", "aria-label": `${role}, chosen` });
        const text = element("input", {
            type: "text",
            "aria-label": `${role}, as #rrggbb`,
            maxLength: 7,
            spellcheck: false,
        });
        const set = (value) => {
            text.setAttribute("aria-invalid", String(!isColor(value)));
            if (!isColor(value)) return;
            theme = { ...theme, [role]: value.toLowerCase() };
            fill();
            changed(theme);
        };
        color.addEventListener("input", () => set(color.value));
        text.addEventListener("input", () => set(text.value));
        fields.set(role, { color, text });
        roles.append(
            element(
                "div",
                { className: "row" },
                color,
                text,
                element("span", { textContent: role }),
            ),
        );
    }
    const fill = () => {
        for (const [role, { color, text }] of fields) {
            color.value = theme[role];
            if (text !== document.activeElement) text.value = theme[role];
        }
        table.replaceChildren(
            ...PAIRS.map(([on, ground]) => {
                const ratio = contrast(theme[on], theme[ground]);
                const cells = [
                    `${on} on ${ground}`,
                    `${ratio.toFixed(2)} : 1`,
                    ratio < 3 ? "too little" : ratio < 4.5 ? "large words only" : "good",
                ];
                return element(
                    "tr",
                    {},
                    ...cells.map((cell, i) =>
                        element("td", {
                            textContent: cell,
                            className: i > 0 && ratio < 3 ? "poor" : "",
                        }),
                    ),
                );
            }),
        );
    };
    const save = element("button", { textContent: "Save as a theme file" });
    save.addEventListener("click", () => {
        saveFile(
            "theme.json",
            new Blob([`${JSON.stringify(theme, null, 2)}\n`], { type: "application/json" }),
        );
    });
    const head = element(
        "tr",
        {},
        ...["Words", "Contrast", "WCAG 2.2"].map((textContent) => element("th", { textContent })),
    );
    panel.append(
        roles,
        element("h2", { textContent: "How well words stand out" }),
        element("table", {}, element("thead", {}, head), table),
        element("p", {}, ""),
        save,
    );
    return {
        name: "Theme",
        panel,
        set(given) {
            theme = { ...given };
            fill();
        },
    };
}

async function pixelsOf(file) {
    const image = await createImageBitmap(file, {
        premultiplyAlpha: "none",
        colorSpaceConversion: "none",
    });
    const canvas = element("canvas", { width: image.width, height: image.height });
    const context = canvas.getContext("2d", { willReadFrequently: true });
    context.drawImage(image, 0, 0);
    return {
        width: image.width,
        height: image.height,
        rgba: context.getImageData(0, 0, image.width, image.height).data,
    };
}

/** Marks where two pictures differ in red, on the paled picture. */
function differenceOf(one, other) {
    const rgba = new Uint8ClampedArray(one.rgba.length);
    let count = 0,
        first = null;
    for (let at = 0; at < rgba.length; at += 4) {
        const differs = [0, 1, 2].some((i) => one.rgba[at + i] !== other.rgba[at + i]);
        for (let i = 0; i < 3; i++)
            rgba[at + i] = differs ? (i === 0 ? 230 : 0) : 170 + one.rgba[at + i] / 3;
        rgba[at + 3] = 255;
        if (!differs) continue;
        count++;
        first ??= { x: (at / 4) % one.width, y: Math.floor(at / 4 / one.width) };
    }
    return { count, first, picture: { ...one, rgba } };
}

/** A picture to compare with: what is dropped or chosen. */
export function compareDrawer() {
    const file = element("input", {
        type: "file",
        accept: "image/png,image/bmp",
        "aria-label": "A picture to compare with",
    });
    const told = element("p", { role: "status" });
    const canvas = element("canvas", {
        id: "difference",
        hidden: true,
        role: "img",
        "aria-label": "Where the pictures differ",
    });
    const drop = element(
        "div",
        { id: "drop" },
        element("p", {
            textContent:
                "Drop a picture here, or choose one: pixels that differ show red. It stays here.",
        }),
        file,
    );
    const panel = element("div", {}, drop, told, canvas);
    let reference = null;
    const compare = () => {
        if (!reference) return;
        const shown = current();
        canvas.hidden = true;
        if (reference.width !== shown.width || reference.height !== shown.height) {
            const sides = ({ width, height }) => `${width} × ${height}`;
            told.textContent = `The picture is ${sides(shown)}, the other ${sides(reference)}.`;
            return;
        }
        const { count, first, picture } = differenceOf(shown, reference);
        told.textContent =
            count === 0
                ? "No pixel differs."
                : `${count} pixels differ, the first at ${first.x}, ${first.y}.`;
        canvas.hidden = count === 0;
        canvas.width = picture.width;
        canvas.height = picture.height;
        canvas
            .getContext("2d")
            .putImageData(new ImageData(picture.rgba, picture.width, picture.height), 0, 0);
    };
    const take = async (given) => {
        if (!given) return;
        try {
            reference = await pixelsOf(given);
            compare();
        } catch {
            told.textContent = `${given.name} is no picture that this browser reads.`;
        }
    };
    file.addEventListener("change", () => take(file.files[0]));
    for (const [kind, isOver] of [
        ["dragover", true],
        ["dragleave", false],
        ["drop", false],
    ]) {
        drop.addEventListener(kind, () => drop.classList.toggle("over", isOver));
    }
    return { name: "Compare", panel, compare, take };
}

/** The program of C; @p program gives { text } or { lacks } when it is wanted. */
export function programDrawer(program) {
    const code = element("pre", {
        id: "program",
        tabIndex: 0,
        role: "region",
        "aria-label": "The program of C",
    });
    const copy = element("button", { textContent: "Copy" });
    const told = element("span", { role: "status" });
    const sameness = element("span");
    const how = element(
        "p",
        {},
        sameness,
        " Compile it with ",
        element("code", {
            textContent:
                "cc -std=c99 picture.c $(pkg-config --cflags --libs orvelscreen) -o picture",
        }),
    );
    copy.addEventListener("click", async () => {
        told.textContent = (await copyText(code.textContent))
            ? "Copied."
            : "Select the text and copy it.";
    });
    const panel = element("div", {}, how, element("div", { className: "row" }, copy, told), code);
    return {
        name: "Show as C",
        panel,
        draw() {
            const { text, note, lacks } = program();
            sameness.textContent = note || "Draws the same bytes.";
            code.textContent = text ?? `There is none: ${lacks}.`;
            copy.disabled = !text;
            told.textContent = "";
        },
    };
}
