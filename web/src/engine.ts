// Calls the functions of the WebAssembly module: passes texts and numbers, and notices a fatal stop.

import createCore, { type Core, type Platform } from "./core.js";
import { OrivantaError } from "./errors.js";
import { Loads } from "./loads.js";
import type { MapEvent } from "./map/reports.js";
import { Files } from "./platform/files.js";
import { graphics } from "./platform/graphics.js";
import { Network } from "./platform/network.js";
import { CanvasTable } from "./platform/surfaces.js";
import { Turns } from "./turns.js";
import { bytesOf, compiled, type ModuleFiles } from "./wasm.js";

/** Receives what a map of the module reports. */
export interface MapListener {
  /** A frame has to be drawn. Called by the module, which must not be called in return. */
  wantsFrame(): void;
  /** Called in a turn of its own. */
  event(event: MapEvent): void;
  /** The module has stopped, or the instance was destroyed. */
  stopped(error: OrivantaError): void;
}

const encoder = new TextEncoder();
const decoder = new TextDecoder();

function encoded(text: string | Uint8Array): Uint8Array {
  if (text instanceof Uint8Array) return text;
  if (typeof text !== "string") throw new OrivantaError("invalid", `${text} is not a text`);
  return encoder.encode(text);
}

/** One instance of the module. */
export class Engine {
  /** Called once, with a sentence, when the module has stopped. */
  onFatal: ((message: string) => void) | null = null;

  /** The canvases of maps. */
  readonly canvases = new CanvasTable();
  /** The listeners of maps, by the maps' numbers. */
  readonly maps = new Map<number, MapListener>();
  /** The loads of venues and lists. */
  readonly loads = new Loads(this);

  /** The turns in which the module works. */
  readonly turns: Turns;

  #core!: Core;
  #fatal: OrivantaError | null = null;
  #lastLine = "";
  readonly #ending = new AbortController(); // aborted by `close`, and when the module stops

