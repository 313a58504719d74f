// The folder of resources, and what is played from it.

import * as api from "./api.js";
import { OrvelError } from "./errors.js";

/** Sets the folder that holds "Sounds", "Music", "Icons" and "UI"; "Resources" to begin with. Its
 *  files are those of `files`. */
export function setResourcePath(path: string): void {
    if (api.kit_resource_path(path) !== 0) throw new OrvelError("the resource path cannot be set");
}

/** Plays a file of the folder "Sounds" once, without waiting. */
export function playSound(name: string): void {
    const status = api.kit_play_sound(name);
    if (status !== 0) throw new OrvelError(`the sound "${name}" cannot be played`);
}

/** Plays a file of the folder "Music", in place of any other. */
export function playMusic(name: string): void {
    const status = api.kit_play_music(name);
    if (status !== 0) throw new OrvelError(`the music "${name}" cannot be played`);
}

/** Ends the music. */
export function stopMusic(): void {
    api.orvel_stop_music();
}

/** Plays a sine tone beside whatever else is playing. */
export function playTone(frequencyHz: number, durationMs: number): void {
    if (!(frequencyHz > 0) || durationMs < 1) {
        throw new RangeError("a tone has a frequency above 0 and lasts a millisecond at least");
    }
    if (api.kit_play_tone(frequencyHz, durationMs) !== 0) {
        throw new OrvelError("the tone cannot be played");
    }
}
