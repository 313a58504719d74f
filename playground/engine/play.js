// Runs a program of the user's: the functions of C under their names, and what they drew.
import { api } from "orvelsdk";
import { pictureOf, refuseLarge } from "./pictures.js";
import { Program } from "./program.js";
import { likeC } from "./values.js";

const MOST_PICTURES = 120;

/** A way to the page that no program can reach: its port is sent before any of a program runs. */
function openPort() {
    const { port1, port2 } = new MessageChannel();
    self.postMessage({ port: port2 }, [port2]);
    return port1.postMessage.bind(port1);
}

class Playing {
    constructor() {
        this.program = new Program();
        this.pictures = [];
        this.canvases = new Set();
    }

    /** Keeps what a canvas shows now. */
    keep(canvas, name) {
        if (this.pictures.length >= MOST_PICTURES) {
            throw new Error(`more than ${MOST_PICTURES} pictures`);
        }
        this.pictures.push({ name, ...pictureOf(canvas) });
    }

    call(name, run, args) {
        const given = likeC(name, args);
        if (name === "kit_canvas" || name === "orvel_canvas_create") refuseLarge(...given);
        const saves = /_save_bmp(_rgba)?$/.test(name);
        const write = this.program.before(name, given);
        let found = 0;
        if (saves) {
            if (given[0]) this.keep(given[0], String(given[1]));
        } else {
            found = run(...given);
        }
        write(found);
        if (found instanceof api.orvel_canvas) this.canvases.add(found);
        return found;
    }

    /** The picture of a program that saves none: the last canvas that is left. */
    end() {
        const left = [...this.canvases].filter((canvas) => !canvas.freed);
        if (this.pictures.length === 0 && left.length > 0) {
            this.keep(left.at(-1), "picture.bmp");
            this.program.save(left.at(-1), "picture.bmp");
        }
        return { pictures: this.pictures, program: this.program.text() };
    }
}

function globals(playing) {
    for (const [name, value] of Object.entries(api)) {
        const isCall = typeof value === "function" && !/^class\b/.test(String(value));
        self[name] = isCall ? (...args) => playing.call(name, value, args) : value;
    }
}

const send = self.name === "program" ? openPort() : null;

/** Runs @p run and tells the page how it went, once in this worker. */
export async function play(run) {
    delete self.orvelPlay;
    const playing = new Playing();
    const said = [];
    const tell = (...words) => {
        if (said.length < 200) said.push(words.map(String).join(" "));
    };
    self.console = { log: tell, info: tell, warn: tell, error: tell, debug() {} };
    globals(playing);
    send({ begun: true });
    try {
        await run();
        send({ done: { ...playing.end(), said } });
    } catch (reason) {
        const stack = String(reason?.stack ?? "");
        send({ failed: String(reason?.message ?? reason), stack, said });
    }
}
