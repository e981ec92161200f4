// Calls the functions of the WebAssembly module: passes texts and numbers, and notices a fatal stop.

import createCore, { type Core, type Platform } from "./core.js";
import { OrivantaError } from "./errors.js";
import type { MapEvent } from "./mapTypes.js";
import { Files } from "./platform/files.js";
import { graphics } from "./platform/graphics.js";
import { Network } from "./platform/network.js";
import { CanvasTable } from "./platform/surfaces.js";
import { turnRequest } from "./turns.js";

/** Where the bytes of the module come from. */
export type WasmSource = string | URL | BufferSource;

/** The progress of a load. */
export interface LoadProgress {
  /** Collections that are complete or have failed. */
  readonly collectionsDone: number;
  /** Collections of the whole load. */
  readonly collections: number;
  /** Pages received so far. */
  readonly pages: number;
  /** Bytes of these pages. */
  readonly bytes: number;
}

/** The end of a load, as the module reports it. */
export interface LoadReport {
  readonly venues?: readonly { id: string; slug: string; name: string }[];
  readonly venue?: number;
  readonly failures: readonly { collection: string; kind: string; status: number; reason: string }[];
}

interface RunningLoad {
  progressed: ((progress: LoadProgress) => void) | undefined;
  ended: (report: LoadReport) => void;
  failed: (error: OrivantaError) => void;
}

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

/** Reads a file next to the package's code, in a browser or in Node.js. */
export async function fetched(source: string | URL): Promise<BufferSource | Response> {
  const url = new URL(source, import.meta.url);
  if (url.protocol !== "file:") {
    const response = await fetch(url, { credentials: "same-origin" });
    if (!response.ok) {
      throw new OrivantaError("otherStatus", `${url} cannot be loaded`, response.status);
    }
    return response;
  }
  const files = "node:fs/promises"; // in a variable, so that bundlers do not look for it
  const { readFile } = (await import(/* @vite-ignore */ files)) as {
    readFile(url: URL): Promise<Uint8Array<ArrayBuffer>>;
  };
  return readFile(url);
}

async function compiled(source: WasmSource): Promise<WebAssembly.Module> {
  const isFile = typeof source === "string" || source instanceof URL;
  const bytes = isFile ? await fetched(source) : source;
  if (!(bytes instanceof Response)) return WebAssembly.compile(bytes);
  if (bytes.headers.get("Content-Type") === "application/wasm") {
    return WebAssembly.compileStreaming(bytes);
  }
  return WebAssembly.compile(await bytes.arrayBuffer());
}

/** One instance of the module. */
export class Engine {
  /** Called once, with a sentence, when the module has stopped. */
  onFatal: ((message: string) => void) | null = null;

  /** The canvases of maps. */
  readonly canvases = new CanvasTable();
  /** The listeners of maps, by the maps' numbers. */
  readonly maps = new Map<number, MapListener>();

  #core!: Core;
  #fatal: OrivantaError | null = null;
  #lastLine = "";
  readonly #ending = new AbortController();
  readonly #loads = new Map<number, RunningLoad>();

  private constructor() {}

  /** Compiles and starts the module. */
  static async start(source: WasmSource): Promise<Engine> {
    const module = await compiled(source);
    const engine = new Engine();
    await engine.#start(module);
    return engine;
  }

