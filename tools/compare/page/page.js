"use strict";
(() => {
  const pictures = [...document.querySelectorAll(".picture")];
  const zooms = [0, 1, 2, 4, 8, 16, 32];
  const calm = matchMedia("(prefers-reduced-motion: reduce)").matches;
  let current = -1;
  let timer = 0;

  const button = (text, label, act) => {
    const made = document.createElement("button");
    made.type = "button";
    made.textContent = text;
    if (label) made.setAttribute("aria-label", label);
    made.addEventListener("click", act);
    return made;
  };
  const group = (label, ...parts) => {
    const made = document.createElement("div");
    made.className = "group";
    made.setAttribute("role", "group");
    made.setAttribute("aria-label", label);
    made.append(...parts);
    return made;
  };

  class View {
    constructor(section) {
      this.section = section;
      this.panes = [...section.querySelectorAll(".pane")];
      this.zoom = 0;
      this.both = this.panes.length === 3;
      if (this.panes.length) this.addTools();
      for (const pane of this.panes) pane.addEventListener("scroll", () => this.follow(pane));
    }
    addTools() {
      const tools = this.section.querySelector(".tools");
      this.size = document.createElement("output");
      this.modes = {
        three: button("Three", "all three pictures", () => this.show("three")),
        swipe: button("Swipe", "", () => this.show("swipe")),
        blink: button("Blink", "", () => this.show("blink")),
        difference: button("Difference", "the difference alone", () => this.show("difference")),
      };
      if (this.both) tools.append(group("View", ...Object.values(this.modes)));
      tools.append(group("Zoom", button("−", "smaller", () => this.zoomBy(-1)), this.size,
                         button("+", "larger", () => this.zoomBy(1))));
      this.addSwipe();
      this.show("three");
      this.zoomBy(0);
    }
    addSwipe() {
      const views = this.section.querySelector(".views");
      this.now = document.createElement("p");
      this.now.className = "now";
      this.at = document.createElement("input");
      Object.assign(this.at, {type: "range", className: "at", min: 0, max: 100, value: 50});
      this.at.setAttribute("aria-label", "where the actual picture begins");
      this.at.addEventListener("input", () => this.swipeTo(Number(this.at.value)));
      views.before(this.now, this.at);
      const drag = event => {
        if (this.mode !== "swipe" || (event.buttons & 1) === 0) return;
        const box = views.getBoundingClientRect();
        this.swipeTo(100 * (event.clientX - box.left) / box.width);
      };
      views.addEventListener("pointerdown", drag);
      views.addEventListener("pointermove", drag);
    }
    show(mode) {
      if (!this.both && mode !== "three") return;
      this.mode = mode;
      for (const [name, made] of Object.entries(this.modes)) {
        this.section.classList.toggle("by-" + name, name === mode);
        made.setAttribute("aria-pressed", String(name === mode));
      }
      this.now.textContent =
        mode === "swipe" ? "Left of the line: expected. Right of it: actual." : "";
      this.swipeTo(Number(this.at.value));
      clearInterval(timer);
      if (mode === "blink") this.blink(false);
      if (mode === "blink" && !calm) timer = setInterval(() => this.blink(), 700);
    }
    blink(second = !this.section.classList.contains("second")) {
      if (this.mode !== "blink") return;
      this.section.classList.toggle("second", second);
      this.now.textContent = "Shown: " + (second ? "actual" : "expected");
    }
    pause() {
      clearInterval(timer);
      this.blink();
    }
    swipeTo(percent) {
      const value = Math.min(100, Math.max(0, percent));
      this.at.value = String(value);
      this.section.style.setProperty("--at", value + "%");
    }
    zoomBy(steps) {
      this.zoom = Math.min(zooms.length - 1, Math.max(0, this.zoom + steps));
      const factor = zooms[this.zoom];
      this.section.classList.toggle("zoomed", factor > 0);
      this.size.textContent = factor ? factor + "×" : "fit";
      for (const image of this.section.querySelectorAll("img")) {
        image.style.width = factor ? factor * Number(image.getAttribute("width")) + "px" : "";
      }
      if (factor) this.toBox(factor);
    }
    toBox(factor) {
      const [left, top, width, height] = (this.section.dataset.box || "").split(" ").map(Number);
      if (!width) return;
      for (const pane of this.panes) {
        this.scroll(pane, (left + width / 2) * factor - pane.clientWidth / 2,
                    (top + height / 2) * factor - pane.clientHeight / 2);
      }
    }
    scroll(pane, left, top) {
      pane.scrollTo(left, top);
      pane.scrolled = [pane.scrollLeft, pane.scrollTop];  // where its event will find it
    }
    follow(moved) {
      const [left, top] = moved.scrolled || [];
      if (moved.scrollLeft === left && moved.scrollTop === top) return;
      moved.scrolled = [moved.scrollLeft, moved.scrollTop];
      for (const pane of this.panes) {
        if (pane !== moved) this.scroll(pane, moved.scrollLeft, moved.scrollTop);
      }
    }
  }

  const views = pictures.map(section => new View(section));
  const go = index => {
    if (!pictures.length) return;
    current = Math.min(pictures.length - 1, Math.max(0, index));
    pictures[current].focus({preventScroll: true});
    pictures[current].scrollIntoView({block: "start"});
  };
  for (const [index, section] of pictures.entries()) {
    section.addEventListener("focusin", () => { current = index; });
    section.addEventListener("pointerdown", () => { current = index; });
  }
  const move = (view, steps) => {
    if (view.mode === "swipe") view.swipeTo(Number(view.at.value) + 2 * steps);
    if (view.mode === "blink") view.pause();
  };
  const keys = {
    j: () => go(current + 1), n: () => go(current + 1),
    k: () => go(current - 1), p: () => go(current - 1),
    1: view => view.show("three"), 2: view => view.show("swipe"),
    3: view => view.show("blink"), 4: view => view.show("difference"),
    "+": view => view.zoomBy(1), "=": view => view.zoomBy(1), "-": view => view.zoomBy(-1),
    0: view => view.zoomBy(-zooms.length),
    ArrowLeft: view => move(view, -1), ArrowRight: view => move(view, 1),
    "?": () => { const help = document.querySelector(".keys"); help.open = !help.open; },
  };
  document.addEventListener("keydown", event => {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const view = views[Math.max(0, current)];
    const ours = event.target.tagName !== "INPUT" && event.target.tagName !== "BUTTON";
    if (event.key === " " && ours && view && view.mode === "blink") {
      event.preventDefault();
      return view.pause();
    }
    const act = keys[event.key];
    if (!act || (event.target.tagName === "INPUT" && event.key.startsWith("Arrow"))) return;
    if (event.key.startsWith("Arrow") && !(view && /swipe|blink/.test(view.mode))) return;
    if (act.length && !(view && view.panes.length)) return;
    event.preventDefault();
    act(view);
  });
})();
