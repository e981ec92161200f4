// What the user can do with places and routes.

import type { Guidance, Nearest } from "orivanta";

import type { App } from "./app.js";
import { startBrowsing } from "./ui.js";

/** An end of a route. */
export type End = "from" | "to";

/** Opens the search, for an end of the route or for a card. */
export function openSearch(app: App, choosing: End | null): void {
  app.changeUi({ isSearching: true, choosing, typed: "", browsing: startBrowsing, sheet: "full" });
}

export function closeSearch(app: App): void {
  app.changeUi({ isSearching: false, choosing: null, typed: "", browsing: startBrowsing, sheet: "half" });
}

/** Chooses a place of a list or of the map: as the end that the user searches, as the missing end, or for its card. */
export function choosePlace(app: App, place: string): void {
  const { choosing, browsing } = app.ui;
  const { from, to } = app.store.state;
  const missing = (from === null) !== (to === null) ? (from === null ? "from" : "to") : null;
  closeSearch(app);
  const end = choosing ?? (app.store.state.place === null ? missing : null);
  if (end) return setEnd(app, end, place);
  app.changeUi({ browsing }); // the list is shown again after the card
  app.store.change({ place });
}

/** Makes a stop one end of the route. A stop in between at the same place is removed. */
export function setEnd(app: App, end: End, stop: string): void {
  const { state } = app.store;
  const other = end === "from" ? "to" : "from";
  app.changeUi({ routeIndex: 0, step: null, browsing: startBrowsing, sheet: "half" });
  app.store.change({
    [end]: stop,
    ...(state[other] === stop ? { [other]: null } : {}),
    via: state.via.filter((each) => each !== stop),
    place: null,
  });
}

/** Makes the nearest of several places the destination, from the start of the route or from the selected place. */
export function goToNearest(app: App, choice: Nearest): void {
  const { from, place } = app.store.state;
  closeSearch(app);
  app.changeUi({ routeIndex: 0, step: null });
  app.store.change({ from: from ?? place, to: `nearest:${choice.key}`, via: [], place: null });
}

/** Whether a place can become a stop in between. */
export function canAddStop(app: App, place: string): boolean {
  const { from, to, via } = app.store.state;
  return from !== null && to !== null && from !== place && to !== place && !via.includes(place);
}

export function addStop(app: App, place: string): void {
  app.changeUi({ routeIndex: 0, step: null });
  app.store.change({ via: [...app.store.state.via, place], place: null });
}

export function removeStop(app: App, index: number): void {
  app.changeUi({ routeIndex: 0, step: null });
  app.store.change({ via: app.store.state.via.filter((_, each) => each !== index) });
}

/** Exchanges the ends. `found` replaces a destination that is the nearest of several places. */
export function swapEnds(app: App, found: string | null): void {
  const { from, to, via } = app.store.state;
  app.changeUi({ routeIndex: 0, step: null });
  const start = to?.startsWith("nearest:") ? found : to;
  app.store.change({ from: start, to: from, via: [...via].reverse() });
}

/** Shows an instruction of the route alone, and reads it. The title of its page gets the focus, which only counts. */
export function showStep(app: App, route: Guidance, step: number): void {
  app.changeUi({ step, sheet: app.ui.step === null ? "half" : app.ui.sheet });
  app.announce(route.steps[step]!.text);
}

export function endRoute(app: App): void {
  app.changeUi({ routeIndex: 0, step: null });
  app.store.change({ from: null, to: null, via: [] });
}
