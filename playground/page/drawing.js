// From what is written to what is shown.
import { sceneProgram } from "./c_scene.js";
import { byId } from "./elements.js";
import { show } from "./stage.js";
import { problemOf, say } from "./telling.js";
import { runProgram, stopProgram } from "./workers.js";

const MOST_FRAMES = 120;
const NO_PICTURE =
    "The program made no picture: kit_canvas() makes a canvas, kit_save_bmp() keeps it.";

/** Data as they are, or each of a list of them: so many pictures. */
function framesOf(text) {
    if (text.trim() === "") return [null];
    try {
        const value = JSON.parse(text);
        if (Array.isArray(value) && value.length > 0)
            return value.slice(0, MOST_FRAMES).map((each) => JSON.stringify(each));
    } catch {
        // The library says what is wrong with it.
    }
    return [text];
}

const lacking = (lacks) => () => ({ lacks });

/**
 * Draws what @p texts and @p choices have; @p seen is called when another picture shows, and
 * @p told when there may be another program of C for it.
 */
export function makeDrawing({ engine, texts, choices, live, seen, told }) {
    let pictures = []; // what there is to see: { name, width, height, rgba, describe }
    let ofProgram = []; // the same, before a panel shows it
    let programOf = lacking("nothing is drawn yet"); // of a picture, in C
    let hasFailed = false;
    let turn = 0;
    let timer = 0;
    const frame = () => Math.min(Number(byId("frame").value), pictures.length - 1);
    const sceneWish = (data) => ({ scene: texts.text("scene"), data, ...choices.wish() });

    /** An example brings data, which stay when a scene of one's own is written over its scene. */
    function hasUnusedSample() {
        return texts.text("data").trim() !== "" && texts.text("scene").includes('"sample"');
    }

    function failed(problem, others, place) {
        hasFailed = true;
        texts.mark([problem, ...others]);
        say("error", problem.line ? `${place} ${problem.line}: ${problem.text}` : problem.text);
    }

    async function drawScene(now) {
        const frames = framesOf(texts.text("data"));
        const drawn = [];
        try {
            for (const data of frames) {
                const wish = sceneWish(data);
                drawn.push({ name: "picture.bmp", wish, ...(await engine.ask("scene", wish)) });
                if (now !== turn) return;
            }
        } catch (reason) {
            if (now !== turn) return;
            programOf = lacking("the scene could not be drawn");
            const problem = problemOf(reason.message, "error");
            if (/ in the data/.test(problem.text) && hasUnusedSample())
                problem.text += " (empty data.json to see the scene's own sample)";
            return failed(problem, [], `${problem.which} line`);
        }
        if (hasFailed) texts.mark([]);
        hasFailed = false;
        programOf = (picture) => ({
            text: sceneProgram({ ...picture.wish, pictures: picture.pictures }),
        });
        shown(drawn);
        const going = [report(now, drawn[0].wish)]; // for as long as a picture takes
        if (byId("live").checked) going.push(live.open(sceneWish(frames[frame()])));
        await Promise.all(going);
    }

    async function report(now, wish) {
        const lines = await engine.ask("report", wish);
        if (now !== turn) return;
        texts.mark(lines.map((line) => problemOf(line, "warning")));
        const count = `, ${lines.length} ${lines.length === 1 ? "note" : "notes"}`;
        sayDrawn(lines.length > 0 ? count : "");
    }

    async function drawProgram(now) {
        say("busy", "Running …");
        const done = await runProgram(texts.text("code"));
        if (now !== turn || done.stopped) return;
        const said = done.said.map((text) => ({ which: null, kind: "info", text }));
        if (done.failed !== undefined) {
            const which = done.place ? "code" : null;
            failed({ which, ...done.place, kind: "error", text: done.failed }, said, "Line");
            programOf = lacking("the program did not end well");
            return;
        }
        texts.mark(said);
        programOf = () => done.program;
        if (done.pictures.length === 0) return say("warning", NO_PICTURE);
        ofProgram = done.pictures;
        await asPanel(now);
    }

    /** The pictures of a program as the chosen panel shows them. */
    async function asPanel(now) {
        const { panel, dither } = choices.wish();
        if (panel === "") return shownAll(ofProgram);
        const drawn = [];
        for (const picture of ofProgram) {
            const wish = { picture, panel, dither };
            drawn.push({ name: picture.name, ...(await engine.ask("panel", wish)) });
            if (now !== turn) return;
        }
        shownAll(drawn);
    }

    function shownAll(drawn) {
        sayDrawn("", drawn);
        shown(drawn);
    }

    function sayDrawn(note, drawn = pictures) {
        const { width, height } = drawn[0];
        const what = drawn.length > 1 ? `${drawn.length} pictures of` : "Drawn,";
        say(note ? "warning" : "good", `${what} ${width} × ${height}${note}.`);
    }

    function shown(drawn) {
        pictures = drawn;
        byId("frames").hidden = drawn.length < 2;
        byId("frame").max = drawn.length - 1;
        byId("frame").value = frame();
        showFrame();
        const page = document.documentElement.dataset;
        page.drawn = String(Number(page.drawn ?? 0) + 1);
    }

    function showFrame() {
        const picture = pictures[frame()];
        byId("frame-name").textContent = `${frame() + 1} of ${pictures.length}, ${picture.name}`;
        show(picture, picture.describe);
        seen();
        told();
    }

    async function draw() {
        live.close();
        clearTimeout(timer);
        const now = ++turn;
        stopProgram();
        try {
            await (texts.isScene ? drawScene(now) : drawProgram(now));
        } catch (reason) {
            if (now === turn) say("error", reason.message);
        }
        if (now === turn) told();
    }

    byId("frame").addEventListener("input", () => (byId("live").checked ? draw() : showFrame()));
    byId("live").addEventListener("change", draw);

    return {
        draw,
        /** Draws once the user has stopped writing. */
        later() {
            clearTimeout(timer);
            timer = setTimeout(draw, texts.isScene ? 150 : 500);
        },
        /** Shows the same on another panel; a program is not run again for that. */
        panelChanged: () =>
            texts.isScene || ofProgram.length === 0 ? draw() : asPanel(++turn),
        get pictures() {
            return pictures;
        },
        /** The program of the shown picture, and what that picture has that C does not draw. */
        program() {
            const { text, lacks } = programOf(pictures[frame()]);
            if (!text) return { lacks };
            const parts = [];
            if (choices.wish().panel !== "") parts.push("without the panel's colours");
            if (live.isOn) parts.push("as it was before it was used");
            const note = parts.length > 0 ? `Draws the picture ${parts.join(", and ")}.` : "";
            return { note, text: note ? `/* ${note} */\n${text}` : text };
        },
    };
}
