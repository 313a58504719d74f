// Search and the buttons that copy code. Pages work without; nothing is fetched, so that all of it works
// from a folder, too: the index comes as a script, when it is first wanted.
"use strict";
const root = document.currentScript.dataset.root;
const field = document.querySelector("#search"), found = document.querySelector("#found");
let index, loading;

function load(name) {
    return new Promise((done, failed) => {
        const script = document.createElement("script");
        script.src = root + name;
        script.onload = done;
        script.onerror = failed;
        document.head.append(script);
    });
}

async function open() {
    await load("search/lunr.js");
    await load("search/search_index.js");
    lunr.tokenizer.separator = new RegExp(searchIndex.config.separator);
    index = lunr(function () {
        this.ref("location");
        this.field("title", {boost: 10});
        this.field("text");
        searchIndex.docs.forEach((page) => this.add(page));
    });
}

// What has all words, or else any, the last of which may still be typed.
function matches(text) {
    const words = lunr.tokenizer(text).map(String).filter((word) => lunr.stopWordFilter(word));
    const last = words.pop() ?? "";
    const {REQUIRED, OPTIONAL} = lunr.Query.presence;
    const ask = (presence, distance) => index.query((query) => {
        const stem = (word) => lunr.stemmer(new lunr.Token(word)).toString();
        words.forEach((word) => query.term(stem(word), {presence, editDistance: distance}));
        query.term(stem(last), {boost: 10, editDistance: distance});
        query.term(last, {wildcard: lunr.Query.wildcard.TRAILING});
    });
    const all = ask(REQUIRED, 0);
    return all.length ? all : ask(OPTIONAL, 1);
}

function line(page) {
    const item = document.createElement("li"), link = document.createElement("a");
    const name = searchIndex.docs.find((one) => one.location === page.location.split("#")[0]).title;
    link.href = root + page.location;
    link.append(Object.assign(document.createElement("strong"), {textContent: page.title}));
    if (name !== page.title) link.append(` · ${name}`);
    link.append(Object.assign(document.createElement("small"), {textContent: page.text.slice(0, 120)}));
    item.append(link);
    return item;
}

async function search() {
    const text = field.value.trim();
    loading ??= open();
    await loading;
    if (field.value.trim() !== text) return;
    const pages = new Map(searchIndex.docs.map((page) => [page.location, page]));
    const best = text ? matches(text).slice(0, 12).map((match) => line(pages.get(match.ref))) : [];
    if (text && !best.length) {
        best.push(Object.assign(document.createElement("li"), {textContent: "Nothing was found."}));
    }
    found.replaceChildren(...best);
    found.hidden = !text;
}

field.addEventListener("input", search);
field.form.addEventListener("submit", (event) => {
    event.preventDefault();
    found.querySelector("a")?.click();
});
document.addEventListener("keydown", (event) => {
    if (event.key === "Escape") found.hidden = true;
    if (event.key !== "/" || /INPUT|TEXTAREA/.test(event.target.tagName)) return;
    event.preventDefault();
    field.focus();
});
document.addEventListener("click", (event) => {
    if (!field.form.contains(event.target)) found.hidden = true;
});
found.addEventListener("click", () => { found.hidden = true; });

async function copy(button, text) {
    try {
        await navigator.clipboard.writeText(text);
        button.textContent = "Copied";
    } catch {
        button.textContent = "Not allowed";
    }
    setTimeout(() => { button.textContent = "Copy"; }, 1500);
}

document.querySelectorAll(".codehilite").forEach((block) => {
    const pre = block.querySelector("pre");
    pre.tabIndex = 0;  // so that keys can scroll it
    if (block.closest(".output")) return;
    const button = Object.assign(document.createElement("button"),
                                 {type: "button", className: "copy", textContent: "Copy"});
    const text = pre.textContent;
    button.addEventListener("click", () => copy(button, text));
    block.append(button);
});
document.querySelectorAll(".wide, table").forEach((wide) => {
    if (wide.scrollWidth > wide.clientWidth) wide.tabIndex = 0;
});
