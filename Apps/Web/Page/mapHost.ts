// The map behind the panels: follows the state of the page, and tells it what the user does on the map.

import { OrivantaError, type CameraPose, type Floor, type Guidance, type MapTap, type Marker, type MapView, type Venue, type VisitorPosition } from "orivanta";

import { choosePlace, closeSearch } from "./actions.js";
import type { App } from "./app.js";
import { h } from "./dom.js";
import { positionOf, showFirstView } from "./here.js";
import { insetsOf } from "./insets.js";
import { MapVeil } from "./mapVeil.js";
import { shownRoute } from "./Panels/route.js";
import { ShownFloor } from "./shownFloor.js";

const contextPause = 5_000; // milliseconds until lost graphics are reported

/** The map, or a text in its place while there is none. */
export class MapHost {
  readonly element = h("div", { class: "map" });
  /** The map; null while none is loaded. */
  view: MapView | null = null;

  readonly #app: App;
  readonly #veil: MapVeil;
  #venue: Venue | null = null;
  // What the map shows already.
  #floor: ShownFloor | null = null;
  #place: string | null = null;
  #route: Guidance | null = null;
  #step: number | null = null;
  #look = "";
  #hereMarker: Marker | null = null;
  #insets = "";
  /** The last view of the map, for when the same venue is loaded again. */
  #last: { slug: string; floor: string; camera: CameraPose; hadRoute: boolean } | null = null;
  #keepsView = false; // while what is shown again appears

  constructor(app: App) {
    this.#app = app;
    this.#veil = new MapVeil(app, () => this.#showAgain());
    this.element.append(this.#veil.element);
  }

  /** The floor that is shown. */
  get floor(): Floor | null {
    if (this.#floor) return this.#floor.floor;
    const { floor } = this.#app.store.state;
    return this.#venue?.floors.find((each) => each.id === floor) ?? null;
  }

  /** Begins to show the venue of the page, unless it is shown. */
  showVenue(): void {
    const venue = this.#app.shown?.venue ?? null;
    if (venue === this.#venue) return;
    this.#forget();
    this.#venue = venue;
    if (venue) void this.#show();
  }

  /** Follows the state. */
  update(): void {
    this.showVenue();
    this.#veil.update();
    if (this.view) this.#follow(this.view);
  }

  /** Follows the sizes of these elements, which cover the map. */
  watch(...panels: readonly Element[]): void {
    const observer = new ResizeObserver(() => this.#changeInsets());
    for (const panel of [this.element, ...panels]) observer.observe(panel);
  }

  /** Shows the map as at the beginning. */
  showStart(): void {
    const here = this.#here();
    if (here) this.#floor?.show(here.floor);
    if (this.view) showFirstView(this.view, here);
  }

  // The text is in the language of the page.
  #markHere(view: MapView): void {
    const here = this.#here();
    this.#hereMarker?.remove();
    this.#hereMarker = here && view.addMarker({ ...here, text: this.#app.t("page.kiosk.here") });
  }

  #here(): VisitorPosition | null {
    const stop = this.#app.kiosk?.here ?? null;
    return stop === null || !this.#venue ? null : positionOf(this.#venue, stop);
  }

  #forget(): void {
    // After a fatal stop, nothing can be called.
    if (this.view && this.#app.orivanta) {
      const { camera } = this.view;
      this.#last = { slug: this.#venue!.slug, floor: this.#floor!.floor.id, camera, hadRoute: this.#route !== null };
      this.view.destroy();
    }
    this.view = null;
    this.#floor = null;
    this.#place = null;
    this.#route = null;
    this.#step = null;
    this.#look = "";
    this.#hereMarker = null;
    this.#insets = "";
  }

  #showAgain(): void {
    this.#forget();
    void this.#show();
  }

