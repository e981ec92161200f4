// The map behind the panels: follows the state of the page, and tells it what the user does on the map.

import type { Floor } from "orivanta";

import type { App } from "./app.js";
import { h } from "./dom.js";

/** The map, or a text in its place while there is none. */
export class MapHost {
  readonly element = h("div", { class: "map" });
  readonly #app: App;

  constructor(app: App) {
    this.#app = app;
  }

  /** The floor that is shown. */
  get floor(): Floor | null {
    const { venue } = this.#app.shown ?? {};
    if (!venue) return null;
    const { floor } = this.#app.store.state;
    return venue.floors.find((each) => each.id === floor) ?? venue.floors[0] ?? null;
  }

  update(): void {}
}
