// The workers that draw: one that answers the page, and one for each run of a program. Both are
// ended when they take too long.

const MOST_MS = 2000;
const START_MS = 20000;
const source = document.getElementById("engine").textContent;

function startWorker(text, name) {
    const address = URL.createObjectURL(new Blob([text], { type: "text/javascript" }));
    const worker = new Worker(address, { name });
    URL.revokeObjectURL(address);
    return worker;
}

/** Answers questions one after another. */
export class Engine {
    #worker = null;
    #waiting = null;
    #turn = Promise.resolve();
    #ready = false;

    #beginning = null;

    /** Asks this first, and again whenever a worker had to be ended. */
    start(wish) {
        this.#beginning = wish;
        return this.ask("start", wish);
    }

    /** @return a promise of the answer; an Error with the library's reason otherwise. */
    ask(what, wish) {
        const answer = this.#turn.then(async () => {
            if (!this.#worker && what !== "start") await this.#send("start", this.#beginning);
            return this.#send(what, wish);
        });
        this.#turn = answer.catch(() => {});
        return answer;
    }

    #send(what, wish) {
        this.#worker ??= this.#start();
        return new Promise((resolve, reject) => {
            const most = this.#ready ? MOST_MS : START_MS;
            const late = setTimeout(
                () => this.#end("It took longer than two seconds and was ended."),
                most,
            );
            this.#waiting = { resolve, reject, late };
            this.#worker.postMessage({ what, wish });
        });
    }

    #start() {
        const worker = startWorker(source, "engine");
        worker.onmessage = ({ data }) => {
            this.#ready = true;
            const { resolve, reject, late } = this.#waiting;
            clearTimeout(late);
            if (data.reason !== undefined) reject(new Error(data.reason));
            else resolve(data.answer);
        };
        worker.onerror = (event) => {
            event.preventDefault();
            this.#end(`The library could not be started: ${event.message}`);
        };
        return worker;
    }

    #end(why) {
        this.#worker.terminate();
        this.#worker = null;
        this.#ready = false;
        clearTimeout(this.#waiting.late);
        this.#waiting.reject(new Error(why));
    }
}

// The program begins on a line of its own, so that its lines can be told from the engine's.
const BEFORE = `${source}\norvelPlay(async () => {"use strict";\n`;
const LINES_BEFORE = BEFORE.split("\n").length - 1;

/** Where in the program a place of the whole text is. */
function placeIn(code, line, column, before = LINES_BEFORE) {
    const own = line - before;
    return own >= 1 && own <= code.split("\n").length ? { line: own, column } : null;
}

function failureOf(code, { message, lineno, colno }, before) {
    const failed = String(message).replace(/^Uncaught /, "");
    return { failed, said: [], place: placeIn(code, lineno, colno, before) };
}

function placeFromTrace(code, stack) {
    for (const [, line, column] of stack.matchAll(/blob:[^\s)]*?:(\d+):(\d+)/g)) {
        const place = placeIn(code, Number(line), Number(column));
        if (place) return place;
    }
    return null;
}

const isText = (value) => typeof value === "string";
const isSide = (value) => Number.isInteger(value) && value > 0;
const isPicture = ({ name, width, height, rgba } = {}) =>
    isText(name) &&
    isSide(width) &&
    isSide(height) &&
    rgba instanceof Uint8ClampedArray &&
    rgba.length === 4 * width * height;
const textsOf = (said) => (Array.isArray(said) ? said.filter(isText) : []);

/** What a program told when it was done; it may have changed whatever the engine calls. */
function doneOf({ pictures, program, said }) {
    const isGood =
        Array.isArray(pictures) &&
        pictures.every((each) => each && isPicture(each)) &&
        (isText(program?.text) || isText(program?.lacks));
    if (!isGood) return { failed: "The program's pictures cannot be read.", said: textsOf(said) };
    return { pictures, program, said: textsOf(said) };
}

/**
 * Whether the program is one by itself, where nothing of it runs. What it is run in could be closed
 * by "})" or "}," at its beginning, and behind that it would be beside the engine; this function is
 * closed by "}", which neither of them can follow. So no text fits into both but as their inside.
 *
 * @return undefined, or how it failed as of runProgram().
 */
function parse(code) {
    const before = 'throw new Error("parsed"); async function program() {"use strict";\n';
    return new Promise((resolve) => {
        const worker = startWorker(`${before}${code}\n}`, "parser");
        worker.onerror = (event) => {
            event.preventDefault();
            worker.terminate();
            resolve(event.lineno === 1 ? undefined : failureOf(code, event, 1));
        };
    });
}

let latest = 0;
let running = null;

/** Ends the program that runs, if one does. */
export function stopProgram() {
    latest++;
    running?.();
}

/**
 * Runs a program in a worker of its own.
 *
 * @return a promise of { pictures, program, said }, or of { failed, place, said }.
 */
export async function runProgram(code) {
    stopProgram();
    const turn = latest;
    const wrong = await parse(code);
    if (turn !== latest) return { stopped: true, said: [] };
    return wrong ?? run(code);
}

function run(code) {
    return new Promise((resolve) => {
        const worker = startWorker(`${BEFORE}${code}\n});`, "program");
        let late = setTimeout(
            () => end({ failed: "The program did not start.", said: [] }),
            START_MS,
        );
        const end = (how) => {
            clearTimeout(late);
            worker.terminate();
            running = null;
            resolve(how);
        };
        running = () => end({ stopped: true, said: [] });
        const heard = ({ data }) => {
            if (data.begun) {
                clearTimeout(late);
                const why =
                    "The program ran longer than two seconds and was ended: an endless loop?";
                late = setTimeout(() => end({ failed: why, said: [] }), MOST_MS);
            } else if (data.done) {
                end(doneOf(data.done));
            } else {
                end({
                    failed: String(data.failed),
                    place: placeFromTrace(code, String(data.stack)),
                    said: textsOf(data.said),
                });
            }
        };
        // The engine's port is first; what else comes is the program's own, and says nothing.
        worker.onmessage = ({ data: { port } }) => {
            worker.onmessage = null;
            port.onmessage = heard;
        };
        worker.onerror = (event) => {
            event.preventDefault();
            end(failureOf(code, event));
        };
    });
}