  private constructor() {
    this.turns = new Turns(() => this.#enter((core) => core._orivantaRunTurn()), this.#ending.signal);
  }

  /** Compiles and starts the module. */
  static async start(files: Required<ModuleFiles>): Promise<Engine> {
    const [module, resources] = await Promise.all([compiled(files.wasm), bytesOf(files.data)]);
    const engine = new Engine();
    await engine.#start(module, resources);
    return engine;
  }

  async #start(module: WebAssembly.Module, resources: Uint8Array): Promise<void> {
    if (!globalThis.crypto) {
      // Node.js 18. In a variable, so that bundlers do not look for it.
      const name = "node:crypto";
      const { webcrypto } = (await import(/* @vite-ignore */ name)) as { webcrypto: Crypto };
      globalThis.crypto = webcrypto;
    }
    let instantiationFailed: (error: unknown) => void = () => {};
    const failure = new Promise<never>((_, reject) => (instantiationFailed = reject));
    const core = createCore({
      platform: this.#platform(),
      instantiateWasm: (imports, received) => {
        WebAssembly.instantiate(module, imports).then(received, instantiationFailed);
        return {};
      },
      printErr: (line) => (this.#lastLine = line),
      onAbort: () => this.#core._orivantaTrap(),
    });
    this.#core = await Promise.race([core, failure]);
    this.#core._orivantaBegin();
    const areAdded = this.withTexts([resources], (core, address, length) => core._orivantaAddResources(address!, length!));
    if (!areAdded) throw new OrivantaError("unusable", "the file core.data is damaged");
  }

  // Everything through which the module is entered from the page's events notices a fatal stop.
  #platform(): Platform {
    const engine = this;
    return {
      requestTurn: () => this.turns.request(),
      loadProgressed: (load, ...counts) => this.loads.progressed(load, counts),
      loadEnded: (load, text, length) => this.loads.ended(load, this.#read(text, length)),
      files: new Files((line) => (this.#lastLine = line)),
      graphics,
      surfaces: this.canvases,
      maps: {
        wantsFrame: (map) => this.maps.get(map)?.wantsFrame(),
        event: (map, text, length) => {
          const event = JSON.parse(this.#read(text, length)) as MapEvent;
          queueMicrotask(() => this.maps.get(map)?.event(event));
        },
      },
      network: new Network({
        get HEAPU8() {
          return engine.#core.HEAPU8;
        },
        _orivantaFetchRoom: (request, part, count) =>
          this.#enter((core) => core._orivantaFetchRoom(request, part, count)) ?? 0,
        _orivantaFetchEnded: (request, status) =>
          void this.#enter((core) => core._orivantaFetchEnded(request, status)),
      }),
    };
  }

  /** Runs a function that uses the module. Throws an error of the kind "fatal" if it stops or has stopped. */
  call<Result>(use: (core: Core) => Result): Result {
    if (this.#fatal) throw this.#fatal;
    this.#lastLine = "";
    try {
      return use(this.#core);
    } catch (error) {
      throw error instanceof OrivantaError ? error : this.#stop(error);
    }
  }

  /** Calls a function that takes UTF-8 texts or bytes, each as address and length. */
  withTexts<Result>(
    texts: readonly (string | Uint8Array)[],
    use: (core: Core, ...places: number[]) => Result,
  ): Result {
    const contents = texts.map(encoded);
    return this.call((core) => {
      const places: number[] = [];
      try {
        for (const bytes of contents) {
          const address = core._malloc(Math.max(bytes.length, 1));
          if (address === 0) throw new OrivantaError("tooLarge", "there is not enough memory");
          core.HEAPU8.set(bytes, address);
          places.push(address, bytes.length);
        }
        return use(core, ...places);
      } finally {
        for (let i = 0; i < places.length; i += 2) core._free(places[i]!);
      }
    });
  }

  /** Calls a function that takes lists of indices, each as address and length. */
  withIndices<Result>(
    lists: readonly (readonly number[])[],
    use: (core: Core, ...places: number[]) => Result,
  ): Result {
    const bytes = lists.map((list) => new Uint8Array(Int32Array.from(list).buffer));
    return this.withTexts(bytes, (core, ...places) =>
      use(core, ...places.map((place, index) => (index % 2 === 1 ? place / 4 : place))),
    );
  }

  /** Returns the JSON value that a function has returned. */
  json(address: number): unknown {
    return JSON.parse(this.#read(address, this.#core._orivantaResultLength()));
  }

  /** Returns a copy of the numbers that a function has returned. */
  numbers(address: number): Float64Array {
    return this.#core.HEAPF64.slice(address / 8, address / 8 + this.#core._orivantaResultLength());
  }

  /** Releases a venue, if there is one. */
  removeVenue(venue: number | undefined): void {
    if (venue !== undefined) this.enter((core) => core._orivantaRemoveVenue(venue));
  }

  /** Ends the instance and its maps: every later call throws. */
  close(): void {
    this.#fatal ??= new OrivantaError("fatal", "the instance was destroyed");
    this.#end(this.#fatal);
  }

  /** Aborted by `close`, and when the module stops. */
  get ended(): AbortSignal {
    return this.#ending.signal;
  }

  #read(address: number, length: number): string {
    return decoder.decode(this.#core.HEAPU8.subarray(address, address + length));
  }

  /** Like `call`, for events of the page: does nothing if the module has stopped. */
  enter(use: (core: Core) => void): void {
    this.#enter(use);
  }

  #enter<Result>(use: (core: Core) => Result): Result | undefined {
    if (this.#fatal) return undefined;
    this.#lastLine = "";
    try {
      return use(this.#core);
    } catch (error) {
      this.#stop(error);
      return undefined;
    }
  }

  #stop(cause: unknown): OrivantaError {
    if (this.#fatal) return this.#fatal;
    const reason = this.#lastLine || String(cause);
    this.#fatal = new OrivantaError("fatal", `the module has stopped: ${reason}`);
    this.#fatal.cause = cause;
    this.#end(this.#fatal);
    this.onFatal?.(this.#fatal.message);
    return this.#fatal;
  }

  #end(error: OrivantaError): void {
    this.#ending.abort();
    this.loads.fail(error);
    this.canvases.clear();
    for (const map of [...this.maps.values()]) map.stopped(error);
  }
}
