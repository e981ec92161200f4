// The frame of the page: the bar, the search, the panel, the map with its buttons, and the line for screen readers.

import { closeSearch, openSearch } from "./actions.js";
import type { App } from "./app.js";
import { h, setAttribute } from "./dom.js";
import { FloorSwitch } from "./floorSwitch.js";
import { icon, type IconName } from "./icons.js";
import { KindSprite } from "./kindIcon.js";
import { whenLoaded } from "./loaded.js";
import type { MapHost } from "./mapHost.js";
import { standing } from "./notices.js";
import { Panel } from "./panel.js";
import { SearchField } from "./searchField.js";
import type { Session } from "./session.js";
import { startUi } from "./ui.js";

const announcePause = 100; // milliseconds; screen readers miss what is said during a change

/** Makes the elements of the page and keeps them current. */
export class Shell {
  readonly element: HTMLElement;
  readonly #app: App;
  readonly #search: SearchField;
  readonly #panel: Panel;
  readonly #floors: FloorSwitch;
  readonly #map: MapHost;
  readonly #status = h("p", { role: "status", class: "visually-hidden" });
  readonly #name = h("bdi");
  readonly #host = h("p", { class: "host", dir: "ltr" });
  readonly #title = h("div", { class: "bar-texts" }, h("h1", { class: "bar-title" }, this.#name), this.#host);
  readonly #skip = h("a", { class: "skip", href: "#search" });
  // One line, or all of it after a click.
  readonly #attributionText = h("summary", { dir: "auto" });
  readonly #attribution = h("details", { class: "attribution" }, this.#attributionText);
  readonly #labeled: (readonly [HTMLElement, key: string])[] = [];
  readonly #venues: HTMLElement;
  readonly #mapButtons: HTMLElement;
  readonly #area: HTMLElement;
  readonly #stacked: HTMLElement;

