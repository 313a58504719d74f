// The picture, at a whole number of the screen's pixels for each of its own, and what is under the
// pointer.

const picture = document.getElementById("picture");
const stage = document.getElementById("stage");
const outline = document.getElementById("outline");
const zoom = document.getElementById("zoom");
const byId = (id) => document.getElementById(id);

let shown = { width: 1, height: 1, rgba: new Uint8ClampedArray(4) };
let nodes = [];
let scale = 1;
let place = null;

/** The lines of kit_screen_describe(): what each says, and its box. */
function nodesOf(describe) {
    return describe.split("\n").flatMap((line) => {
        const found = /^ *(.*) (-?\d+),(-?\d+) (\d+)x(\d+)$/.exec(line);
        if (!found) return [];
        const [x, y, w, h] = found.slice(2).map(Number);
        return [{ text: found[1], x, y, w, h }];
    });
}

function nodeAt(x, y) {
    return nodes.findLast(
        (node) => x >= node.x && x < node.x + node.w && y >= node.y && y < node.y + node.h,
    );
}

/** The zoom at which all of the picture shows, where one of at least a pixel for each does. */
function fitting() {
    const look = getComputedStyle(stage);
    const [top, right, bottom, left] = ["Top", "Right", "Bottom", "Left"].map((side) =>
        parseFloat(look[`padding${side}`]),
    );
    const height = parseFloat(look.maxHeight) || stage.clientHeight; // it may grow so far
    return Math.min(
        (stage.clientWidth - left - right) / shown.width,
        (height - top - bottom) / shown.height,
    );
}

function layOut() {
    const dense = window.devicePixelRatio || 1;
    const wanted = Number(zoom.value);
    const each = wanted ? Math.round(wanted * dense) : Math.floor(fitting() * dense);
    scale = Math.max(1, each) / dense;
    document.documentElement.style.setProperty("--shown", `${shown.width / dense}px`);
    picture.style.width = `${shown.width * scale}px`;
    picture.style.height = `${shown.height * scale}px`;
    inspect();
}

/** Shows a picture; @p describe tells its nodes, where it has some. */
export function show(next, describe = "", label = "") {
    shown = next;
    nodes = nodesOf(describe);
    picture.width = next.width;
    picture.height = next.height;
    picture
        .getContext("2d", { willReadFrequently: true })
        .putImageData(new ImageData(next.rgba, next.width, next.height), 0, 0);
    picture.setAttribute(
        "aria-label",
        label || `A picture of ${next.width} by ${next.height} pixels`,
    );
    layOut();
}

/** Shows what changed of the picture, and its nodes as they are now. */
export function patch(part, describe) {
    nodes = nodesOf(describe);
    if (!part) return;
    const { x, y, width, height, rgba } = part;
    for (let row = 0; row < height; row++) {
        const from = rgba.subarray(4 * width * row, 4 * width * (row + 1));
        shown.rgba.set(from, 4 * ((y + row) * shown.width + x));
    }
    const data = new ImageData(rgba, width, height);
    picture.getContext("2d", { willReadFrequently: true }).putImageData(data, x, y);
    inspect();
}

export const current = () => shown;

/** Lays an element of the page over a box of the picture. */
export function lay(mark, box) {
    const sides = { left: box.x, top: box.y, width: box.w, height: box.h };
    for (const [side, value] of Object.entries(sides)) mark.style[side] = `${value * scale}px`;
}

/** The node of a screen in use that has the keyboard. */
export const focusedNode = () =>
    nodes.find(({ text }) => / focus( |$)/.test(text.replace(/"(?:[^"\\]|\\.)*"/g, "")));

/** Whether a place of the picture is in a field for words. */
export const isField = ({ x, y }) => /^(textbox|search)\b/.test(nodeAt(x, y)?.text ?? "");

function inspect() {
    const inside = place && place.x < shown.width && place.y < shown.height;
    outline.hidden = true;
    if (!inside) {
        byId("place").textContent = `${shown.width} × ${shown.height}`;
        byId("color").textContent = byId("node").textContent = "";
        byId("swatch").style.visibility = "hidden";
        return;
    }
    const { x, y } = place,
        at = 4 * (y * shown.width + x);
    const [r, g, b, a] = shown.rgba.subarray(at, at + 4);
    const hex = [r, g, b].map((value) => value.toString(16).padStart(2, "0")).join("");
    byId("place").textContent = `${x}, ${y}`;
    byId("color").textContent = a === 255 ? `#${hex}` : `#${hex} alpha ${a}`;
    byId("swatch").style.visibility = "visible";
    byId("swatch").style.background = `rgb(${r} ${g} ${b} / ${a / 255})`;
    const node = nodeAt(x, y);
    byId("node").textContent = node ? `${node.text}  ${node.x},${node.y} ${node.w}×${node.h}` : "";
    byId("node").title = byId("node").textContent;
    if (node) outlined(node);
}

function outlined(node) {
    outline.hidden = false;
    lay(outline, node);
}

/** The pixel of the picture under the pointer. */
export function pixelAt(event) {
    const box = picture.getBoundingClientRect();
    return {
        x: Math.floor((event.clientX - box.left) / scale),
        y: Math.floor((event.clientY - box.top) / scale),
    };
}

const STEPS = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1] };

function step(event) {
    const [dx, dy] = STEPS[event.key] ?? [];
    if (dx === undefined || event.target !== stage) return;
    event.preventDefault();
    const far = event.shiftKey ? 10 : 1;
    const from = place ?? { x: Math.floor(shown.width / 2), y: Math.floor(shown.height / 2) };
    place = {
        x: Math.min(Math.max(from.x + far * dx, 0), shown.width - 1),
        y: Math.min(Math.max(from.y + far * dy, 0), shown.height - 1),
    };
    inspect();
}

picture.addEventListener("pointermove", (event) => {
    place = pixelAt(event);
    if (place.x < 0 || place.y < 0) place = null;
    inspect();
});
picture.addEventListener("pointerleave", () => {
    place = null;
    inspect();
});
stage.addEventListener("keydown", step);
zoom.addEventListener("change", layOut);
window.addEventListener("resize", layOut); // to another screen's pixels, too
new ResizeObserver(layOut).observe(stage);
