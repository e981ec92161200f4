// A kiosk: a device that stands somewhere in the venue, for visitors who come and go.

import type { Venue } from "orivanta";

import type { App } from "../app.js";
import type { Connection } from "../offline.js";
import { h } from "../dom.js";
import { positionOf } from "../here.js";
import { showNotice, type Notice } from "../notices.js";
import { forgetPlaces } from "../recent.js";
import { showCode } from "../Share/code.js";
import { startState, type State } from "../state.js";
import { languages } from "../texts.js";
import { startUi } from "../ui.js";
import { guardPage } from "./guards.js";
import { IdleTimer } from "./idle.js";
import type { KioskOptions } from "./options.js";

/** What a kiosk needs of the page. */
export interface KioskHost {
  readonly app: App;
  readonly connection: Connection;
  /** Loads the data again; it may have changed since the last visitor. */
  readonly reload: () => Promise<void>;
  /** Shows the map as at the beginning. */
  readonly showStart: () => void;
}

const oldestData = 15 * 60_000;
const renewalPause = 60_000; // milliseconds between looks at the age of the data while nobody is there
const failurePause = 10_000; // milliseconds that a failure is shown before the page is loaded again

/** Makes the page a kiosk. */
export function startKiosk({ app, connection, reload, showStart }: KioskHost, options: KioskOptions): void {
  const root = document.documentElement;
  root.dataset["kiosk"] = "";
  void navigator.storage?.persist?.();
  guardPage((address) => showCode(app, address));

  const start: State = { ...startState, venue: app.store.state.venue };
  const { choices } = app.settings;
  let loadedAt = Date.now();
  let notice: Notice | null = null;
  const endNotice = () => {
    notice?.remove();
    notice = null;
  };
  const timer = new IdleTimer(options.idle, {
    counting: (count, isSaid) => {
      if (isAtStart(app, start)) return; // only the map was moved
      const text = app.t("page.kiosk.idle", { count });
      const action = { label: app.t("page.kiosk.stay"), run: () => timer.touch() };
      if (notice) notice.setText(text, !isSaid);
      else notice = showNotice(text, { action });
    },
    stayed: endNotice,
    ended: () => {
      endNotice();
      for (const dialog of document.querySelectorAll("dialog")) dialog.close();
      app.settings.change(choices);
      app.ui = startUi;
      app.store.change({ ...start, venue: start.venue ?? app.store.state.venue });
      showStart();
      forgetPlaces(app);
      renew();
    },
  });
  const renew = () => {
    if (connection.isPageOutdated) return location.reload();
    if (Date.now() - loadedAt < oldestData) return;
    loadedAt = Date.now();
    void connection.lookForUpdate();
    void reload();
  };
  setInterval(() => timer.isRunning || renew(), renewalPause);
  app.on(() => isAtStart(app, start) || timer.run());
  recoverFromFailures(app);
  if (options.here !== null) reportUnknown(options.here, app);
  addLanguages(app);
}

// Nobody is there to press the button that loads the page again.
function recoverFromFailures(app: App): void {
  let isLoading = false;
  app.on(() => {
    if (app.failure?.way !== "reload" || isLoading) return;
    isLoading = true;
    setTimeout(() => location.reload(), failurePause);
  });
}

// The floor belongs to the view of the map, and without a venue in the address, the server's only one is shown.
function isAtStart(app: App, start: State): boolean {
  const { store, ui } = app;
  const current: State = { ...store.state, floor: start.floor, venue: start.venue && store.state.venue };
  const isEqual = (Object.keys(start) as (keyof State)[]).every((name) => String(current[name]) === String(start[name]));
  const isOpen = ui.isSearching || document.querySelector("dialog[open]") !== null;
  return isEqual && !isOpen && JSON.stringify(ui.browsing) === JSON.stringify(startUi.browsing);
}

// An operator sees a mistake in the address at once, before a visitor asks for a route.
function reportUnknown(here: string, app: App): void {
  let checked: Venue | null = null;
  app.on(() => {
    const venue = app.shown?.venue ?? null;
    if (venue === checked) return;
    checked = venue;
    if (venue && !positionOf(venue, here)) showNotice(app.t("problem.unknownPlace.place", { place: here }), { isStanding: true });
  });
}

// Buttons for the languages, each in its own language.
function addLanguages(app: App): void {
  const buttons = languages.map(({ tag, name }) => {
    const choose = () => app.settings.change({ language: tag });
    return h("button", { type: "button", lang: tag, "data-language": tag, onclick: choose }, name);
  });
  const bar = h("nav", { class: "kiosk-languages" }, ...buttons);
  document.querySelector(".column")!.append(bar);
  const update = () => {
    bar.setAttribute("aria-label", app.t("page.language"));
    for (const button of buttons)
      button.setAttribute("aria-pressed", String(button.dataset["language"] === app.texts.language));
  };
  app.on(update);
  update();
}
