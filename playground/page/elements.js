// Elements by a call.

export const byId = (id) => document.getElementById(id);

/** An element with properties and children; a text is a child, too. */
export function element(name, properties = {}, ...children) {
    const made = document.createElement(name);
    for (const [key, value] of Object.entries(properties)) {
        if (key in made) made[key] = value;
        else made.setAttribute(key, value);
    }
    made.append(...children);
    return made;
}

/** Gives a list to choose from its choices, [value, label] each. */
export function fillSelect(select, all) {
    select.replaceChildren(
        ...all.map(([value, label]) => element("option", { value, textContent: label })),
    );
}

/** Tabs over panels, which arrow keys move between; each of @p all is { name, panel }. */
export function makeTabs(list, all, chosen = () => {}) {
    const buttons = all.map(({ name, panel }, i) => {
        panel.id ||= `panel-${list.id || "files"}-${i}`;
        panel.setAttribute("role", "tabpanel");
        panel.setAttribute("aria-label", name);
        return element("button", { role: "tab", textContent: name, "aria-controls": panel.id });
    });
    const choose = (which, focus = false) => {
        all.forEach(({ panel }, i) => {
            panel.hidden = i !== which;
            buttons[i].setAttribute("aria-selected", String(i === which));
            buttons[i].tabIndex = i === which ? 0 : -1;
        });
        if (focus) buttons[which].focus();
        chosen(which);
    };
    buttons.forEach((button, i) => {
        button.addEventListener("click", () => choose(i));
        button.addEventListener("keydown", ({ key }) => {
            const visible = buttons.map((_, j) => j).filter((j) => !buttons[j].hidden);
            const at = visible.indexOf(i),
                step = { ArrowLeft: -1, ArrowRight: 1 }[key];
            if (step) choose(visible[(at + step + visible.length) % visible.length], true);
        });
    });
    list.replaceChildren(...buttons);
    choose(0);
    return { choose, buttons };
}

/** Has the browser save a file. */
export function saveFile(name, blob) {
    const address = URL.createObjectURL(blob);
    element("a", { href: address, download: name }).click();
    setTimeout(() => URL.revokeObjectURL(address), 10000);
}

/** Copies a text; false where the browser does not let it. */
export async function copyText(text) {
    try {
        await navigator.clipboard.writeText(text);
        return true;
    } catch {
        return false;
    }
}
