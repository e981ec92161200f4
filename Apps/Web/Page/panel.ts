// The panel: a column beside the map, or on small screens a sheet over it. Shows one page at a time.

import type { App } from "./app.js";
import { h, keepingFocus } from "./dom.js";
import { browsePage } from "./Panels/browse.js";
import { cardPage } from "./Panels/card.js";
import { routePage, shownRoute } from "./Panels/route.js";
import { failurePage, loadingPage, venuesPage } from "./Panels/venues.js";
import { walkPage } from "./Panels/walk.js";
import type { SearchField } from "./searchField.js";
import type { Session } from "./session.js";
import { Sheet } from "./sheet.js";

type PageName = "loading" | "failure" | "venues" | "results" | "browse" | "card" | "walk" | "route";

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

  constructor(app: App, search: SearchField, session: Session) {
    this.#app = app;
    this.#search = search;
    this.#session = session;
    this.sheet = new Sheet(app);
    this.element = h("section", { class: "panel" }, this.sheet.handle, this.#content);
  }

  update(): void {
    const app = this.#app;
    const page = this.#choose();
    const { state } = app.store;
    this.sheet.update();
    this.element.dataset["page"] = page;
    this.element.dataset["sheet"] = app.ui.sheet;
    const key = JSON.stringify([page, state.place, state.from, state.to, state.via, state.profile, app.closed, app.texts.language, { ...app.ui, sheet: null }, app.loading, app.loadedShare, app.failure, app.venues?.length, app.plan?.kind, app.shown?.venue.slug]);
    if (key === this.#shown && page !== "failure") return;
    const isNew = page !== this.#page || this.#placeOf(this.#shown) !== state.place;
    this.#shown = key;
    const former = this.#page;
    this.#page = page;
    const top = this.#content.scrollTop;
    keepingFocus(this.#content, () => this.#content.replaceChildren(...this.#make(page)));
    this.#content.scrollTop = isNew ? 0 : top;
    if (isNew) this.#moveFocus(former, page);
  }

  #placeOf(key: string): string | null {
    return key ? ((JSON.parse(key) as [string, string | null])[1] ?? null) : null;
  }

  #choose(): PageName {
    const { failure, loading, shown, ui, store } = this.#app;
    if (failure) return "failure";
    if (!shown) return loading !== null || !this.#app.venues ? "loading" : "venues";
    if (ui.isSearching) return ui.typed.trim() ? "results" : "browse";
    if (store.state.place !== null && shown.venue.placeNamed(store.state.place)) return "card";
    if (store.state.from === null && store.state.to === null) return "browse";
    return ui.step !== null && shownRoute(this.#app)?.steps[ui.step] ? "walk" : "route";
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
        return walkPage(app, shownRoute(app)!, app.ui.step!);
      case "route":
        return routePage(app);
    }
  }

  // A control that is gone leaves the focus to the title of the new page, so that the keyboard goes on there.
  #moveFocus(former: PageName, page: PageName): void {
    if (former === "loading" || page === "results" || page === "loading") return;
    const active = document.activeElement;
    if (active !== null && active !== document.body) return;
    const title = this.#content.querySelector<HTMLElement>("[data-key$=title]") ?? this.#content;
    title.focus({ preventScroll: true });
  }
}
