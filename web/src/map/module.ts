// One map of the module.

import type { Core } from "../core.js";
import type { Engine } from "../engine.js";
import { OrivantaError } from "../errors.js";
import type { MapState } from "./reports.js";

/** Calls the functions of the module for a map. */
export class MapModule {
  readonly engine: Engine;
  readonly #canvas: number;
  readonly #ending = new AbortController();
  #number = 0; // 0: the module has no such map

  constructor(engine: Engine, canvas: HTMLCanvasElement) {
    this.engine = engine;
    this.#canvas = engine.canvases.add(canvas);
  }

  /** The number by which the module reports events; 0 before `open`. */
  get number(): number {
    return this.#number;
  }

  /** Aborted by `close`. */
  get ended(): AbortSignal {
    return this.#ending.signal;
  }

  /** Makes the map of a venue, without floors. */
  open(venue: number): void {
    const number = this.engine.call((core) => core._orivantaOpenMap(venue, this.#canvas));
    if (number <= 0) throw this.engine.canvases.refusal();
    this.#number = number;
  }

  /** Calls a function. Throws if the map has ended. */
  call<Result>(use: (core: Core, map: number) => Result): Result {
    return this.engine.call((core) => {
      if (this.ended.aborted) throw new OrivantaError("invalid", "the map was destroyed");
      return use(core, this.#number);
    });
  }

  /** Like `call`, for events of the page: does nothing if the map has ended. */
  enter(use: (core: Core, map: number) => void): void {
    if (!this.ended.aborted) this.engine.enter((core) => use(core, this.#number));
  }

  /** Carries out commands, see Apps/Web/Map/MapCommands.hpp, and returns the state of the map. */
  do(commands: object): MapState {
    const text = JSON.stringify(commands);
    return this.call(() =>
      this.engine.withTexts([text], (core, address, length) =>
        this.engine.json(core._orivantaMapDo(this.#number, address!, length!)),
      ),
    ) as MapState;
  }

  get state(): MapState {
    return this.do({});
  }

  /** To be called when the canvas has lost its context, and when it has one again. */
  contextChanged(isThere: boolean): void {
    if (isThere) this.engine.canvases.contextOf(this.#canvas);
    this.enter((core, map) => core._orivantaMapContext(map, isThere ? 1 : 0));
  }

  /** Ends the map. Every later call throws. */
  close(): void {
    this.#ending.abort();
    if (this.#number > 0) this.engine.enter((core) => core._orivantaCloseMap(this.#number));
    this.engine.canvases.remove(this.#canvas);
  }
}
