/** OrvelSDK: screens drawn in memory, the same bytes on every machine. */

import "./start.js";
import * as api from "./api.js";

/** The functions, records and constants of C, by their names and with their order of arguments. */
export { api };
export type { Box, BoxLike } from "./boxes.js";
export { Canvas } from "./canvas.js";
export type { Align, BrowserPixels, Themed, WordParts } from "./canvas.js";
export { Color, ROLES, Theme } from "./colors.js";
export type { ColorLike, Colors, Role, ThemeLike } from "./colors.js";
export { Freed, OrvelError, OutOfMemory } from "./errors.js";
export { Face, FACES } from "./faces.js";
export type { FaceLike } from "./faces.js";
export { files, setLog } from "./files.js";
export { DITHERS, FORMATS } from "./formats.js";
export type { DitherName, FormatName, FormatParts } from "./formats.js";
export { KEYS } from "./input.js";
export type { Change, ScreenEvent } from "./input.js";
export { playMusic, playSound, playTone, setResourcePath, stopMusic } from "./resources.js";
export { Screen } from "./screens.js";
export type { Host, Json, Named, ScreenParts } from "./screens.js";
export { setPlayer } from "./sounds.js";
export type { Player } from "./sounds.js";
export { Chart, CHARTS, KINDS, Widget } from "./widgets.js";
export type { ChartKind, ChartParts, Kind, Series, SeriesLike, WidgetParts } from "./widgets.js";

/** The version of the library. */
export const version: string = api.kit_version() ?? "";
/** The built-in icons, in their fixed order. */
export const ICONS: readonly string[] = api.orvel_icon_list();
