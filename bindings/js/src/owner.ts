// An object that can be freed, by a call or by `using`.

import { Freed } from "./errors.js";
import type { Handle } from "./objects.js";

export abstract class Owner<T extends Handle> {
    /** @internal */
    protected own: T | undefined;
    /** @internal */
    protected abstract readonly what: string;

    /** @internal */
    get handle(): T {
        if (this.own === undefined || this.own.freed) {
            throw new Freed(`the ${this.what} was freed`);
        }
        return this.own;
    }

    /** Whether it can be used no more. */
    get freed(): boolean {
        return this.own === undefined || this.own.freed;
    }

    /** @internal */
    protected abstract release(own: T): void;

    /** Gives the memory back, at once unless something still needs it. Twice does no harm. */
    free(): void {
        if (this.own !== undefined && !this.own.freed) this.release(this.own);
        this.own = undefined;
    }
}

// Where the language has `using`.
const dispose = (Symbol as { dispose?: symbol }).dispose;
if (dispose !== undefined) {
    Object.defineProperty(Owner.prototype, dispose, {
        value(this: Owner<Handle>) {
            this.free();
        },
    });
}
