// Widgets and charts: plain records that a canvas draws.

import * as api from "./api.js";
import { boxOf } from "./boxes.js";
import type { Box } from "./boxes.js";
import type { Canvas } from "./canvas.js";
import { Theme } from "./colors.js";
import type { ColorLike, ThemeLike } from "./colors.js";
import { kindOf, OrvelError } from "./errors.js";
import { faceOf } from "./faces.js";
import type { FaceLike } from "./faces.js";
import { oneOf, optionsOf } from "./names.js";

/** The kinds of widget. */
export const KINDS: Readonly<Record<string, number>> = named("ORVEL_WIDGET_");
/** The kinds of chart. */
export const CHARTS: Readonly<Record<string, number>> = {
    line: api.KIT_CHART_LINE, area: api.KIT_CHART_AREA, spark: api.KIT_CHART_SPARK,
    bars: api.KIT_CHART_BARS, stacked: api.KIT_CHART_STACKED, gauge: api.KIT_CHART_GAUGE,
};

/** The names of the kinds of widget. */
export type Kind =
    | "window" | "panel" | "label" | "button" | "toggle" | "checkbox" | "slider" | "progress"
    | "textbox" | "icon" | "image" | "separator" | "card" | "radio" | "dropdown" | "spinner"
    | "rating" | "stepper" | "tabs" | "avatar" | "badge" | "titlebar" | "list_item" | "menu"
    | "bars" | "search" | "tooltip" | "statusbar";
export type ChartKind = "line" | "area" | "spark" | "bars" | "stacked" | "gauge";

function named(prefix: string): Record<string, number> {
    const all = Object.entries(api).filter(([name]) => name.startsWith(prefix));
    return Object.fromEntries(all.map(([name, value]) =>
        [name.slice(prefix.length).toLowerCase(), value as number]));
}

/** Words, or items that the library wants joined by a bar. */
function joined(text: string | readonly string[] | null | undefined, what: string): string | null {
    if (text === null || text === undefined || typeof text === "string") return text ?? null;
    if (!Array.isArray(text)) throw new TypeError(`${what} is a text, not ${kindOf(text)}`);
    for (const item of text as unknown[]) {
        if (typeof item !== "string") {
            throw new TypeError(`${what} has a text for each item, not ${kindOf(item)}`);
        }
        if (item.includes("|")) {
            throw new RangeError(`${what}: an item with a bar, |, would be two`);
        }
    }
    return text.join("|");
}

/** What a widget can show beside its kind and box; what is left out is zero or nothing. */
export interface WidgetParts {
    /** The caption; a list for tabs and menus. */
    text?: string | readonly string[] | null;
    /** What an empty text field shows. */
    hint?: string | null;
    /** A built-in icon before the caption. */
    icon?: string | null;
    face?: FaceLike | null;
    /** The fraction of sliders, progress bars, spinners and ratings. */
    value?: number;
    /** The number of steppers and badges, the selected item of tabs and menus. */
    amount?: number;
    /** The values of bars. */
    data?: readonly number[] | Float64Array | null;
    hover?: boolean;
    /** On, checked, selected, open or pressed. */
    active?: boolean;
    focus?: boolean;
    disabled?: boolean;
    /** Of a text field with focus, in bytes of UTF-8; so is the anchor, its selection's end. */
    caret?: number;
    anchor?: number;
}

/** One widget: `new Widget("button", 20, 20, 96, 28, {text: "Größe"})`. A width or height of 0
 *  is what size() says. Every part can be set later; it is looked at when the widget is drawn. */
export class Widget {
    text: string | readonly string[] | null = null;
    hint: string | null = null;
    icon: string | null = null;
    face: FaceLike | null = null;
    value = 0;
    amount = 0;
    data: readonly number[] | Float64Array | null = null;
    hover = false;
    active = false;
    focus = false;
    disabled = false;
    caret = 0;
    anchor = 0;
    box: Box;

    constructor(public kind: Kind, x = 0, y = 0, w = 0, h = 0, parts: WidgetParts = {}) {
        this.box = { x, y, w, h };
        for (const [name, value] of Object.entries(parts)) {
            if (!Object.hasOwn(this, name) || name === "kind" || name === "box") {
                throw new RangeError(`a widget has no "${name}"`);
            }
            if (value !== undefined) Object.assign(this, { [name]: value });
        }
        api.kit_size(this.record(), null, null); // what cannot be drawn is told at once
    }

    private record(): Parameters<typeof api.kit_size>[0] {
        return {
            kind: oneOf(this.kind, KINDS, "widget"),
            box: boxOf(this.box),
            text: joined(this.text, "a widget's text"),
            hint: this.hint,
            icon: this.icon,
            face: faceOf(this.face),
            state: (this.hover ? api.KIT_HOVER : 0) | (this.active ? api.KIT_ACTIVE : 0)
                | (this.focus ? api.KIT_FOCUS : 0) | (this.disabled ? api.KIT_DISABLED : 0),
            amount: this.amount,
            value: this.value,
            data: this.data,
            caret: this.caret,
            anchor: this.anchor,
        };
    }

