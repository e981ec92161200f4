// The height of the panel on small screens: a handle that is dragged, tapped or moved with arrow keys.

import type { App } from "./app.js";
import { h } from "./dom.js";
import type { Ui } from "./ui.js";

const heights = ["low", "half", "full"] as const;
const leastDrag = 8; // CSS pixels; less is a tap

export class Sheet {
  readonly handle: HTMLElement;
  readonly #app: App;
  #startY: number | null = null;
  #startHeight = 0;
  #hasMoved = false;

  constructor(app: App) {
    this.#app = app;
    this.handle = h("div", {
      class: "handle",
      role: "slider",
      tabindex: 0,
      "aria-orientation": "vertical",
      "aria-valuemin": 0,
      "aria-valuemax": heights.length - 1,
      onkeydown: (event) => this.#pressed(event),
      onpointerdown: (event) => this.#begin(event),
      onpointermove: (event) => this.#drag(event),
      onpointerup: () => this.#end(),
      onpointercancel: () => this.#end(),
    });
  }

  update(): void {
    const index = heights.indexOf(this.#app.ui.sheet);
    this.handle.setAttribute("aria-label", this.#app.t("page.sheet"));
    this.handle.setAttribute("aria-valuenow", String(index));
    this.handle.setAttribute("aria-valuetext", `${index + 1}/${heights.length}`);
  }

  #panel(): HTMLElement {
    return this.handle.parentElement!;
  }

  #set(sheet: Ui["sheet"]): void {
    this.#app.changeUi({ sheet });
  }

  #step(by: number): void {
    const index = heights.indexOf(this.#app.ui.sheet) + by;
    this.#set(heights[Math.max(0, Math.min(index, heights.length - 1))]!);
  }

  #pressed(event: KeyboardEvent): void {
    const steps: Record<string, number> = { ArrowUp: 1, ArrowDown: -1, Home: -2, End: 2 };
    const by = steps[event.key];
    if (by === undefined) return;
    event.preventDefault();
    this.#step(by);
  }

  #begin(event: PointerEvent): void {
    if (event.button !== 0) return;
    this.handle.setPointerCapture(event.pointerId);
    this.#startY = event.clientY;
    this.#startHeight = this.#panel().getBoundingClientRect().height;
    this.#hasMoved = false;
  }

  #drag(event: PointerEvent): void {
    if (this.#startY === null) return;
    const moved = this.#startY - event.clientY;
    if (!this.#hasMoved && Math.abs(moved) < leastDrag) return;
    this.#hasMoved = true;
    this.#panel().style.setProperty("--dragged", `${Math.max(0, this.#startHeight + moved)}px`);
    this.#panel().classList.add("is-dragged");
  }

  // Chooses the height that is closest to where the sheet was dragged.
  #end(): void {
    if (this.#startY === null) return;
    this.#startY = null;
    const panel = this.#panel();
    if (!this.#hasMoved) return this.#set(this.#app.ui.sheet === "full" ? "half" : this.#app.ui.sheet === "half" ? "full" : "half");
    const dragged = panel.getBoundingClientRect().height / innerHeight;
    panel.classList.remove("is-dragged");
    panel.style.removeProperty("--dragged");
    this.#set(dragged < 0.27 ? "low" : dragged < 0.66 ? "half" : "full");
  }
}
