// Rectangles.

import { int } from "./arguments.js";
import { kindOf } from "./errors.js";

/** A rectangle [x, x + w) x [y, y + h), in pixels. Empty when a side is below 1. */
export interface Box {
    x: number;
    y: number;
    w: number;
    h: number;
}
export type BoxLike = Readonly<Box> | readonly [x: number, y: number, w: number, h: number];

/** A box of four whole numbers. */
export function boxOf(value: BoxLike): Box {
    if (value === null || typeof value !== "object") {
        throw new TypeError(`a box is four whole numbers, not ${kindOf(value)}`);
    }
    const [x, y, w, h] = Array.isArray(value) ? value as number[]
                                              : [(value as Box).x, (value as Box).y,
                                                 (value as Box).w, (value as Box).h];
    return { x: int(x!, "a box's x"), y: int(y!, "a box's y"), w: int(w!, "a box's w"),
             h: int(h!, "a box's h") };
}