    /** The width and height that it wants with its words, face and value. */
    size(): [w: number, h: number] {
        const w = { value: 0 }, h = { value: 0 };
        if (api.kit_size(this.record(), w, h) !== 0) {
            throw new OrvelError(`the size of this ${this.kind} cannot be told`);
        }
        return [w.value, h.value];
    }

    /** Draws it on a canvas, in the canvas's theme unless another one is given. */
    draw(canvas: Canvas, theme?: ThemeLike): void {
        const colors = theme === undefined ? canvas.theme : Theme.of(theme);
        if (api.kit_draw(canvas.handle, colors.record, this.record()) !== 0) {
            throw new OrvelError(`this ${this.kind} cannot be drawn: a negative size, an icon ` +
                                 "or image that there is not, or too little memory");
        }
    }
}

/** One row of values for a chart; null and NaN are missing ones. */
export interface Series {
    values: ArrayLike<number | null>;
    name?: string;
    color?: ColorLike;
}
export type SeriesLike = Series | ArrayLike<number | null>;

/** What a chart can show beside its values. */
export interface ChartParts {
    /** The range; without it, it is found from the values. */
    low?: number;
    high?: number;
    axes?: boolean;
    labels?: readonly string[] | null;
    legend?: boolean;
    decimals?: number;
    unit?: string;
    face?: FaceLike | null;
}

/** A chart: `new Chart("bars", [[1, 2, 3]], 0, 0, 200, 100, {axes: true})`. */
export class Chart {
    low = 0;
    high = 0;
    axes = false;
    labels: readonly string[] | null = null;
    legend = false;
    decimals = 0;
    unit = "";
    face: FaceLike | null = null;
    box: Box;

    constructor(public kind: ChartKind, public series: readonly SeriesLike[], x: number, y: number,
                w: number, h: number, parts: ChartParts = {}) {
        this.box = { x, y, w, h };
        for (const [name, value] of Object.entries(parts)) {
            if (!Object.hasOwn(this, name) || ["kind", "box", "series"].includes(name)) {
                throw new RangeError(`a chart has no "${name}"`);
            }
            if (value !== undefined) Object.assign(this, { [name]: value });
        }
        this.record(new Theme()); // what cannot be drawn is told at once
    }

    private record(theme: Theme): Parameters<typeof api.kit_chart_draw>[2] {
        if (!(this.decimals >= 0 && this.decimals <= 9)) {
            throw new RangeError(`the decimals are ${this.decimals}, not 0 to 9`);
        }
        return {
            kind: oneOf(this.kind, CHARTS, "chart"),
            box: boxOf(this.box),
            series: Array.from(this.series, (row) => seriesOf(row, theme)),
            low: this.low,
            high: this.high,
            parts: (this.axes ? api.KIT_CHART_AXES : 0) | (this.labels ? api.KIT_CHART_LABELS : 0)
                | (this.legend ? api.KIT_CHART_LEGEND : 0),
            decimals: this.decimals,
            unit: this.unit,
            labels: joined(this.labels, "the labels"),
            face: faceOf(this.face),
        };
    }

    /** Draws it on a canvas, in the canvas's theme unless another one is given. */
    draw(canvas: Canvas, theme?: ThemeLike): void {
        const colors = theme === undefined ? canvas.theme : Theme.of(theme);
        if (api.kit_chart_draw(canvas.handle, colors.record, this.record(colors)) !== 0) {
            throw new OrvelError("this chart cannot be drawn: a box with a side below 0 or " +
                                 "above 32767, more than 32 series, a range that is upside down " +
                                 "or not finite, or too little memory");
        }
    }
}

function seriesOf(row: SeriesLike, theme: Theme): Record<string, unknown> {
    if (row === null || typeof row !== "object") {
        throw new TypeError(`a series is a list of numbers, not ${kindOf(row)}`);
    }
    const given: Series = "values" in row && typeof row.values !== "function"
        ? optionsOf(row as Series, ["values", "name", "color"], "a series") : { values: row as ArrayLike<number | null> };
    const color = given.color === undefined ? {} : { color: theme.color(given.color) };
    return { values: Float64Array.from(Array.from(given.values, number)), name: given.name ?? "",
             ...color };
}

function number(value: number | null): number {
    if (value === null || value === undefined) return NaN;
    if (typeof value !== "number") {
        throw new TypeError(`a chart's values are numbers, not ${kindOf(value)}`);
    }
    return value;
}
