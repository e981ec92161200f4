// The loads of venues and lists that the module carries out.

import type { Engine } from "./engine.js";
import { OrivantaError } from "./errors.js";

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

/** What to load. */
export interface LoadOrder {
  /** See `startLoad` in Apps/Web/Loading.hpp. */
  readonly settings: object;
  /** The responses, by name; without them, the server is asked. */
  readonly records?: Readonly<Record<string, string>>;
  readonly progressed?: ((progress: LoadProgress) => void) | undefined;
  readonly signal?: AbortSignal | undefined;
}

interface RunningLoad {
  readonly progressed: ((progress: LoadProgress) => void) | undefined;
  readonly ended: (report: LoadReport) => void;
  readonly failed: (error: OrivantaError) => void;
}

/** The running loads, by the module's numbers. */
export class Loads {
  readonly #engine: Engine;
  readonly #running = new Map<number, RunningLoad>();

  constructor(engine: Engine) {
    this.#engine = engine;
  }

  /** Starts a load. */
  start({ settings, records, progressed, signal }: LoadOrder): Promise<LoadReport> {
    return new Promise((resolve, reject) => {
      signal?.throwIfAborted();
      if (records) this.#give(records);
      const load = this.#engine.withTexts([JSON.stringify(settings)], (core, address, length) =>
        core._orivantaStartLoad(address!, length!),
      );
      if (load === 0) throw new OrivantaError("invalid", "the settings of the load are invalid");
      const canceled = () => {
        this.#running.delete(load);
        reject(signal!.reason);
        this.#engine.enter((core) => core._orivantaCancelLoad(load));
      };
      signal?.addEventListener("abort", canceled, { once: true });
      const done = () => signal?.removeEventListener("abort", canceled);
      this.#running.set(load, {
        progressed,
        ended: (report) => {
          done();
          if (signal?.aborted) this.#engine.removeVenue(report.venue);
          else resolve(report);
        },
        failed: (error) => (done(), reject(error)),
      });
    });
  }

  /** To be called with the counts of a `LoadProgress`. */
  progressed(load: number, [collectionsDone, collections, pages, bytes]: [number, number, number, number]): void {
    const { progressed } = this.#running.get(load) ?? {};
    if (progressed) queueMicrotask(() => progressed({ collectionsDone, collections, pages, bytes }));
  }

  /**
   * To be called with the JSON text of a `LoadReport`. Handlers of the page run in a turn of their own, so that what
   * they throw does not pass through the module.
   */
  ended(load: number, text: string): void {
    const running = this.#running.get(load);
    if (running) queueMicrotask(() => running.ended(JSON.parse(text) as LoadReport));
    this.#running.delete(load);
  }

  /** Fails all loads. */
  fail(error: OrivantaError): void {
    for (const load of this.#running.values()) load.failed(error);
    this.#running.clear();
  }

  #give(records: Readonly<Record<string, string>>): void {
    try {
      for (const [name, text] of Object.entries(records)) {
        const isAdded = this.#engine.withTexts([name, text], (core, ...places) =>
          core._orivantaAddToPackage(places[0]!, places[1]!, places[2]!, places[3]!),
        );
        if (!isAdded) throw new OrivantaError("tooLarge", "there is not enough memory");
      }
    } catch (error) {
      this.#engine.enter((core) => core._orivantaDropPackage());
      throw error;
    }
  }
}
