// The floor that the map shows. It follows the state, and the state follows it.

import type { Floor, MapView, Venue } from "orivanta";

import type { App } from "./app.js";
import { floorName } from "./floorName.js";
import { showNotice } from "./notices.js";

/** Keeps the floor of a map and that of the state the same. */
export class ShownFloor {
  /** The floor that is shown. */
  floor: Floor;
  readonly #app: App;
  readonly #venue: Venue;
  readonly #view: MapView;
  /** The last floor that the map was told to show, which it does as soon as the floor is loaded. */
  #requested: Floor;
  /** The floor of the state that was followed last. The state does not name a floor that is shown for a route. */
  #followed: string | null;
  readonly #lost = new Map<Floor, "failed" | "withoutModel">();

  /** `first` is the floor that the map was told to show first. `changed` is called when another floor is shown. */
  constructor(app: App, venue: Venue, view: MapView, first: Floor | undefined, changed: () => void) {
    this.#app = app;
    this.#venue = venue;
    this.#view = view;
    this.floor = this.#requested = view.floor;
    this.#followed = first?.id ?? null;
    if (first && first !== this.floor) this.#refuse(first, "failed");
    view.on("floor", (floor) => {
      this.floor = this.#requested = floor;
      this.#followed = floor.id;
      app.store.change({ floor: floor.id });
      changed();
    });
    view.on("load", ({ floor, state }) => {
      if (state !== "failed" && state !== "withoutModel") return void this.#lost.delete(floor);
      this.#lost.set(floor, state);
      if (floor === this.#requested && floor !== this.floor) this.#refuse(floor, state);
    });
  }

  /** Shows the floor of the state, if it is another one than before. */
  follow(): void {
    const id = this.#app.store.state.floor;
    if (id === this.#followed) return;
    this.#followed = id;
    const wanted = this.#venue.floors.find((each) => each.id === id);
    if (!wanted || wanted === this.#requested) return;
    const lost = this.#lost.get(wanted);
    if (lost === "withoutModel") return this.#refuse(wanted, lost);
    this.#requested = wanted;
    if (lost) this.#view.reload();
    this.#view.floor = wanted;
  }

  /** Shows a floor at once, if it is loaded. */
  show(floor: Floor): void {
    this.#requested = floor;
    this.#view.floor = floor;
  }

  #refuse(floor: Floor, state: "failed" | "withoutModel"): void {
    const app = this.#app;
    const key = state === "failed" ? "note.floor" : "note.model";
    showNotice(app.t(key, { floor: floorName(floor) }), { seconds: 8 });
    this.#requested = this.floor;
    if (app.store.state.floor === floor.id) app.store.change({ floor: this.floor.id });
    this.#lost.set(floor, state);
  }
}
