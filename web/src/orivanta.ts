// The entry point: one instance of the WebAssembly module, which loads any number of venues.

import type { VenueServer } from "./closures.js";
import { Engine } from "./engine.js";
import { OrivantaError, type ErrorKind } from "./errors.js";
import { Languages } from "./languages.js";
import type { LoadOrder, LoadProgress, LoadReport } from "./loads.js";
import { Venue, type LoadProblem } from "./venue.js";
import type { ModuleFiles } from "./wasm.js";

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
  /** Ends the load: the promise is rejected with the signal's reason. */
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

/** How long the messages of a language may take longer than the venue. */
const patienceMilliseconds = 10_000;

// Relative endpoints are those of the page.
function originOf(endpoint: string): string {
  try {
    return new URL(endpoint, globalThis.location?.href).origin;
  } catch {
    return endpoint;
  }
}

/**
 * Waits for a promise that cannot be canceled, but neither forever nor after the end of the instance. After an abort,
 * throws the signal's reason.
 */
async function patiently(promise: Promise<unknown>, ended: AbortSignal, signal: AbortSignal | undefined): Promise<void> {
  const done = new AbortController();
  try {
    await new Promise<void>((resolve, reject) => {
      const options = { once: true, signal: done.signal };
      signal?.addEventListener("abort", () => reject(signal.reason), options);
      ended.addEventListener("abort", () => resolve(), options);
      const timer = setTimeout(resolve, patienceMilliseconds);
      done.signal.addEventListener("abort", () => clearTimeout(timer));
      promise.then(() => resolve(), reject);
      if (ended.aborted) resolve();
      signal?.throwIfAborted();
    });
  } finally {
    done.abort();
  }
}

// Relative endpoints are those of the page.
function endpointOf(endpoint: string | undefined): string {
  if (typeof endpoint !== "string") throw new OrivantaError("invalid", "no endpoint is given; call venues() or pass one");
  const folder = endpoint.endsWith("/") ? endpoint : `${endpoint}/`;
  try {
    const { href } = new URL(folder, globalThis.location?.href);
    return /^\w+:/.test(folder) ? folder : href; // as it is given
  } catch {
    throw new OrivantaError("invalid", `${endpoint} is not a URL`);
  }
}

function slugOf(record: string): unknown {
  try {
    return (JSON.parse(record) as { slug?: unknown } | null)?.slug;
  } catch {
    return undefined;
  }
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

  /** Loads the module. */
  static async load(files: ModuleFiles = {}): Promise<Orivanta> {
    const { wasm = new URL("./core.wasm", import.meta.url), data = new URL("./core.data", import.meta.url) } = files;
    return new Orivanta(await Engine.start({ wasm, data }));
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
    const load = { ...this.#settings, endpoint: endpointOf(settings.endpoint) };
    const report = await this.#load({ settings: load, signal: settings.signal }, settings.languages);
    const failure = report.failures[0];
    if (failure) throw new OrivantaError(failure.kind as ErrorKind, failure.reason, failure.status);
    return Object.freeze((report.venues ?? []).map((venue) => Object.freeze(venue)));
  }

  /**
   * Loads a venue of the server. The account that `venues` was given is not sent to a server of another origin.
   */
  async venue(slug: string, options: VenueOptions = {}): Promise<Venue> {
    const { signal, onProgress, accessible = false, ...settings } = { ...this.#settingsFor(options), ...options };
    const load = { ...settings, endpoint: endpointOf(settings.endpoint), slug, accessible };
    const order = { settings: load, progressed: onProgress, signal };
    return this.#opened(await this.#load(order, settings.languages), slug, load);
  }

  /** Loads a venue from its records, without a server. */
  async open(records: VenuePackage, options: Pick<VenueOptions, "accessible" | "signal"> = {}): Promise<Venue> {
    const slug = slugOf(records.venue);
    if (typeof slug !== "string") throw new OrivantaError("unusable", "the venue's record cannot be read or has no slug");
    const report = await this.#engine.loads.start({
      settings: { slug, accessible: options.accessible ?? false },
      records: { ...records, venue: `[${records.venue}]` },
      signal: options.signal,
    });
    if (report.venue === undefined && !report.failures.length) {
      throw new OrivantaError("unusable", `the records of the venue "${slug}" are incomplete or cannot be read`);
    }
    return this.#opened(report, slug, null);
  }

  /**
   * Makes the graphics of the next map ready, if the browser supports WebGL 2. Call it before a venue is loaded that
   * will be shown: the browser needs some time for this. The next map that adds a canvas to an element uses them.
   */
  prepareMap(): void {
    this.#engine.canvases.prepare();
  }

  /** Ends the instance and its maps. Every later call throws. */
  destroy(): void {
    this.#engine.close();
  }

  #settingsFor({ endpoint }: VenueOptions): Partial<ServerSettings> {
    const { username, password, ...others } = this.#settings;
    const former = others.endpoint ?? "";
    return endpoint === undefined || originOf(endpoint) === originOf(former) ? this.#settings : others;
  }

  // The messages of a language are loaded at the same time; without them, the load succeeds too.
  async #load(order: LoadOrder, languages = "en"): Promise<LoadReport> {
    const language = this.#languages.load(languages).catch(() => "en");
    const report = await this.#engine.loads.start(order);
    try {
      await patiently(language, this.#engine.ended, order.signal);
    } catch (error) {
      this.#engine.removeVenue(report.venue);
      throw error;
    }
    return report;
  }

  #opened(report: LoadReport, slug: string, server: VenueServer | null): Venue {
    const problems = report.failures.map((each) => Object.freeze(each as LoadProblem));
    if (report.venue !== undefined) return new Venue(this.#engine, report.venue, Object.freeze(problems), server);
    const [first] = problems;
    if (!first) throw new OrivantaError("notFound", `there is no venue "${slug}"`);
    throw new OrivantaError(first.kind, first.reason, first.status);
  }
}
