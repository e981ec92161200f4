// The panel: a column beside the map, or on small screens a sheet over it. Shows one page at a time.

import type { App } from "./app.js";
import { h, keepingFocus } from "./dom.js";
import { browsePage } from "./Panels/browse.js";
import { cardPage } from "./Panels/card.js";
import { routePage } from "./Panels/route.js";
import { failurePage, loadingPage, venuesPage } from "./Panels/venues.js";
import { walkPage } from "./Panels/walk.js";
import { recentPlaces } from "./recent.js";
import type { SearchField } from "./searchField.js";
import type { Session } from "./session.js";
import { Sheet } from "./sheet.js";

const renewalPause = 10_000; // milliseconds between looks at the clock

type PageName = "loading" | "failure" | "venues" | "results" | "browse" | "card" | "walk" | "route";

/** They are opened from the others, to which the user comes back. */
const detailPages: readonly PageName[] = ["card", "walk"];

/** The element of the panel, and what it shows. */
export class Panel {
  readonly element: HTMLElement;
  readonly sheet: Sheet;
  readonly #app: App;
  readonly #search: SearchField;
  readonly #session: Session;
  readonly #content = h("div", { class: "panel-content", tabindex: -1 });
  #page: PageName = "loading";
  #shown = ""; // what the content was made of
  #view = ""; // what the user takes for one page
  #spot = ""; // the view and the route it belongs to
  #behind = { spot: "", top: 0, place: "" }; // the page behind a detail page, how far it was scrolled, and what was chosen
  #isPrinting = false;
  #venue: object | null = null;

  constructor(app: App, search: SearchField, session: Session) {
    this.#app = app;
    this.#search = search;
    this.#session = session;
    this.sheet = new Sheet(app);
    this.element = h("section", { class: "panel" }, this.sheet.handle, this.#content);
    // Opening hours and arrival times change while nobody touches the page.
    const renew = () => document.hidden || this.update();
    setInterval(renew, renewalPause);
    document.addEventListener("visibilitychange", renew);
    for (const type of ["beforeprint", "afterprint"]) {
      addEventListener(type, () => {
        this.#isPrinting = type === "beforeprint";
        this.update();
      });
    }
  }

  update(): void {
    const app = this.#app;
    const page = this.#choose();
    const { state } = app.store;
    this.sheet.update();
    this.element.dataset["page"] = page;
    this.#content.tabIndex = page === "results" ? 0 : -1; // results take no focus, but the keyboard scrolls them
    this.element.dataset["sheet"] = app.ui.sheet;
    const venue = app.shown?.venue ?? null;
    const key = this.#keyOf(page);
    if (key === this.#shown && venue === this.#venue) return;
    const { browsing } = app.ui;
    const view = JSON.stringify([page, state.place, page === "browse" && [browsing.page, "kind" in browsing && browsing.kind]]);
    const isNew = view !== this.#view;
    const former = this.#page;
    const wasDetail = detailPages.includes(former);
    const isDetail = detailPages.includes(page);
    // Reading or setting the position makes the browser lay out the page at once.
    const isScrollable = former !== "loading";
    const scrollTop = isScrollable ? this.#content.scrollTop : 0;
    if (isDetail && !wasDetail) this.#behind = { spot: this.#spot, top: scrollTop, place: state.place ?? "" };
    this.#spot = JSON.stringify([view, state.from, state.to]);
    this.#shown = key;
    this.#venue = venue;
    this.#view = view;
    this.#page = page;
    const isBack = wasDetail && !isDetail && this.#spot === this.#behind.spot;
    const top = isBack ? this.#behind.top : isNew ? 0 : scrollTop;
    const hadFocus = this.#content.contains(document.activeElement);
    const isOpen = !isNew && this.#content.querySelector("details[open]") !== null;
    keepingFocus(this.#content, () => this.#content.replaceChildren(...this.#make(page)));
    if (isOpen) this.#content.querySelector("details")?.setAttribute("open", "");
    if (isScrollable) this.#content.scrollTop = top;
    if (isNew || hadFocus) this.#moveFocus(former, page, hadFocus, isBack ? this.#behind.place : "");
  }

  /** Returns what a page is made of. If it stays the same, the elements stay as well. */
  #keyOf(page: PageName): string {
    const app = this.#app;
    const { place, from, to, via, profile } = app.store.state;
    const progress = page === "loading" ? [app.loading, app.loadedShare] : null;
    const minute = page === "card" || page === "route" ? Math.floor(Date.now() / 60_000) : null;
    const results = page === "results" ? this.#search.searches : null;
    const recent = page === "browse" ? recentPlaces(app) : null;
    const { ui, failure, venues, plan, shown, closed, texts } = app;
    const stops = [place, from, to, via, profile, closed];
    const data = [texts.language, failure, venues?.length, plan?.kind, shown?.venue.slug];
    return JSON.stringify([page, stops, data, { ...ui, sheet: null }, progress, minute, results, recent]);
  }

  #choose(): PageName {
    const { failure, loading, shown, ui, store } = this.#app;
    if (failure) return "failure";
    if (!shown) return loading !== null || !this.#app.venues ? "loading" : "venues";
    if (ui.isSearching) return ui.typed.trim() ? "results" : "browse";
    if (store.state.place !== null && shown.venue.placeNamed(store.state.place)) return "card";
    if (store.state.from === null && store.state.to === null) return "browse";
    // On paper, all instructions stand together.
    return ui.step !== null && this.#app.route?.steps[ui.step] && !this.#isPrinting ? "walk" : "route";
  }

  #make(page: PageName): Node[] {
    const app = this.#app;
    switch (page) {
      case "loading":
        return loadingPage(app);
      case "failure":
        return failurePage(app, app.failure!, this.#session);
      case "venues":
        return venuesPage(app);
      case "results":
        return this.#search.results();
      case "browse":
        return browsePage(app);
      case "card":
        return cardPage(app, app.store.state.place!) ?? [];
      case "walk":
        return walkPage(app, app.route!, app.ui.step!);
      case "route":
        return routePage(app);
    }
  }

  // A control that is gone leaves the focus to what was chosen on this page before, or to its title, so that the keyboard
  // goes on there.
  #moveFocus(former: PageName, page: PageName, hadFocus: boolean, chosen: string): void {
    const isFirst = former === "loading" && page !== "failure" && !hadFocus;
    if (isFirst || page === "results" || (page === "loading" && !hadFocus)) return;
    const active = document.activeElement;
    if (active !== null && active !== document.body && active !== this.#content) return;
    const find = (selector: string) => this.#content.querySelector<HTMLElement>(selector);
    const target = find(`[data-key="${CSS.escape(chosen)}"]`) ?? find("[data-key$=title]") ?? this.#content;
    target.focus({ preventScroll: true });
  }
}
