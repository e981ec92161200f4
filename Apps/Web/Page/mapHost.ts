// The map behind the panels: the map of the venue, or a text in its place, and what visitors do on the map.

import { OrivantaError, type Floor, type MapTap, type MapView, type Venue } from "orivanta";

import { choosePlace, closeSearch } from "./actions.js";
import type { App } from "./app.js";
import { h } from "./dom.js";
import { Framing } from "./framing.js";
import { MapVeil } from "./mapVeil.js";
import { kioskPosition, ShownMap, wantedLook } from "./shownMap.js";

const contextPause = 5_000; // milliseconds until lost graphics are reported

/** The map, or a text in its place while there is none. */
export class MapHost {
  readonly element = h("div", { class: "map" });

  readonly #app: App;
  readonly #veil: MapVeil;
  readonly #framing = new Framing();
  #venue: Venue | null = null;
  #shown: ShownMap | null = null;

  constructor(app: App) {
    this.#app = app;
    this.#veil = new MapVeil(app, () => this.#showAgain());
    this.element.append(this.#veil.element);
  }

  /** The map; null while none is loaded. */
  get view(): MapView | null {
    return this.#shown?.view ?? null;
  }

  /** The floor that is shown. */
  get floor(): Floor | null {
    if (this.#shown) return this.#shown.floor;
    const { floor } = this.#app.store.state;
    return this.#venue?.floors.find((each) => each.id === floor) ?? null;
  }

  /** Begins to show the venue of the page, unless it is shown. */
  showVenue(): void {
    const venue = this.#app.shown?.venue ?? null;
    if (venue === this.#venue) return;
    this.#forget();
    this.#venue = venue;
    if (venue) void this.#show(venue);
  }

  /** Follows the state. */
  update(): void {
    this.showVenue();
    this.#veil.update();
    this.#shown?.update();
  }

  /** Follows the sizes of these elements, which cover the map. */
  watch(...panels: readonly Element[]): void {
    const observer = new ResizeObserver((changes) => {
      this.#shown?.changeInsets();
      if (changes.some(({ target }) => target === this.element)) this.#framing.resized();
    });
    for (const panel of [this.element, ...panels]) observer.observe(panel);
  }

  /** Shows the map as at the beginning. */
  showStart(): void {
    this.#shown?.showStart();
  }

  /** Shows the whole floor. */
  fit(): void {
    this.#framing.show((motion) => this.view?.fit(undefined, motion));
  }

  /** Zooms in, or out if the factor is below 1. */
  zoomBy(factor: number): void {
    this.#framing.moved();
    this.view?.zoomBy(factor);
  }

  #forget(): void {
    // After a fatal stop, nothing can be called.
    if (this.#shown && this.#app.orivanta) {
      this.#framing.former = this.#shown.formerView;
      this.#shown.view.destroy();
    }
    this.#shown = null;
  }

  #showAgain(): void {
    this.#forget();
    if (this.#venue) void this.#show(this.#venue);
  }

  async #show(venue: Venue): Promise<void> {
    const app = this.#app;
    const former = this.#framing.former?.slug === venue.slug ? this.#framing.former : null;
    const id = former?.floor ?? app.store.state.floor;
    const floor = venue.floors.find((each) => each.id === id) ?? kioskPosition(app, venue)?.floor;
    this.#veil.begin();
    try {
      const view = await venue.show(this.element, { ...wantedLook(app), attribution: false, ...(floor ? { floor } : {}) });
      if (venue !== this.#venue) return;
      this.#listen(view);
      this.#veil.end();
      this.#shown = new ShownMap(app, { venue, view, floor, area: this.element, framing: this.#framing, former });
      app.changed();
    } catch (error) {
      if (venue !== this.#venue) return;
      this.#veil.fail(error instanceof OrivantaError && error.kind === "unsupported" ? null : String((error as Error).message));
    }
  }

  #listen(view: MapView): void {
    view.on("tap", (tap) => this.#tapped(tap));
    view.on("problem", ({ kind, text }) => {
      if (kind === "context") this.#contextLost(view, text);
    });
    view.canvas.addEventListener("webglcontextrestored", () => this.#veil.end());
  }

  // The browser usually gives the graphics back soon.
  #contextLost(view: MapView, text: string): void {
    this.#veil.begin();
    setTimeout(() => {
      if (view !== this.view || this.#veil.element.hidden) return;
      this.#veil.fail(text);
    }, contextPause);
  }

  #tapped({ place }: MapTap): void {
    const app = this.#app;
    if (place) return choosePlace(app, place.id);
    if (app.ui.isSearching) closeSearch(app);
    else if (app.store.state.place !== null) app.store.change({ place: null });
  }
}
