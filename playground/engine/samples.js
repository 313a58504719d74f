// Small pictures of icons and widgets, for the page's lists.
import { api } from "orvelsdk";
import { makeCanvas, pictureOf } from "./pictures.js";

function drawn(width, height, ground, draw) {
    const canvas = makeCanvas(width, height);
    api.orvel_canvas_clear(canvas, ground);
    draw(canvas);
    const picture = pictureOf(canvas);
    api.orvel_canvas_destroy(canvas);
    return picture;
}

/** Every icon in a theme. */
export function iconSamples(theme) {
    return api
        .orvel_icon_list()
        .map((name) => ({
            name,
            ...drawn(32, 32, theme.background, (canvas) =>
                api.kit_icon(canvas, name, 4, 4, 24, theme.text),
            ),
        }));
}

/** The widgets that the page asks for: { name, scene }. */
export function widgetSamples(theme, nodes) {
    return nodes.map(({ name, node, width = 132, height = 34 }) => {
        const scene = JSON.stringify({
            orvel: 1,
            size: [width, height],
            theme: colorsOf(theme),
            root: { row: [node], pad: 4, align: "center", justify: "center" },
        });
        const screen = api.kit_screen_read(scene, name, "{}", null);
        const picture = drawn(width, height, theme.background, (canvas) =>
            api.kit_screen_draw(screen, canvas, null),
        );
        api.kit_screen_close(screen);
        return { name, ...picture };
    });
}

/** A theme's colours as scenes write them. */
export function colorsOf(theme) {
    const two = (value) => value.toString(16).padStart(2, "0");
    return Object.fromEntries(
        Object.entries(theme).map(([role, { r, g, b }]) => [role, `#${two(r)}${two(g)}${two(b)}`]),
    );
}
