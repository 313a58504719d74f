// Colours and themes.

import * as api from "./api.js";
import { kindOf, OrvelError } from "./errors.js";

/** A text "#rrggbb" or "#rrggbbaa", three or four numbers, or a record of them. */
export type ColorLike =
    | string
    | readonly [r: number, g: number, b: number, a?: number]
    | { readonly r: number; readonly g: number; readonly b: number; readonly a?: number };

/** The roles of a theme. */
export const ROLES = ["background", "surface", "text", "accent", "border", "button",
                      "button_hover", "button_text", "error"] as const;
export type Role = (typeof ROLES)[number];
/** Some of a theme's colours. */
export type Colors = { readonly [Each in Role]?: ColorLike };
/** A theme, or "dark" or "light". */
export type ThemeLike = Theme | "dark" | "light";

function channel(value: number): number {
    if ((value & 255) !== value) {
        if (typeof value !== "number") {
            throw new TypeError(`a channel is a number, not ${kindOf(value)}`);
        }
        throw new RangeError(`a channel is ${value}, not a whole number from 0 to 255`);
    }
    return value;
}

/** Red, green, blue and alpha, 0 to 255 each. Alpha is stored, never blended. */
export class Color {
    readonly r: number;
    readonly g: number;
    readonly b: number;
    readonly a: number;

    constructor(r: number, g: number, b: number, a = 255) {
        this.r = channel(r);
        this.g = channel(g);
        this.b = channel(b);
        this.a = channel(a);
    }

    /** A colour from a text, numbers or a record. */
    static of(value: ColorLike): Color {
        if (value instanceof Color) return value;
        if (typeof value === "string") return fromText(value);
        if (Array.isArray(value)) {
            if (value.length !== 3 && value.length !== 4) {
                throw new RangeError(`a colour has three or four numbers, not ${value.length}`);
            }
            return new Color(value[0], value[1], value[2], value[3]);
        }
        if (value === null || typeof value !== "object") {
            throw new TypeError(`a colour is a text or numbers, not ${kindOf(value)}`);
        }
        const { r, g, b, a } = value as Color;
        return new Color(r, g, b, a);
    }

    /** "#rrggbb", with two digits more where it is not opaque. */
    toString(): string {
        const all = this.a === 255 ? [this.r, this.g, this.b] : [this.r, this.g, this.b, this.a];
        return "#" + all.map((each) => each.toString(16).padStart(2, "0")).join("");
    }

    /** The colour that far on the way to another one, in percent. */
    mix(to: ColorLike, percent: number): Color {
        if (!(percent >= 0 && percent <= 100)) {
            throw new RangeError(`a percent is ${percent}, not 0 to 100`);
        }
        return Color.of(api.kit_mix(this, Color.of(to), percent));
    }

    /** Its lightness, 0 to 255. */
    get grey(): number {
        return api.kit_grey(this);
    }
}

const known = new Map<string, Color>();

function fromText(text: string): Color {
    let found = known.get(text);
    if (found === undefined) {
        if (!/^#(?:[0-9a-f]{6}|[0-9a-f]{8})$/i.test(text)) {
            throw new RangeError(`"${text}" is no colour like "#1e66f5" and no role of the theme`);
        }
        const [r, g, b, a] = text.slice(1).match(/../g)!.map((digits) => parseInt(digits, 16));
        found = new Color(r!, g!, b!, a);
        if (known.size > 512) known.clear();
        known.set(text, found);
    }
    return found;
}

/** Nine colours that widgets, charts and screens are drawn in. `new Theme()` is the dark one. */
export class Theme {
    /** @internal */
    readonly record: api.orvel_theme;

    /** The dark theme, with other colours where they are given. */
    constructor(colors: Colors = {}) {
        const record = {} as api.orvel_theme;
        api.orvel_theme_default(record);
        this.record = record;
        this.set(colors);
    }

    /** The dark theme, with other colours where they are given. */
    static dark(colors: Colors = {}): Theme {
        return new Theme(colors);
    }

    /** The light theme, with other colours where they are given. */
    static light(colors: Colors = {}): Theme {
        const theme = new Theme();
        api.orvel_theme_light(theme.record);
        return theme.set(colors);
    }