  async #start(module: WebAssembly.Module): Promise<void> {
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
  }

  // Everything through which the module is entered from the page's events notices a fatal stop.
  #platform(): Platform {
    const engine = this;
    return {
      requestTurn: turnRequest(() => this.#enter((core) => core._orivantaRunTurn()), this.#ending.signal),
      loadProgressed: (load, collectionsDone, collections, pages, bytes) => {
        const progress = { collectionsDone, collections, pages, bytes };
        const { progressed } = this.#loads.get(load) ?? {};
        if (progressed) queueMicrotask(() => progressed(progress));
      },
      loadEnded: (load, text, length) => this.#end(load, this.#read(text, length)),
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
    return this.call((core) => {
      const encoded = texts.map((text) => (typeof text === "string" ? encoder.encode(text) : text));
      const places: number[] = [];
      try {
        for (const bytes of encoded) {
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
    return this.call((core) => {
      const places: number[] = [];
      try {
        for (const list of lists) {
          const address = core._malloc(Math.max(list.length, 1) * 4);
          if (address === 0) throw new OrivantaError("tooLarge", "there is not enough memory");
          core.HEAP32.set(list, address / 4);
          places.push(address, list.length);
        }
        return use(core, ...places);
      } finally {
        for (let i = 0; i < places.length; i += 2) core._free(places[i]!);
      }
    });
  }

  /** Returns the JSON value that a function has returned. */
  json(address: number): unknown {
    return JSON.parse(this.#read(address, this.#core._orivantaResultLength()));
  }

  /** Returns a copy of the numbers that a function has returned. */
  numbers(address: number): Float64Array {
    return this.#core.HEAPF64.slice(address / 8, address / 8 + this.#core._orivantaResultLength());
  }

  /** Starts a load. `package_` has the responses, by name; without it, the server is asked. */
  load(
    settings: object,
    package_: Readonly<Record<string, string>> | null,
    progressed: ((progress: LoadProgress) => void) | undefined,
    signal: AbortSignal | undefined,
  ): Promise<LoadReport> {
    return new Promise((resolve, reject) => {
      signal?.throwIfAborted();
      if (package_) this.#give(package_);
      const load = this.withTexts([JSON.stringify(settings)], (core, address, length) =>
        core._orivantaStartLoad(address!, length!),
      );
      if (load === 0) throw new OrivantaError("invalid", "the settings of the load are invalid");
      const canceled = () => {
        this.#loads.delete(load);
        reject(signal!.reason);
        this.enter((core) => core._orivantaCancelLoad(load));
      };
      signal?.addEventListener("abort", canceled, { once: true });
      const done = () => signal?.removeEventListener("abort", canceled);
      this.#loads.set(load, {
        progressed,
        ended: (report) => {
          done();
          if (signal?.aborted) this.removeVenue(report.venue);
          else resolve(report);
        },
        failed: (error) => (done(), reject(error)),
      });
    });
  }

  /** Releases a venue, if there is one. */
  removeVenue(venue: number | undefined): void {
    if (venue !== undefined) this.enter((core) => core._orivantaRemoveVenue(venue));
  }

  /** Ends the instance and its maps: every later call throws. */
  close(): void {
    this.#fatal ??= new OrivantaError("fatal", "the instance was destroyed");
    this.#failAll(this.#fatal);
    this.#ending.abort();
  }

  #give(package_: Readonly<Record<string, string>>): void {
    try {
      for (const [name, text] of Object.entries(package_)) {
        const isAdded = this.withTexts([name, text], (core, ...places) =>
          core._orivantaAddToPackage(places[0]!, places[1]!, places[2]!, places[3]!),
        );
        if (!isAdded) throw new OrivantaError("tooLarge", "there is not enough memory");
      }
    } catch (error) {
      if (!this.#fatal) this.call((core) => core._orivantaDropPackage());
      throw error;
    }
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
    try {
      return use(this.#core);
    } catch (error) {
      this.#stop(error);
      return undefined;
    }
  }

  // The handlers of the page run in a turn of their own, so that what they throw does not pass through the
  // module.
  #end(load: number, text: string): void {
    const running = this.#loads.get(load);
    if (running) queueMicrotask(() => running.ended(JSON.parse(text) as LoadReport));
    this.#loads.delete(load);
  }

  #stop(cause: unknown): OrivantaError {
    if (this.#fatal) return this.#fatal;
    const reason = this.#lastLine || String(cause);
    this.#fatal = new OrivantaError("fatal", `the module has stopped: ${reason}`);
    this.#fatal.cause = cause;
    this.#failAll(this.#fatal);
    this.onFatal?.(this.#fatal.message);
    return this.#fatal;
  }

  #failAll(error: OrivantaError): void {
    for (const load of this.#loads.values()) load.failed(error);
    this.#loads.clear();
    for (const map of [...this.maps.values()]) map.stopped(error);
  }
}
