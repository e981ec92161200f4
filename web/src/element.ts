// The element <orivanta-map>: a map of a venue, with a route and a floor switch. Importing this file defines it.

import { attributes, loadAttributes, reflectAttributes, takeEarlyProperties } from "./element/attributes.js";
import type { LoadedMap, OrivantaMapEventMap } from "./element/events.js";
import { use, type Use } from "./element/instance.js";
import { Parts } from "./element/parts.js";
import { optionsOf, Shown } from "./element/shown.js";
import { textOfKind, textsFor } from "./element/texts.js";
import { OrivantaError } from "./errors.js";
import { bestLanguage } from "./languages.js";
import type { LoadProgress } from "./loads.js";
import type { Venue } from "./venue.js";
import type { ModuleFiles } from "./wasm.js";

export type { LoadedMap, OrivantaMapEventMap } from "./element/events.js";
export type { ShownRoute } from "./element/shown.js";

// Where there are no pages, such as on a server that prerenders them, the class exists but has no use.
const Base = (globalThis.HTMLElement ?? class {}) as typeof HTMLElement;

/** A map of a venue. The properties that have the names of attributes reflect them. */
export class OrivantaMapElement extends Base {
  /** Where the module is, if it is not next to the package's code. Set them before the first map is loaded. */
  static files: ModuleFiles = {};
  static readonly observedAttributes = attributes;

  /** The slug of the venue. Without it, nothing is loaded. */
  declare venue: string | null;
  /** The root of the web API, relative to the page; "/1/" by default. */
  declare endpoint: string | null;
  /** The language of names, instructions and messages; that of the page around the element by default. */
  declare language: string | null;
  /** The floor that is shown: its identifier, short name or name. */
  declare floor: string | null;
  /** The start of the route: an identifier, a name, or "@FLOOR,X,Y". */
  declare from: string | null;
  /** The destination of the route. */
  declare to: string | null;
  /** The profile of the route, "fastest" by default. */
  declare profile: string | null;
  /** The place that is selected: its identifier or name. */
  declare place: string | null;
  /** "light", "dark" or "plain"; light or dark as the browser's user prefers by default. */
  declare theme: string | null;
  /** "false": one finger and the wheel move the map, and do not scroll the page. */
  declare cooperative: string | null;
  /** The account at the server. Changes have an effect on the next load. */
  username = "";
  password = "";

  readonly #parts: Parts;
  readonly #changed = new Set<string>();
  #isScheduled = false;
  #loading: AbortController | null = null;
  #use: Use | null = null;
  #venue: Venue | null = null;
  #shown: Shown | null = null;

  constructor() {
    super();
    this.#parts = new Parts(this.attachShadow({ mode: "open" }), () => this.reload());
  }

  /** The venue and its map, after "load". */
  get loaded(): LoadedMap | null {
    return this.#shown ? { venue: this.#shown.venue, map: this.#shown.map } : null;
  }

  /** Loads the venue again. */
  reload(): void {
    this.#change("venue");
  }

