// What all parts of the page share.

import type { Catalog, CatalogPlace, Guidance, GuidanceProblem, Nearest, Orivanta, Venue, VenueEntry } from "orivanta";

import type { KioskOptions } from "./Kiosk/options.js";
import type { Settings } from "./settings.js";
import { StateStore } from "./state.js";
import type { Texts } from "./texts.js";
import { startUi, type Ui } from "./ui.js";

/** How the server is reached. */
export interface Server {
  readonly endpoint: string;
  readonly username: string;
  readonly password: string;
}

/** A failure that the page shows in place of its contents. */
export interface Failure {
  readonly title: string;
  readonly detail: string;
  /** What the button does: tries again, asks for credentials first, or loads the page again. */
  readonly way: "retry" | "signIn" | "reload" | "venues";
}

/** The venue that is shown, with what is made of it once. */
export interface Shown {
  readonly venue: Venue;
  readonly catalog: Catalog;
  readonly places: ReadonlyMap<string, CatalogPlace>;
}

/** The route of the state. */
export type Plan =
  | { readonly kind: "planning" }
  | { readonly kind: "route"; readonly routes: readonly Guidance[]; readonly departure: Date }
  | { readonly kind: "problem"; readonly problem: GuidanceProblem | { readonly text: string } };

/** The page: its state, its data, and who is told about changes. */
export class App {
  readonly store = new StateStore();
  ui: Ui = startUi;
  orivanta: Orivanta | null = null;
  venues: readonly VenueEntry[] | null = null;
  shown: Shown | null = null;
  /** Identifiers of what is closed in the venue. */
  closed: readonly string[] = [];
  failure: Failure | null = null;
  /** Whether newer data could not be loaded, so that the former venue is still shown. */
  isOutdated = false;
  /** What is being loaded, as a text; null if nothing is. */
  loading: string | null = null;
  /** The share of the load that is done, 0 to 1; null if it is not known. */
  loadedShare: number | null = null;
  /** Null if an end of the route is missing. */
  plan: Plan | null = null;
  /** How the page is set up as a kiosk; null if it is none. */
  kiosk: KioskOptions | null = null;
  /** Speaks to screen readers. */
  announce: (text: string) => void = () => {};

  readonly #handlers = new Set<() => void>();
  #isScheduled = false;

  constructor(
    public server: Server,
    readonly settings: Settings,
    public texts: Texts,
  ) {
    this.store.on(() => this.changed());
  }

  /** The host that has the data if it is not the page's own: a link can name any. Otherwise, empty. */
  get foreignHost(): string {
    try {
      const { host, origin } = new URL(this.server.endpoint);
      return origin === location.origin ? "" : host;
    } catch {
      return "";
    }
  }

  /** The route that is shown. */
  get route(): Guidance | null {
    return this.plan?.kind === "route" ? (this.plan.routes[this.ui.routeIndex] ?? this.plan.routes[0] ?? null) : null;
  }

  /** Returns a text in the language of the page, see `Texts.text`. */
  t(key: string, values: Readonly<Record<string, string | number>> = {}): string {
    return this.texts.text(key, values);
  }

  changeUi(members: Partial<Ui>): void {
    this.ui = { ...this.ui, ...members };
    this.changed();
  }

  /** Adds a handler that is called once after several changes. */
  on(handler: () => void): void {
    this.#handlers.add(handler);
  }

  /** Says that something has changed. */
  changed(): void {
    if (this.#isScheduled) return;
    this.#isScheduled = true;
    queueMicrotask(() => {
      this.#isScheduled = false;
      for (const handler of this.#handlers) handler();
    });
  }

  /** Returns the nearest places that can be destinations from the start of the route, or from a place. */
  nearest(from?: string | null): Nearest[] {
    const { venue } = this.shown ?? {};
    if (!venue) return [];
    const place = from ? venue.placeNamed(from) : undefined;
    return venue.nearest({ language: this.texts.language, closed: this.closed, ...(place ? { place } : {}) });
  }

  /** Returns the choice that a stop such as "nearest:toilet" means. */
  nearestAt(stop: string): Nearest | undefined {
    if (!stop.startsWith("nearest:") || !this.shown) return undefined;
    const key = stop.slice("nearest:".length);
    const offered = this.nearest();
    const known = offered.find((each) => each.key === key) ?? offered.find(({ kind }) => kind === key);
    if (known) return known;
    const group = this.shown.catalog.groups.find(({ kind }) => kind === key);
    if (group) return { key, title: group.name, label: group.name, kind: key, places: group.places };
    const category = this.shown.venue.categories.find((each) => each.id === key);
    if (!category) return undefined;
    return this.shown.venue.nearestTyped(category.name, this.texts.language).find((each) => each.key === key);
  }

  /** Returns the name of a stop for users. */
  nameOf(stop: string): string {
    const nearest = this.nearestAt(stop);
    if (nearest) return nearest.title;
    if (stop === this.kiosk?.here) return this.t("page.kiosk.here");
    if (stop.startsWith("@")) return this.t("route.here");
    const place = this.shown?.places.get(stop);
    return place?.name ?? this.shown?.venue.placeNamed(stop)?.name ?? stop;
  }
}