    /** A theme as it is, or the one called "dark" or "light". */
    static of(value: ThemeLike): Theme {
        if (value instanceof Theme) return value;
        if (value === "dark") return Theme.dark();
        if (value === "light") return Theme.light();
        if (typeof value === "string") {
            throw new RangeError(`there is no theme "${String(value)}": dark, light, ` +
                                 "or Theme.read()");
        }
        throw new TypeError(`a theme is a Theme or a name, not ${kindOf(value)}`);
    }

    /** Reads a theme file: JSON with nine colours as "#rrggbb". Reasons begin with the name. */
    static read(text: string | Uint8Array, name = "theme"): Theme {
        const found = parsed(text, name);
        const theme = new Theme();
        for (const role of ROLES) {
            const value = found[role];
            if (typeof value !== "string" || !/^#[0-9a-f]{6}$/i.test(value)) {
                const told = JSON.stringify(value) ?? "nothing";
                throw new OrvelError(`${name}: ${role}: found ${told}, expected a colour like ` +
                                     '"#1e66f5"');
            }
            theme[role] = value;
        }
        return theme;
    }

    /** Reads a file of the folder "UI" of the resources over the dark theme. */
    static load(name: string): Theme {
        const theme = new Theme();
        if (api.kit_theme_load(theme.record, name) !== 0) {
            throw new OrvelError(`there is no theme "${name}" in the resource folder UI`);
        }
        return theme;
    }

    /** Writes the file of the folder "UI" of the resources. */
    save(name: string): void {
        if (api.kit_theme_save(this.record, name) !== 0) {
            throw new OrvelError(`the theme "${name}" cannot be written to the folder UI`);
        }
    }

    /** The same colours, but for those given. */
    copy(colors: Colors = {}): Theme {
        const theme = new Theme();
        Object.assign(theme.record, this.record);
        return theme.set(colors);
    }

    /** Sets several colours. */
    set(colors: Colors): this {
        for (const [role, color] of Object.entries(colors)) {
            if (!(ROLES as readonly string[]).includes(role)) {
                throw new RangeError(`a theme has no "${role}"`);
            }
            if (color !== undefined) this[role as Role] = color;
        }
        return this;
    }

    /** A colour, or that of the role so called. */
    color(value: ColorLike): Color {
        return typeof value === "string" && value in this.record ? this[value as Role]
                                                                 : Color.of(value);
    }

    /** Whether another theme has the same colours. */
    equals(other: Theme): boolean {
        return ROLES.every((role) => String(this[role]) === String(other[role]));
    }

    /** The colours as a theme file has them. */
    toJSON(): Record<Role, string> {
        return Object.fromEntries(ROLES.map((role) => [role, String(this[role])])) as
            Record<Role, string>;
    }
}

export interface Theme {
    get background(): Color;
    set background(color: ColorLike);
    get surface(): Color;
    set surface(color: ColorLike);
    get text(): Color;
    set text(color: ColorLike);
    get accent(): Color;
    set accent(color: ColorLike);
    get border(): Color;
    set border(color: ColorLike);
    get button(): Color;
    set button(color: ColorLike);
    get button_hover(): Color;
    set button_hover(color: ColorLike);
    get button_text(): Color;
    set button_text(color: ColorLike);
    get error(): Color;
    set error(color: ColorLike);
}
for (const role of ROLES) {
    Object.defineProperty(Theme.prototype, role, {
        get(this: Theme) {
            return Color.of(this.record[role]);
        },
        set(this: Theme, color: ColorLike) {
            this.record[role] = Color.of(color);
        },
        enumerable: true,
    });
}

function parsed(text: string | Uint8Array, name: string): Record<string, unknown> {
    const words = typeof text === "string" ? text : new TextDecoder().decode(text);
    let found: unknown;
    try {
        found = JSON.parse(words);
    } catch (reason) {
        throw new OrvelError(`${name}: ${(reason as Error).message}`);
    }
    if (found === null || typeof found !== "object" || Array.isArray(found)) {
        throw new OrvelError(`${name}: found no object of nine colours`);
    }
    return found as Record<string, unknown>;
}
