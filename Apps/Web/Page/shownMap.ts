// A map that is shown: follows the state of the page.

import type { Floor, Guidance, MapView, Marker, Venue, VisitorPosition } from "orivanta";

import type { App } from "./app.js";
import { floorName } from "./floorName.js";
import type { FormerView, Framing } from "./framing.js";
import { positionOf, showFirstView } from "./here.js";
import { insetsOf } from "./insets.js";
import { ShownFloor } from "./shownFloor.js";

/** Returns how the visitor wants the map to look. */
export function wantedLook({ settings, texts }: App) {
  const { textSize, highContrast } = settings.choices;
  const rootSize = parseFloat(getComputedStyle(document.documentElement).fontSize) / 16;
  return {
    theme: settings.isDark ? "dark" : "light",
    language: texts.language,
    textSize: Math.min(4, Math.max(textSize, rootSize)),
    highContrast,
  } as const;
}

/** Returns where a kiosk stands in a venue; null if the page is none, or the venue does not have the place. */
export function kioskPosition({ kiosk }: App, venue: Venue): VisitorPosition | null {
  return kiosk?.here ? positionOf(venue, kiosk.here) : null;
}

/** What a map is made for. */
export interface MapStart {
  readonly venue: Venue;
  readonly view: MapView;
  /** The floor that the map was told to show first. */
  readonly floor: Floor | undefined;
  /** The element of the map, which panels cover. */
  readonly area: Element;
  readonly framing: Framing;
  /** What was shown before the map was made again. */
  readonly former: FormerView | null;
}

export class ShownMap {
  readonly view: MapView;
  readonly #app: App;
  readonly #venue: Venue;
  readonly #area: Element;
  readonly #framing: Framing;
  readonly #floor: ShownFloor;
  // What the map shows already.
  #place: string | null = null;
  #route: Guidance | null = null;
  #step: number | null = null;
  #look = "";
  #hereMarker: Marker | null = null;
  #insets = "";

  constructor(app: App, { venue, view, floor, area, framing, former }: MapStart) {
    this.#app = app;
    this.#venue = venue;
    this.view = view;
    this.#area = area;
    this.#framing = framing;
    this.#floor = new ShownFloor(app, venue, view, floor, () => this.#floorChanged());
    this.changeInsets();
    framing.begin(view);
    if (former) view.camera = former.camera;
    else this.#showFirstView();
    framing.isKept = former !== null;
    this.#follow({ animated: false });
    framing.isKept = app.plan?.kind === "planning" && (former?.hadRoute ?? false);
  }

  /** The floor that is shown. */
  get floor(): Floor {
    return this.#floor.floor;
  }

  /** What to show again in another map of the venue. */
  get formerView(): FormerView {
    const { camera } = this.view;
    return { slug: this.#venue.slug, floor: this.floor.id, camera, hadRoute: this.#route !== null };
  }

  /** Follows the state. */
  update(): void {
    this.#follow({ animated: true });
  }

  /** Shows the map as at the beginning. */
  showStart(): void {
    const here = kioskPosition(this.#app, this.#venue);
    if (here) this.#floor.show(here.floor);
    this.#showFirstView();
  }

  /** Follows the sizes of the panels. */
  changeInsets(): void {
    const { insets, covered } = insetsOf(this.#area);
    const key = JSON.stringify([insets, covered]);
    if (key === this.#insets) return;
    this.#insets = key;
    this.view.insets = insets;
    this.view.setCovered(covered);
  }

  #showFirstView(): void {
    this.#framing.show(() => showFirstView(this.view, kioskPosition(this.#app, this.#venue)));
  }

  #floorChanged(): void {
    const { store, ui } = this.#app;
    this.#nameCanvas();
    if (document.activeElement === this.view.canvas) this.#app.announce(floorName(this.floor)); // changed by a key
    if (this.#route && ui.step === null && store.state.place === null) this.#fitRoute(this.#route);
    this.#app.changed();
  }

  #follow(motion: { animated: boolean }): void {
    const { store, ui } = this.#app;
    this.#followLook();
    this.changeInsets();
    if (this.view.stacked !== ui.isStacked) this.view.stacked = ui.isStacked;
    this.#floor.follow();
    const { place, from, to } = store.state;
    this.#followPlace(place ?? (from === null || to === null || from === to ? (to ?? from) : null), motion);
    this.#followRoute(motion);
  }

  // What depends on the language as well.
  #followLook(): void {
    const { closed } = this.#app;
    const wanted = wantedLook(this.#app);
    const look = JSON.stringify([wanted, closed]);
    if (look === this.#look) return;
    this.#look = look;
    this.view.setLook(wanted);
    this.view.setClosures(closed);
    this.#hereMarker?.remove();
    const here = kioskPosition(this.#app, this.#venue);
    this.#hereMarker = here && this.view.addMarker({ ...here, text: this.#app.t("page.kiosk.here") });
    this.#nameCanvas();
  }

  #nameCanvas(): void {
    this.view.canvas.setAttribute("aria-label", `${this.#app.t("page.map")}: ${floorName(this.floor)}`);
  }

  #followPlace(id: string | null, motion: { animated: boolean }): void {
    if (id === this.#place) return;
    this.#place = id;
    const place = id === null ? null : (this.#venue.placeNamed(id) ?? null);
    this.view.select(place);
    if (!place) return;
    if (this.#app.ui.isStacked) this.#app.changeUi({ isStacked: false });
    this.#framing.show((each) => this.view.fit(place, each), motion);
  }

  #followRoute(motion: { animated: boolean }): void {
    const { ui } = this.#app;
    const route = this.#app.route;
    const isNew = route !== this.#route;
    if (isNew) {
      this.#route = route;
      const isFromHere = this.#app.store.state.from === this.#app.kiosk?.here;
      this.view.showRoute(route, isFromHere ? { from: null } : {}); // the marker has a text
      if (route && ui.step === null && !this.#framing.isKept) this.#showRouteStart(route, motion);
      this.#framing.isKept = false;
    }
    const step = route ? ui.step : null;
    if (step === this.#step && !(isNew && step !== null)) return;
    this.#step = step;
    if (step === null) this.view.position = null;
    if (!route) return;
    if (step !== null) this.#framing.show((each) => this.view.showStep(step, each));
    this.view.showProgress(step === null ? null : (route.steps[step]?.node ?? null));
    if (step === null && !isNew) this.#fitRoute(route);
  }

  #showRouteStart(route: Guidance, motion: { animated: boolean }): void {
    const start = route.nodes[0]?.floor;
    if (start) this.#floor.show(start);
    this.#fitRoute(route, motion);
  }

  #fitRoute(route: Guidance, motion = { animated: true }): void {
    this.#framing.show((each) => this.view.fit(route, each), motion);
  }
}
