// Pointer and keyboard into the screen: what happens over the picture becomes events for it.
import { byId, copyText } from "./elements.js";
import { facts } from "./facts.js";
import { focusedNode, isField, lay, patch, pixelAt } from "./stage.js";
import { makeTyping } from "./typing.js";

const { events: KIND, changes: CHANGE, keys: KEYS, modifiers: HELD } = facts;
const FIRST_KEY = KEYS.enter; // of those without a character
const BY_KEYS = [KIND.key, KIND.text, KIND.compose, KIND.paste];
const POINTERS = ["default", "pointer", "text"];

const picture = byId("picture");
const stage = byId("stage");
const encoder = new TextEncoder();
const now = () => Math.round(performance.now());

/** The library's number of a key; undefined where it has none. */
function keyOf({ key }) {
    if ([...key].length === 1) return key.toLowerCase().codePointAt(0);
    return KEYS[key.replace(/^Arrow/, "").toLowerCase()];
}

function modifiersOf({ shiftKey, ctrlKey, metaKey, altKey }) {
    const control = ctrlKey || metaKey;
    return (shiftKey && HELD.shift) | (control && HELD.control) | (altKey && HELD.alt);
}

/**
 * The screen in use: @p told gets a line for each change, @p failed the reason where it ends.
 */
export function makeLive({ engine, told, failed }) {
    let events = [];
    let isOn = false;
    let isBusy = false;
    let leaves = false; // Escape was pressed: Tab leaves the picture
    let hasCaret = false;
    let timer = 0;
    const typing = makeTyping({
        key(name, control = false) {
            send({ kind: KIND.key, key: keyOf({ key: name }), modifiers: control ? HELD.control : 0 });
        },
        text: (text) => send({ kind: KIND.text, text }),
        compose: (text) => send({ kind: KIND.compose, text, caret: encoder.encode(text).length }),
    });

    async function ask(what, wish) {
        isBusy = true;
        try {
            take(await engine.ask(what, { ...wish, now: now() }));
            if (isOn && wish.events?.some(({ event }) => BY_KEYS.includes(event.kind))) reveal();
        } catch (reason) {
            isOn = false;
            failed(reason.message);
        }
        isBusy = false;
        if (isOn && events.length > 0) flush();
    }

    function flush() {
        clearTimeout(timer);
        if (isBusy || !isOn) return;
        const all = events;
        events = [];
        ask("send", { events: all });
    }

    /** Scrolls to what is used by keys, and to where words go in it. */
    function reveal() {
        const node = focusedNode();
        if (!node) return;
        lay(byId("focused"), node);
        for (const mark of [byId("focused"), typing.field]) {
            if (!mark.hidden) mark.scrollIntoView({ block: "nearest", inline: "nearest" });
        }
    }

    /** Has keyboards write into the field of the page while one of the screen has its caret. */
    function typeAt(caret) {
        if (caret) lay(typing.field, caret);
        if (caret && !hasCaret && stage.contains(document.activeElement)) typing.begin();
        if (!caret) typing.end();
        hasCaret = caret !== null;
    }

    function take({ part, changes, wait, pointer, caret, describe }) {
        if (!isOn) return;
        patch(part, describe);
        typeAt(caret);
        picture.style.cursor = POINTERS[pointer] ?? "default";
        changes.forEach(tell);
        clearTimeout(timer);
        if (wait >= 0) timer = setTimeout(() => send({ kind: KIND.time }), Math.max(wait, 8));
    }

    async function tell({ kind, id, name, value }) {
        const who = name || (id && `#${id}`);
        if (kind === CHANGE.value) told(`${who} = ${value}`);
        if (kind === CHANGE.press) told(`${who} was pressed`);
        if (kind === CHANGE.sound) told(`sound ${value}`);
        if (kind === CHANGE.copy) copyText(String(JSON.parse(value)));
        if (kind !== CHANGE.paste) return;
        try {
            send({ kind: KIND.paste, text: await navigator.clipboard.readText() });
        } catch {
            told("The browser does not let the page read the clipboard.");
        }
    }

    function send(event) {
        if (!isOn) return;
        const last = events.at(-1);
        if (event.kind === KIND.move && last?.event.kind === KIND.move) events.pop();
        events.push({ event, now: now() });
        flush();
    }

    function pointer(kind) {
        return (event) => {
            if (!isOn) return;
            if (kind === KIND.press) {
                event.preventDefault();
                picture.setPointerCapture(event.pointerId);
            }
            const at = pixelAt(event);
            const takesWords = isField(at);
            if (kind === KIND.press && !takesWords) stage.focus({ preventScroll: true });
            if (kind === KIND.release && takesWords) typing.begin();
            send({ kind, ...at, button: Math.max(event.button, 0) });
        };
    }

    picture.addEventListener("pointerdown", pointer(KIND.press));
    picture.addEventListener("pointermove", pointer(KIND.move));
    picture.addEventListener("pointerup", pointer(KIND.release));
    picture.addEventListener("pointercancel", () => send({ kind: KIND.leave }));
    picture.addEventListener("pointerleave", () => send({ kind: KIND.leave }));
    picture.addEventListener(
        "wheel",
        (event) => {
            if (!isOn) return;
            event.preventDefault();
            const [dx, dy] = [event.deltaX, -event.deltaY].map((by) => Math.round(by * 1.2));
            send({ kind: KIND.wheel, ...pixelAt(event), dx, dy });
        },
        { passive: false },
    );
    stage.addEventListener("keydown", (event) => {
        const key = keyOf(event);
        if (!isOn || key === undefined || event.isComposing) return;
        if (event.key === "Tab" && leaves) return;
        leaves = event.key === "Escape";
        const modifiers = modifiersOf(event);
        if (event.metaKey || (event.ctrlKey && "rtwn".includes(event.key))) return;
        event.preventDefault();
        send({ kind: KIND.key, key, modifiers });
        const isTyped = key < FIRST_KEY && (modifiers & ~HELD.shift) === 0;
        if (isTyped) send({ kind: KIND.text, text: event.key });
    });

    return {
        get isOn() {
            return isOn;
        },
        /** Lets the screen of this scene be used. */
        async open(wish) {
            isOn = true;
            events = [];
            clearTimeout(timer);
            picture.style.touchAction = "none";
            await ask("live", wish);
        },
        close() {
            isOn = false;
            typing.end();
            clearTimeout(timer);
            picture.style.cursor = picture.style.touchAction = "";
        },
    };
}
