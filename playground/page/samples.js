// What the lists of the page insert: a node of a scene for each widget and for what else is drawn
// often, and the call that draws it on a canvas in a theme.

const sized =
    (kind, w, h, fields = "") =>
    (canvas, theme) =>
        `kit_draw(${canvas}, ${theme}, ` +
        `{kind: ORVEL_WIDGET_${kind}, box: [16, 16, ${w}, ${h}]${fields}});`;
const kit = (kind, fields) => sized(kind, 0, 0, fields);

/** { name, node, code, width, height }, the latter two of the picture in the list. */
export const WIDGETS = [
    {
        name: "button",
        node: { button: "Start", icon: "play" },
        code: kit("BUTTON", ', text: "Start", icon: "play"'),
    },
    { name: "toggle", node: { toggle: true }, code: kit("TOGGLE", ", state: KIT_ACTIVE") },
    {
        name: "checkbox",
        node: { checkbox: "With music", on: true },
        code: kit("CHECKBOX", ', text: "With music", state: KIT_ACTIVE'),
    },
    {
        name: "radio",
        node: { radio: "Warm", on: true },
        code: kit("RADIO", ', text: "Warm", state: KIT_ACTIVE'),
    },
    {
        name: "slider",
        node: { slider: 21, range: [5, 30], width: 110 },
        code: sized("SLIDER", 160, 16, ", value: 0.7"),
    },
    {
        name: "progress",
        node: { progress: 0.6, width: 110 },
        code: sized("PROGRESS", 160, 12, ", value: 0.6"),
    },
    {
        name: "stepper",
        node: { stepper: 21, width: 100 },
        code: sized("STEPPER", 110, 24, ", amount: 21"),
    },
    {
        name: "textbox",
        node: { textbox: "Lindenhof", width: 110 },
        code: sized("TEXTBOX", 140, 26, ', text: "Lindenhof"'),
    },
    {
        name: "search",
        node: { search: "", hint: "Find", width: 110 },
        code: sized("SEARCH", 140, 26, ', hint: "Find"'),
    },
    {
        name: "dropdown",
        node: { dropdown: "Celsius", width: 100 },
        code: sized("DROPDOWN", 140, 26, ', text: "Celsius"'),
    },
    {
        name: "tabs",
        node: { tabs: ["Day", "Week"], selected: 0, width: 120 },
        code: sized("TABS", 220, 28, ', text: "Day|Week"'),
    },
    {
        name: "menu",
        node: { menu: ["File", "Edit"], selected: 0, width: 120 },
        code: sized("MENU", 220, 28, ', text: "File|Edit"'),
    },
    {
        name: "list_item",
        node: { list_item: "Messages", icon: "mail", width: 120 },
        code: sized("LIST_ITEM", 180, 26, ', text: "Messages", icon: "mail"'),
    },
    { name: "badge", node: { badge: 42 }, code: kit("BADGE", ", amount: 42") },
    { name: "rating", node: { rating: 0.7 }, code: kit("RATING", ", value: 0.7") },
    { name: "avatar", node: { avatar: "AB" }, code: kit("AVATAR", ', text: "AB"') },
    { name: "spinner", node: { spinner: 0.2 }, code: kit("SPINNER", ", value: 0.2") },
    { name: "tooltip", node: { tooltip: "Open" }, code: kit("TOOLTIP", ', text: "Open"') },
    { name: "label", node: { label: "Living room" }, code: kit("LABEL", ', text: "Living room"') },
    { name: "separator", node: { separator: null, width: 110 }, code: sized("SEPARATOR", 200, 0) },
    {
        name: "titlebar",
        node: { titlebar: "Settings", width: 120 },
        code: sized("TITLEBAR", 240, 24, ', text: "Settings"'),
    },
    {
        name: "statusbar",
        node: { statusbar: "Ready", width: 120 },
        code: sized("STATUSBAR", 240, 22, ', text: "Ready"'),
    },
    {
        name: "card",
        node: { card: { text: "A card" }, width: 110, pad: 8 },
        code: sized("CARD", 120, 60),
        height: 44,
    },
    {
        name: "panel",
        node: { panel: { text: "A panel" }, width: 110, pad: 8 },
        code: sized("PANEL", 120, 60),
        height: 44,
    },
    {
        name: "window",
        node: { window: { text: "Words" }, title: "Title", width: 110, height: 44 },
        code: sized("WINDOW", 160, 100, ', text: "Title"'),
        height: 54,
    },
    {
        name: "bars",
        node: { bars: [0.2, 0.6, 0.4, 0.9], width: 110, height: 36 },
        code: sized("BARS", 120, 60, ", data: [0.2, 0.6, 0.4, 0.9]"),
        height: 44,
    },
    {
        name: "text",
        node: { text: "21.5°", face: "bold 24" },
        code: (canvas, theme) =>
            `kit_text_draw(${canvas}, kit_bold_24(), "21.5°", 16, 40, ${theme}.text);`,
    },
    {
        name: "area chart",
        node: { chart: "area", series: [{ values: [1, 3, 2, 5, 4] }], width: 120, height: 44 },
        code: (canvas, theme) =>
            `kit_chart_draw(${canvas}, ${theme}, {kind: KIT_CHART_AREA, box: [16, 16, 200, 100], ` +
            "series: [{values: [1, 3, 2, 5, 4]}]});",
        height: 54,
    },
];

/** An icon's node and call. */
export const iconSample = (name) => ({
    node: { icon: name, size: 24 },
    code: (canvas, theme) => `kit_icon(${canvas}, "${name}", 16, 16, 24, ${theme}.text);`,
});