  constructor(app: App, session: Session, map: MapHost) {
    this.#app = app;
    this.#map = map;
    this.#search = new SearchField(app);
    this.#panel = new Panel(app, this.#search, session);
    this.#floors = new FloorSwitch(app, () => map.floor);
    this.#venues = this.#button("back", "venues.back", () => app.store.change({ venue: null, floor: null, place: null, from: null, to: null, via: [] }));
    this.#stacked = this.#button("layers", "page.stacked", () => app.changeUi({ isStacked: !app.ui.isStacked }));
    this.#mapButtons = h(
      "div",
      { class: "map-buttons", role: "group" },
      this.#stacked,
      this.#button("fit", "page.fit", () => map.fit()),
      this.#button("plus", "page.zoomIn", () => map.zoomBy(1.5)),
      this.#button("minus", "page.zoomOut", () => map.zoomBy(1 / 1.5)),
    );
    const bar = h(
      "header",
      { class: "bar" },
      this.#venues,
      this.#title,
      this.#button("settings", "page.settings", () => this.#openDialog("showSettings")),
      // Kiosks have no keys.
      ...(app.kiosk ? [] : [this.#button("help", "help", () => this.#openDialog("showHelp"))]),
    );
    const column = h("main", { class: "column" }, bar, standing, this.#search.element, this.#panel.element);
    const side = h("div", { class: "side" }, this.#floors.element, this.#mapButtons);
    this.#area = h("section", { class: "area" }, map.element, side, this.#attribution);
    this.element = h("div", { class: "frame" }, this.#skip, column, this.#area, this.#status, new KindSprite(app).element);
    map.watch(this.#panel.element, standing, this.#search.element, this.#floors.element);
    const sizes = new ResizeObserver(() => {
      const { offsetTop, offsetHeight } = this.#search.element;
      const { style } = document.documentElement; // where notices find them as well
      style.setProperty("--head-height", `${offsetTop + offsetHeight}px`);
      style.setProperty("--panel-height", `${this.#panel.element.offsetHeight}px`);
    });
    for (const each of [bar, standing, this.#search.element, this.#panel.element]) sizes.observe(each);
    addEventListener("keydown", (event) => this.#pressed(event));
    app.on(() => this.update());
    app.store.on(({ venue }, { former }) => {
      if (venue === former.venue) return;
      this.#search.forget();
      app.ui = startUi;
    });
    let timer = 0;
    app.announce = (text) => {
      clearTimeout(timer);
      this.#status.textContent = "";
      timer = window.setTimeout(() => (this.#status.textContent = text), announcePause);
    };
  }

  update(): void {
    const { texts, shown, venues, ui, failure } = this.#app;
    const root = document.documentElement;
    root.lang = texts.language;
    root.dir = texts.isRightToLeft ? "rtl" : "ltr";
    const name = shown?.venue.name ?? "";
    document.title = name || this.#app.t("page.title");
    this.#name.textContent = name || this.#app.t("page.title");
    this.#host.textContent = this.#app.foreignHost;
    this.#area.setAttribute("aria-label", this.#app.t("page.map"));
    this.#skip.textContent = this.#app.t("page.skip");
    for (const [element, key] of this.#labeled) {
      element.setAttribute("aria-label", this.#app.t(key));
      element.title = this.#app.t(key);
    }
    this.#mapButtons.style.visibility = this.#map.view ? "" : "hidden"; // with a size, which tells what it covers
    this.#mapButtons.setAttribute("aria-label", this.#app.t("page.map.view"));
    this.#stacked.setAttribute("aria-pressed", String(ui.isStacked));
    this.#stacked.hidden = (shown?.venue.floors.length ?? 0) < 2;
    this.#venues.hidden = !shown || (venues?.length ?? 0) < 2 || !!this.#app.kiosk?.venue;
    const hasVenue = shown !== null && !failure;
    setAttribute(this.element, "data-view", hasVenue ? "map" : "start");
    setAttribute(this.element, "data-searching", hasVenue && ui.isSearching);
    this.#search.element.hidden = !hasVenue;
    this.#skip.hidden = !hasVenue;
    this.#attributionText.textContent = shown?.venue.attribution ?? "";
    this.#map.showVenue(); // first, since it has files to fetch
    this.#search.update();
    this.#panel.update();
    this.#floors.update();
    this.#map.update();
  }

  #button(name: IconName, key: string, action: () => void): HTMLElement {
    const element = h("button", { class: "plain", type: "button", onclick: action }, icon(name));
    this.#labeled.push([element, key]);
    return element;
  }

  #pressed(event: KeyboardEvent): void {
    const app = this.#app;
    if (document.querySelector("dialog[open]") || event.defaultPrevented) return;
    const isInColumn = event.target instanceof Element && event.target.closest(".column") !== null; // where these keys scroll
    if (event.key === "Escape") return this.#escape();
    if (event.key === "f" && event.ctrlKey) {
      if (!app.shown) return;
      event.preventDefault();
      openSearch(app, null);
      this.#search.focus();
    } else if (event.key === "F1") {
      event.preventDefault();
      if (!app.kiosk) this.#openDialog("showHelp");
    } else if ((event.key === "PageUp" || event.key === "PageDown") && !isInColumn) {
      this.#changeFloor(event.key === "PageUp" ? 1 : -1);
    }
  }

  #openDialog(name: "showSettings" | "showHelp"): void {
    whenLoaded(this.#app, (later) => later[name](this.#app));
  }

  #escape(): void {
    const app = this.#app;
    if (app.ui.isSearching) closeSearch(app);
    else if (app.store.state.place !== null) app.store.change({ place: null });
    else if (app.ui.step !== null) app.changeUi({ step: null });
  }

  #changeFloor(up: number): void {
    const floors = [...(this.#app.shown?.venue.floors ?? [])].sort((a, b) => a.elevation - b.elevation);
    const current = this.#map.floor;
    const next = current ? floors[floors.indexOf(current) + up] : undefined;
    if (next) this.#app.store.change({ floor: next.id });
  }
}
