// What is shown in place of the map while its first floor is loaded, or if it cannot be shown.

import type { App } from "./app.js";
import { h } from "./dom.js";

/** The veil over the map. */
export class MapVeil {
  readonly element = h("div", { class: "veil" });
  readonly #app: App;
  readonly #retry: () => void;
  #problem: string | null | undefined; // undefined if there is none, null if the browser cannot show maps

  constructor(app: App, retry: () => void) {
    this.#app = app;
    this.#retry = retry;
    this.element.hidden = true;
  }

  begin(): void {
    this.#problem = undefined;
    this.element.hidden = false;
    this.element.replaceChildren(h("progress", { "aria-label": this.#app.t("page.loading") }));
  }

  end(): void {
    this.element.hidden = true;
    this.element.replaceChildren();
  }

  /** Says why there is no map. */
  fail(problem: string | null): void {
    this.#problem = problem;
    this.element.hidden = false;
    this.#app.announce(this.#text());
    this.update();
  }

  /** Follows the language. */
  update(): void {
    if (this.#problem === undefined) return;
    const retry = h("button", { class: "filled", onclick: this.#retry }, this.#app.t("retry"));
    this.element.replaceChildren(h("p", {}, this.#text()), ...(this.#problem === null ? [] : [retry]));
  }

  #text(): string {
    if (this.#problem === null) return this.#app.t("page.map.missing");
    return `${this.#app.t("problem.floors")}: ${this.#problem}`;
  }
}
