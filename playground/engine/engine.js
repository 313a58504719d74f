// What runs in a worker: the library, and what the page asks of it. A program of the user's, laid
// behind this text in a worker of that name, is what orvelPlay() gets instead.
import { api, Canvas, setLog } from "orvelsdk";
import { canLive, openLive, sendLive } from "./live.js";
import { pictureOf } from "./pictures.js";
import { play } from "./play.js";
import { drawScene, keepFiles, reportScene } from "./scenes.js";
import { colorsOf, iconSamples, widgetSamples } from "./samples.js";

setLog(() => {});

function preset(write) {
    const theme = {};
    write(theme);
    return theme;
}

function withCanvas({ width, height, rgba }, use) {
    const canvas = Canvas.fromPixels(width, height, rgba);
    try {
        return use(canvas);
    } finally {
        canvas.free();
    }
}

const answers = {
    start: ({ files }) => (
        keepFiles(files),
        {
            version: api.kit_version(),
            icons: api.orvel_icon_list(),
            live: canLive,
            presets: {
                dark: colorsOf(preset(api.orvel_theme_default)),
                light: colorsOf(preset(api.orvel_theme_light)),
            },
        }
    ),
    scene: drawScene,
    report: reportScene,
    live: openLive,
    send: sendLive,
    icons: ({ theme }) => iconSamples(theme),
    widgets: ({ theme, nodes }) => widgetSamples(theme, nodes),
    /** A picture of a program's as a panel shows it. */
    panel: ({ picture, panel, dither }) =>
        withCanvas(picture, (canvas) => pictureOf(canvas.handle, panel, dither)),
    /** A picture as the bytes of a file. */
    png: ({ picture }) => withCanvas(picture, (canvas) => canvas.png()),
    bmp: ({ picture }) => withCanvas(picture, (canvas) => canvas.bmp()),
};

function serve({ data: { what, wish } }) {
    try {
        self.postMessage({ answer: answers[what](wish) });
    } catch (reason) {
        self.postMessage({ reason: String(reason.message) });
    }
}

if (self.name === "program") self.orvelPlay = play;
else self.onmessage = serve;
