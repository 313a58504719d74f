// Words for the screen in use from on-screen keyboards and input methods, which write into a field
// of the page alone: one that is not seen, where the caret of the screen is.
import { byId } from "./elements.js";

const field = byId("typing");
const KEPT = " "; // there is always something to erase

const KEYS = {
    insertLineBreak: ["Enter"],
    insertParagraph: ["Enter"],
    deleteContentBackward: ["Backspace"],
    deleteContentForward: ["Delete"],
    deleteWordBackward: ["Backspace", true],
    deleteWordForward: ["Delete", true],
};

/** @p key gets the name of a key and whether Control is held, @p text and @p compose get words. */
export function makeTyping({ key, text, compose }) {
    const keep = () => {
        field.value = KEPT;
    };
    field.addEventListener("beforeinput", (event) => {
        if (event.isComposing) return; // the page cannot refuse that, and hears of it below
        event.preventDefault();
        const named = KEYS[event.inputType];
        if (named) key(...named);
        else if (/^insert/.test(event.inputType) && event.data) text(event.data);
    });
    field.addEventListener("compositionupdate", ({ data }) => compose(data));
    field.addEventListener("compositionend", ({ data }) => {
        if (data) text(data);
        else compose("");
        keep();
    });

    return {
        field,
        /** Takes the keyboard, which phones show at once or not at all. */
        begin() {
            if (field.hidden) keep();
            field.hidden = false;
            field.focus({ preventScroll: true });
        },
        end() {
            if (document.activeElement === field) byId("stage").focus({ preventScroll: true });
            field.hidden = true;
        },
    };
}
