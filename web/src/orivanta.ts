// The entry point: one instance of the WebAssembly module, which loads any number of venues.

import { Engine, type LoadProgress, type LoadReport, type WasmSource } from "./engine.js";
import { OrivantaError, type ErrorKind } from "./errors.js";
import { Languages } from "./languages.js";
import { Venue, type LoadProblem } from "./venue.js";

/** How to reach a server of venues. */
export interface ServerSettings {
  /** The root of the web API, such as "https://maps.example.org/1/". */
  endpoint: string;
  username?: string;
  password?: string;
  /**
   * Preferred languages of names: the value of `Accept-Language`. The messages of the best one are loaded with
   * the venues, as `Orivanta.loadLanguage` does; if that fails, instructions are in English.
   */
  languages?: string;
  signal?: AbortSignal;
}

/** The options of `Orivanta.venue`. */
export interface VenueOptions extends Partial<ServerSettings> {
  /** Whether routes use only accessible connectors. */
  accessible?: boolean;
  /** Called during the load. */
  onProgress?: (progress: LoadProgress) => void;
}

/** The records of a venue as JSON texts, as in a venue package. */
export interface VenuePackage {
  /** The venue's record: venue.json. */
  venue: string;
  map: string;
  location: string;
  category: string;
  node: string;
  vortex: string;
  polygon: string;
}

/** A venue of a list. */
export interface VenueEntry {
  readonly id: string;
  readonly slug: string;
  readonly name: string;
}

function endpointOf(endpoint: string): string {
  return endpoint.endsWith("/") ? endpoint : `${endpoint}/`;
}

/** An instance of the module. */
export class Orivanta {
  /** Called once if the module has stopped. Every later call throws. */
  onFatal: ((message: string) => void) | null = null;

  readonly #engine: Engine;
  readonly #languages: Languages;
  #settings: Partial<ServerSettings> = {};

  private constructor(engine: Engine) {
    this.#engine = engine;
    this.#languages = new Languages(engine);
    engine.onFatal = (message) => this.onFatal?.(message);
  }

  /** Loads the module. `wasm` is its URL or its bytes, if it is not next to the package's code. */
  static async load(options: { wasm?: WasmSource } = {}): Promise<Orivanta> {
    return new Orivanta(await Engine.start(options.wasm ?? new URL("./core.wasm", import.meta.url)));
  }

  /**
   * Loads the messages of a language of instructions. `preferred` is a tag or a list of tags, as in
   * `Accept-Language`. Returns the tag of the best language: "ar", "de", "en", "fr" or "ja". Without it,
   * `Venue.guide` writes English.
   */
  async loadLanguage(preferred: string): Promise<string> {
    return this.#languages.load(preferred);
  }

  /** Lists the venues of a server. `venue` uses the same settings unless it is given others. */
  async venues(settings: ServerSettings): Promise<readonly VenueEntry[]> {
    this.#settings = { ...settings };
    delete this.#settings.signal;
    const { signal, ...rest } = settings;
    const [report] = await Promise.all([
      this.#engine.load({ ...rest, endpoint: endpointOf(settings.endpoint) }, null, undefined, signal),
      this.#loadLanguageOf(settings),
    ]);
    const failure = report.failures[0];
    if (failure) throw new OrivantaError(failure.kind as ErrorKind, failure.reason, failure.status);
    return Object.freeze((report.venues ?? []).map((venue) => Object.freeze(venue)));
  }

  /** Loads a venue of the server. */
  async venue(slug: string, options: VenueOptions = {}): Promise<Venue> {
    const { signal, onProgress, accessible = false, ...settings } = { ...this.#settings, ...options };
    if (settings.endpoint === undefined) {
      throw new OrivantaError("invalid", "no endpoint is given; call venues() or pass one");
    }
    const load = { ...settings, endpoint: endpointOf(settings.endpoint), slug, accessible };
    const [report] = await Promise.all([
      this.#engine.load(load, null, onProgress, signal),
      this.#loadLanguageOf(settings),
    ]);
    return this.#opened(report, slug);
  }

  /** Loads a venue from its records, without a server. */
  async open(records: VenuePackage, options: Pick<VenueOptions, "accessible" | "signal"> = {}): Promise<Venue> {
    const slug = (JSON.parse(records.venue) as { slug?: string }).slug;
    if (typeof slug !== "string") throw new OrivantaError("unusable", "the venue's record has no slug");
    const report = await this.#engine.load(
      { slug, accessible: options.accessible ?? false },
      { ...records, venue: `[${records.venue}]` },
      undefined,
      options.signal,
    );
    return this.#opened(report, slug);
  }

  /** Ends the instance. Every later call throws. */
  destroy(): void {
    this.#engine.close();
  }

  async #loadLanguageOf({ languages = "en" }: Partial<ServerSettings>): Promise<void> {
    await this.#languages.load(languages).catch(() => "en");
  }

  #opened(report: LoadReport, slug: string): Venue {
    const problems = report.failures.map((each) => Object.freeze(each as LoadProblem));
    if (report.venue !== undefined) return new Venue(this.#engine, report.venue, Object.freeze(problems));
    const [first] = problems;
    if (!first) throw new OrivantaError("notFound", `there is no venue "${slug}"`);
    throw new OrivantaError(first.kind, first.reason, first.status);
  }
}