  async #show(): Promise<void> {
    const venue = this.#venue!;
    const here = this.#here();
    const last = this.#last?.slug === venue.slug ? this.#last : null;
    const id = last?.floor ?? this.#app.store.state.floor;
    const floor = venue.floors.find((each) => each.id === id) ?? here?.floor;
    this.#veil.begin();
    try {
      const view = await venue.show(this.element, { ...this.#wantedLook(), attribution: false, ...(floor ? { floor } : {}) });
      if (venue !== this.#venue) return;
      this.view = view;
      this.#floor = new ShownFloor(this.#app, venue, view, floor, () => this.#floorChanged(view));
      this.#listen(view);
      this.#veil.end();
      this.#changeInsets();
      if (last) view.camera = last.camera;
      else showFirstView(view, here);
      this.#keepsView = last !== null;
      this.#follow(view, true);
      this.#keepsView = this.#app.plan?.kind === "planning" && (last?.hadRoute ?? false);
      this.#app.changed();
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

  #floorChanged(view: MapView): void {
    const { store, ui } = this.#app;
    this.#nameCanvas(view);
    if (document.activeElement === view.canvas) this.#app.announce(this.#floorName()); // changed by a key
    if (this.#route && ui.step === null && store.state.place === null) view.fit(this.#route);
    this.#app.changed();
  }

  #floorName(): string {
    const { name = "", shortName = "" } = this.floor ?? {};
    return name || shortName;
  }

  #nameCanvas(view: MapView): void {
    view.canvas.setAttribute("aria-label", `${this.#app.t("page.map")}: ${this.#floorName()}`);
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

  #wantedLook() {
    const { settings, texts } = this.#app;
    const { textSize, highContrast } = settings.choices;
    const rootSize = parseFloat(getComputedStyle(document.documentElement).fontSize) / 16;
    return {
      theme: settings.isDark ? "dark" : "light",
      language: texts.language,
      textSize: Math.min(4, Math.max(textSize, rootSize)),
      highContrast,
    } as const;
  }

  #follow(view: MapView, isFirst = false): void {
    const { store, closed, ui } = this.#app;
    const look = JSON.stringify([this.#wantedLook(), closed]);
    if (look !== this.#look) {
      this.#look = look;
      view.setLook(this.#wantedLook());
      this.#markHere(view);
      view.setClosures(closed);
      this.#nameCanvas(view);
    }
    this.#changeInsets();
    if (view.stacked !== ui.isStacked) view.stacked = ui.isStacked;
    this.#floor?.follow();
    this.#followPlace(view, store.state.place, isFirst);
    this.#followRoute(view, isFirst);
  }

  #followPlace(view: MapView, id: string | null, isFirst: boolean): void {
    if (id === this.#place) return;
    this.#place = id;
    const place = id === null ? null : (this.#venue!.placeNamed(id) ?? null);
    view.select(place);
    if (!place) return;
    if (this.#app.ui.isStacked) this.#app.changeUi({ isStacked: false });
    if (!this.#keepsView) view.fit(place, { animated: !isFirst });
  }

  #followRoute(view: MapView, isFirst: boolean): void {
    const { ui } = this.#app;
    const route = shownRoute(this.#app);
    const isNew = route !== this.#route;
    if (isNew) {
      this.#route = route;
      view.showRoute(route);
      if (route && ui.step === null && !this.#keepsView) this.#showRouteStart(view, route, isFirst);
      this.#keepsView = false;
    }
    const step = route ? ui.step : null;
    if (step === this.#step && !(isNew && step !== null)) return;
    this.#step = step;
    if (step === null) view.position = null;
    if (!route) return;
    if (step !== null) view.showStep(step);
    view.showProgress(step === null ? null : (route.steps[step]?.node ?? null));
    if (step === null && !isNew) view.fit(route);
  }

  #showRouteStart(view: MapView, route: Guidance, isFirst: boolean): void {
    const start = route.nodes[0]?.floor;
    if (start) this.#floor?.show(start);
    view.fit(route, { animated: !isFirst });
  }

  #changeInsets(): void {
    if (!this.view) return;
    const { insets, covered } = insetsOf(this.element);
    const key = JSON.stringify([insets, covered]);
    if (key === this.#insets) return;
    this.#insets = key;
    this.view.insets = insets;
    this.view.setCovered(covered);
  }
}
