// What calls throw.

/** The library refused a call; the message says why. */
export class OrvelError extends Error {
    override name = "OrvelError";
}

/** The memory was too small for what was asked. */
export class OutOfMemory extends OrvelError {
    override name = "OutOfMemory";
}

/** The object was freed before the call. */
export class Freed extends OrvelError {
    override name = "Freed";
}

/** What to throw for a reason that the library told. */
export function refusal(why: string, otherwise: string): OrvelError {
    const reason = why || otherwise;
    return reason.endsWith("out of memory") ? new OutOfMemory(reason) : new OrvelError(reason);
}

/** A value in the words of a reason. */
export function kindOf(value: unknown): string {
    if (value === null || typeof value !== "object") {
        return value === null ? "null" : typeof value === "number" ? String(value) : typeof value;
    }
    return value.constructor?.name ?? "object";
}
