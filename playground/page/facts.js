// What the page was made with: examples, themes, pictures, and what the editors complete.
import { byId } from "./elements.js";

export const facts = JSON.parse(byId("facts").textContent);

const bytesOf = (base64) => Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));

/** The pictures that scenes may show: files by name. */
export function pictureFiles() {
    const all = Object.entries(facts.pictures);
    return Object.fromEntries(all.map(([name, base64]) => [name, bytesOf(base64)]));
}
