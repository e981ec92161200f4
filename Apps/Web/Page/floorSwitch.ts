// The switch between floors, from top to bottom, with dots at the floors of the route.

import type { Floor } from "orivanta";

import type { App } from "./app.js";
import { floorName } from "./floorName.js";
import { h, keepingFocus } from "./dom.js";

/** The element of the switch. */
export class FloorSwitch {
  readonly element = h("div", { class: "floors", role: "group" });
  readonly #app: App;
  readonly #current: () => Floor | null;
  #shown = "";

  /** `current` returns the floor that the map shows. */
  constructor(app: App, current: () => Floor | null) {
    this.#app = app;
    this.#current = current;
    new ResizeObserver(() => this.#showCurrent()).observe(this.element);
  }

  update(): void {
    const app = this.#app;
    const floors = [...(app.shown?.venue.floors ?? [])].sort((a, b) => b.elevation - a.elevation);
    const current = this.#current();
    const onRoute = new Set(app.route?.nodes.map((node) => node.floor));
    this.element.hidden = floors.length < 2;
    const key = JSON.stringify([app.texts.language, current?.id, floors.map((floor) => [floor.id, onRoute.has(floor)])]);
    if (key === this.#shown) return;
    this.#shown = key;
    this.element.setAttribute("aria-label", app.t("page.floors"));
    keepingFocus(this.element, () => this.element.replaceChildren(...floors.map((floor, index) => this.#button(floor, floor === current, onRoute.has(floor), floors.length - index))));
    this.#showCurrent();
  }

  // The floors scroll where there is no room for all of them.
  #showCurrent(): void {
    this.element.querySelector("[aria-pressed=true]")?.scrollIntoView({ block: "nearest" });
  }

  // The number, from below, is that of a floor without a name.
  #button(floor: Floor, isCurrent: boolean, isOnRoute: boolean, number: number): HTMLElement {
    const name = floorName(floor) || String(number);
    return h(
      "button",
      {
        class: isOnRoute ? "floor is-on-route" : "floor",
        title: name,
        "aria-label": isOnRoute ? this.#app.t("page.floor.route", { floor: name }) : name,
        "aria-pressed": String(isCurrent),
        "data-key": floor.id,
        onclick: () => this.#app.store.change({ floor: floor.id }),
      },
      h("bdi", {}, floor.shortName || name),
    );
  }
}
