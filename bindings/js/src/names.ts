// Names that callers choose: of one thing among several, and of options.

import { kindOf } from "./errors.js";

/** What a name of the table stands for. */
export function oneOf(name: string, table: Readonly<Record<string, number>>, what: string): number {
    if (typeof name !== "string") throw new TypeError(`the ${what} is a name, not ${kindOf(name)}`);
    if (!Object.hasOwn(table, name)) {
        throw new RangeError(`there is no ${what} "${name}"; there are ` +
                             Object.keys(table).join(", "));
    }
    return table[name]!;
}

/** Options of these names and no others: one that is misspelled would be missed in silence. */
export function optionsOf<T extends object>(given: T, names: readonly (keyof T & string)[],
                                            what: string): T {
    if (given === null || typeof given !== "object") {
        throw new TypeError(`the options of ${what} are an object, not ${kindOf(given)}`);
    }
    for (const name of Object.keys(given)) {
        if (!(names as readonly string[]).includes(name)) {
            throw new RangeError(`${what} has no "${name}"; there are ${names.join(", ")}`);
        }
    }
    return given;
}
