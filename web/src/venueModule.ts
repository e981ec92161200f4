// One venue of the module.

import type { Core } from "./core.js";
import type { Engine } from "./engine.js";
import { OrivantaError } from "./errors.js";

/** Calls the functions of the module for a venue. */
export class VenueModule {
  readonly engine: Engine;
  readonly number: number;
  #isReleased = false;

  /** `number`: that of a venue of the module, which belongs to this object now. */
  constructor(engine: Engine, number: number) {
    this.engine = engine;
    this.number = number;
  }

  /** Throws if the venue was released. */
  check(): void {
    if (this.#isReleased) throw new OrivantaError("invalid", "the venue was destroyed");
  }

  /** Calls a function. Throws if the venue was released. */
  call<Result>(use: (core: Core, venue: number) => Result): Result {
    this.check();
    return this.engine.call((core) => use(core, this.number));
  }

  /** Passes a text to a function that answers with JSON. */
  ask(text: string, name: "_orivantaPlan" | "_orivantaSearch" | "_orivantaVisitor"): unknown {
    return this.call(() =>
      this.engine.withTexts([text], (core, address, length) =>
        this.engine.json(core[name](this.number, address!, length!)),
      ),
    );
  }

  /** Releases the venue. Every later call throws. */
  release(): void {
    if (this.#isReleased) return;
    this.#isReleased = true;
    this.engine.removeVenue(this.number);
  }
}