  connectedCallback(): void {
    takeEarlyProperties(this);
    if (!this.#loading) this.#change("venue");
  }

  disconnectedCallback(): void {
    this.#change(null);
  }

  attributeChangedCallback(name: string, former: string | null, value: string | null): void {
    if (former !== value) this.#change(name);
  }

  // An element that is moved is removed and added, and several attributes are often set together.
  #change(name: string | null): void {
    if (name) this.#changed.add(name);
    if (this.#isScheduled) return;
    this.#isScheduled = true;
    queueMicrotask(() => {
      this.#isScheduled = false;
      if (!this.isConnected) this.#release();
      else if (loadAttributes.some((each) => this.#changed.has(each))) void this.#load();
      else this.#apply(this.#changed);
    });
  }

  #apply(changed: Set<string>): void {
    this.#try((shown) => shown.apply(this, changed));
  }

  #close(closed: readonly string[]): void {
    if (closed.length > 0) this.#try((shown) => shown.close(closed, this));
  }

  #try(change: (shown: Shown) => void): void {
    try {
      if (this.#shown) change(this.#shown);
    } catch (error) {
      if (this.#shown) this.#fail(error); // otherwise, the module has stopped
    }
  }

  #release(): void {
    this.#loading?.abort();
    this.#shown?.destroy();
    this.#venue?.destroy();
    this.#use?.end();
    this.#loading = this.#use = this.#venue = this.#shown = null;
    this.#parts.removeCanvas();
  }

  async #load(): Promise<void> {
    const former = this.#use;
    this.#use = null;
    this.#release();
    this.#changed.clear();
    if (!this.venue) {
      this.#parts.hideMessage();
      return former?.end();
    }
    const { signal } = (this.#loading = new AbortController());
    const language = this.#languageOrDefault();
    const texts = textsFor(language);
    this.#parts.setLanguage(bestLanguage(language));
    this.#parts.showMessage(texts.loading, null, null);
    this.#use = use(OrivantaMapElement.files, (message) => this.#fail(new OrivantaError("fatal", message)));
    former?.end();
    try {
      const orivanta = await this.#use.orivanta;
      const venue = await orivanta.venue(this.venue, {
        endpoint: new URL(this.endpoint ?? "/1/", document.baseURI).href,
        languages: language,
        username: this.username,
        password: this.password,
        onProgress: ({ collectionsDone, collections }: LoadProgress) => {
          if (!signal.aborted) this.#parts.showMessage(texts.loading, collectionsDone / collections, null);
        },
        signal,
      });
      if (signal.aborted) return venue.destroy();
      this.#venue = venue;
      const closures = venue.closures({ signal });
      closures.catch(() => {}); // routes work without it
      const map = await venue.show(this.#parts.showCanvas(venue.name, language), optionsOf(this, venue, language));
      if (signal.aborted) return map.destroy();
      const shown = new Shown(venue, map, this.#parts, language, this, (type, detail) => this.#emit(type, detail));
      this.#shown = shown;
      closures.then((closed) => this.#shown === shown && this.#close(closed), () => {});
      this.#shown.showFloors(texts.floors);
    } catch (error) {
      if (!signal.aborted) this.#fail(error);
      return;
    }
    this.#parts.hideMessage();
    // What has changed during the load is among all attributes, unless it needs another load.
    for (const name of this.#changed) if (!loadAttributes.includes(name)) this.#changed.delete(name);
    this.#apply(new Set(attributes));
    if (this.loaded) this.#emit("load", this.loaded);
  }

  #fail(error: unknown): void {
    this.#release();
    // What was loading is not loaded again before something changes.
    this.#loading = new AbortController();
    const cause = error instanceof OrivantaError ? error : new OrivantaError("unusable", String(error));
    const language = this.#languageOrDefault();
    const texts = textsFor(language);
    this.#parts.setLanguage(bestLanguage(language));
    const text = texts[textOfKind(cause.kind)].replace("{slug}", this.venue ?? "");
    this.#parts.showMessage(text, null, texts.retry);
    this.#emit("error", cause);
  }

  #languageOrDefault(): string {
    return this.language || this.closest<HTMLElement>("[lang]")?.lang || navigator.language;
  }

  #emit(type: keyof OrivantaMapEventMap, detail: unknown): void {
    this.dispatchEvent(new CustomEvent(type, { detail }));
  }
}

reflectAttributes(OrivantaMapElement.prototype);
if (globalThis.customElements && !customElements.get("orivanta-map"))
  customElements.define("orivanta-map", OrivantaMapElement);

declare global {
  interface HTMLElementTagNameMap {
    "orivanta-map": OrivantaMapElement;
  }
}

interface EventMap extends Omit<HTMLElementEventMap, keyof OrivantaMapEventMap>, OrivantaMapEventMap {}

type Listener<Type extends keyof EventMap> = (this: OrivantaMapElement, event: EventMap[Type]) => unknown;

/** Typed events. */
export interface OrivantaMapElement {
  addEventListener<Type extends keyof EventMap>(type: Type, listener: Listener<Type>, options?: boolean | AddEventListenerOptions): void;
  addEventListener(type: string, listener: EventListenerOrEventListenerObject, options?: boolean | AddEventListenerOptions): void;
  removeEventListener<Type extends keyof EventMap>(type: Type, listener: Listener<Type>, options?: boolean | EventListenerOptions): void;
  removeEventListener(type: string, listener: EventListenerOrEventListenerObject, options?: boolean | EventListenerOptions): void;
}
