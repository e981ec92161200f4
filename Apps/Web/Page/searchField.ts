// The search field: a combobox whose list the panel shows.

import type { FoundPlace, Nearest } from "orivanta";

import { choosePlace, closeSearch, goToNearest, openSearch } from "./actions.js";
import type { App } from "./app.js";
import { h, setAttribute } from "./dom.js";
import { icon } from "./icons.js";
import { rowContent } from "./Panels/rows.js";
import { startBrowsing } from "./ui.js";

const listId = "search-results";
const searchPause = 60; // milliseconds after the last letter

/** A line of the results. */
type Found = { readonly place: FoundPlace } | { readonly nearest: Nearest };

/** The field and its results. */
export class SearchField {
  readonly element: HTMLElement;
  readonly input: HTMLInputElement;
  readonly #app: App;
  readonly #clear: HTMLButtonElement;
  #found: readonly Found[] = [];
  #venue: object | null = null; // what the results were found in
  #language = "";
  #searched = ""; // the text that the results belong to
  #marked = -1;
  #timer = 0;
  #wasSearching = false;

  constructor(app: App) {
    this.#app = app;
    this.input = h("input", {
      class: "search-input",
      id: "search",
      type: "search",
      role: "combobox",
      autocomplete: "off",
      autocapitalize: "off",
      spellcheck: "false",
      enterkeyhint: "search",
      "aria-autocomplete": "list",
      "aria-expanded": "false",
      oninput: () => this.#typed(),
      onclick: () => this.#open(),
      onkeydown: (event) => this.#pressed(event),
    });
    this.#clear = h("button", { class: "plain", type: "button", onclick: () => this.#close() }, icon("close"));
    this.element = h("div", { class: "search", role: "search" }, icon("search"), this.input, this.#clear);
  }

  /** How often places have been searched. */
  searches = 0;

  /** Follows the state of the page. */
  update(): void {
    this.#searchAgain();
    const { t, ui } = { t: this.#app.t.bind(this.#app), ui: this.#app.ui };
    const key = ui.choosing === "from" ? "search.start" : ui.choosing === "to" ? "search.destination" : "search";
    this.input.placeholder = t(key);
    this.input.setAttribute("aria-label", t(key));
    this.#clear.setAttribute("aria-label", ui.typed ? t("page.clear") : t("page.close"));
    this.#clear.hidden = !ui.isSearching;
    if (this.input.value !== ui.typed && !this.#timer) this.input.value = ui.typed;
    // A finger would also open the keyboard of the screen, which covers the places to choose from.
    if (ui.isSearching && !this.#wasSearching && !matchMedia("(pointer: coarse)").matches) this.focus();
    this.#wasSearching = ui.isSearching;
    const isExpanded = ui.isSearching && ui.typed !== "" && this.#found.length > 0;
    this.input.setAttribute("aria-expanded", String(isExpanded));
    setAttribute(this.input, "aria-controls", isExpanded && listId);
    this.#showMark();
  }

  /** Gives the field the focus. */
  focus(): void {
    this.input.focus();
  }

  /** Returns the results of the typed text. */
  results(): Node[] {
    const app = this.#app;
    if (this.#found.length === 0) return [h("p", { class: "nothing" }, app.t("search.nothing"))];
    const options = this.#found.map((found, index) => this.#option(found, index));
    return [h("div", { id: listId, role: "listbox", class: "rows", "aria-label": app.t("search") }, ...options)];
  }

  #option(found: Found, index: number): HTMLElement {
    const app = this.#app;
    const content =
      "place" in found
        ? rowContent(app, app.shown!.places.get(found.place.place.id) ?? placeOf(found.place), found.place.category)
        : rowContent(app, { id: "", kind: found.nearest.kind, name: found.nearest.title, floors: "" }, app.t("nearest.detail"));
    return h(
      "div",
      {
        role: "option",
        id: `result-${index}`,
        class: "row",
        "aria-selected": String(index === this.#marked),
        onclick: () => this.#choose(index),
        onpointermove: () => this.#mark(index, false),
      },
      ...content,
    );
  }

  #typed(): void {
    clearTimeout(this.#timer);
    this.#timer = window.setTimeout(() => this.#search(), this.#found.length === 0 ? 0 : searchPause);
  }

  #search(): void {
    clearTimeout(this.#timer);
    this.#timer = 0;
    const app = this.#app;
    const typed = this.input.value;
    if (typed !== this.#searched) {
      this.#searched = typed;
      this.#lookFor(typed);
      if (typed.trim()) {
        const count = this.#found.length;
        app.announce(count > 0 ? app.t("page.results", { count }) : app.t("search.nothing"));
      }
    }
    app.changeUi({ typed, isSearching: true, browsing: startBrowsing, sheet: "full" });
  }

  #lookFor(typed: string): void {
    this.#found = typed.trim() && this.#app.shown ? this.#find(typed) : [];
    this.#marked = this.#found.length > 0 ? 0 : -1;
    this.searches += 1;
  }

  // Another venue starts with an empty field, another language or newer data with new results. The text comes back
  // when the user goes back.
  #searchAgain(): void {
    const { shown, texts, ui } = this.#app;
    const venue = shown?.venue ?? null;
    const hasText = !ui.typed || ui.typed === this.#searched || this.#timer !== 0;
    if (venue === this.#venue && texts.language === this.#language && hasText) return;
    this.#venue = venue;
    this.#language = texts.language;
    if (!hasText) this.#searched = ui.typed;
    if (this.#searched) this.#lookFor(this.#searched);
  }

  #open(): void {
    if (!this.#app.ui.isSearching) openSearch(this.#app, null);
  }

  #find(typed: string): Found[] {
    const { venue } = this.#app.shown!;
    const nearest = this.#app.ui.choosing === "from" ? [] : venue.nearestTyped(typed, this.#app.texts.language);
    const offered = nearest.length > 0 ? this.#app.nearest() : []; // whose names are in the language of the page
    const named = nearest.map((each) => offered.find(({ key }) => key === each.key) ?? each);
    return [...named.map((each) => ({ nearest: each })), ...venue.search(typed).map((place) => ({ place }))];
  }

  #pressed(event: KeyboardEvent): void {
    if (event.isComposing) return;
    if (event.key === "ArrowDown" && !this.#app.ui.isSearching) {
      event.preventDefault();
      this.#open();
    } else if (event.key === "ArrowDown" || event.key === "ArrowUp") {
      if (this.#timer) this.#search();
      if (this.#found.length === 0) return;
      event.preventDefault();
      const { length } = this.#found;
      this.#mark((this.#marked + (event.key === "ArrowDown" ? 1 : -1) + length) % length, true);
    } else if (event.key === "Enter") {
      event.preventDefault();
      if (this.#timer) this.#search();
      if (this.#marked >= 0) this.#choose(this.#marked);
    } else if (event.key === "Escape" && this.#app.ui.isSearching) {
      event.preventDefault();
      event.stopPropagation();
      if (this.input.value) this.#empty();
      else this.#close();
    }
  }

  #mark(index: number, scrolls: boolean): void {
    if (index === this.#marked) return;
    this.#marked = index;
    this.#showMark();
    if (scrolls) document.getElementById(`result-${index}`)?.scrollIntoView({ block: "nearest" });
  }

  #showMark(): void {
    const isShown = this.#app.ui.isSearching && this.#app.ui.typed !== "" && this.#marked >= 0;
    setAttribute(this.input, "aria-activedescendant", isShown && `result-${this.#marked}`);
    for (const option of document.querySelectorAll(`#${listId} [role=option]`)) {
      option.setAttribute("aria-selected", String(option.id === `result-${this.#marked}`));
    }
  }

  #choose(index: number): void {
    const found = this.#found[index];
    if (!found) return;
    this.forget();
    this.input.blur();
    if ("place" in found) choosePlace(this.#app, found.place.place.id);
    else goToNearest(this.#app, found.nearest);
  }

  #empty(): void {
    this.forget();
    this.#app.changeUi({ typed: "" });
    this.focus();
  }

  #close(): void {
    if (this.#app.ui.typed) return this.#empty();
    this.forget();
    this.input.blur();
    closeSearch(this.#app);
  }

  /** Empties the field. */
  forget(): void {
    clearTimeout(this.#timer);
    this.#timer = 0;
    this.input.value = "";
    this.#searched = "";
    this.#found = [];
    this.#marked = -1;
  }
}

function placeOf({ place, name, kind, category, floors }: FoundPlace) {
  return { id: place.id, name, kind, category, floors: floors.map((floor) => floor.shortName).join(", ") };
}
