// Where the tests find the project and a build of it.
import { execFileSync } from "node:child_process";
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";

/** The folder of the project. */
export const SOURCES = process.env.ORVEL_SOURCES;
/** The folder of the native libraries and tools. */
export const BUILD = process.env.ORVELSDK_LIBRARIES;

/** A folder of its own while @p use runs. */
export function folder(use) {
    const path = mkdtempSync(join(tmpdir(), "orvel-js-"));
    try {
        return use(path);
    } finally {
        rmSync(path, { recursive: true });
    }
}

/** A program of the manual. */
export function pageProgram(page, name) {
    const text = readFileSync(join(SOURCES, "docs/pages", page), "utf8");
    const block = text.split("```c " + name + "\n")[1];
    return block.slice(0, block.indexOf("\n```\n") + 1);
}

/** Compiles a program in C with the native libraries and runs it beside the files given; returns the
 *  file that it wrote. */
export function built(source, written, files = {}) {
    return folder((path) => {
        for (const [name, data] of Object.entries({ ...files, "program.c": source })) {
            mkdirSync(dirname(join(path, name)), { recursive: true });
            writeFileSync(join(path, name), data);
        }
        execFileSync("cc", ["-std=c99", "program.c", "-o", "program",
                            ...["include", "kit/include"].map((each) => `-I${SOURCES}/${each}`),
                            `-L${BUILD}`, `-Wl,-rpath,${BUILD}`, "-lOrvelScreen", "-lOrvelKit",
                            "-lOrvelSDK"], { cwd: path });
        execFileSync(join(path, "program"), { cwd: path });
        return readFileSync(join(path, written));
    });
}
