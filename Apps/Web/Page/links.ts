// Keeps the state in the address of the page (?venue=…&floor=…&place=…&from=…&to=…&via=…&profile=…), and what a
// visitor can go back from in the history of the browser.

import type { App } from "./app.js";
import { startState, type State } from "./state.js";
import { startUi, type Ui } from "./ui.js";

const names = ["venue", "floor", "place", "from", "to", "profile"] as const;
const profiles: readonly string[] = ["fastest", "step-free", "prefer-lift", "no-escalator"];

// What no address of the page needs, but a broken or malicious one may have.
const longestText = 200;
const mostStops = 8;

const isUsable = (text: string | null): text is string => text !== null && text !== "" && text.length <= longestText;

/** Returns the state that an address names. Members that the address does not have, or not validly, are missing. */
export function stateOf(address: string): Partial<State> {
  const query = new URL(address).searchParams;
  const members = names.flatMap((name) => {
    const value = query.get(name);
    return isUsable(value) && (name !== "profile" || profiles.includes(value)) ? [[name, value]] : [];
  });
  const via = query.getAll("via").filter(isUsable).slice(0, mostStops);
  return { ...(Object.fromEntries(members) as Partial<State>), via };
}

/** Returns the address of a state. Parameters that are none of the state's are kept. */
export function addressOf(state: State, current: string): string {
  const url = new URL(current);
  const query = url.searchParams;
  for (const name of names) {
    if (state[name] === startState[name]) query.delete(name);
    else query.set(name, state[name]!);
  }
  query.delete("via");
  for (const stop of state.via) query.append("via", stop);
  // A query may contain these as they are, which is shorter in QR codes and easier to read.
  url.search = query.toString().replace(/%(40|2C|3A|2F)/g, decodeURIComponent);
  return url.href;
}

/** What a visitor takes for a page of its own and closes with the browser's button "Back", and what belongs to it. */
const layers = ["typed", "isSearching", "choosing", "browsing", "routeIndex", "step", "sheet"] as const;
type Layers = Pick<Ui, (typeof layers)[number]>;

const layersOf = (ui: Ui): Layers => Object.fromEntries(layers.map((name) => [name, ui[name]])) as Layers;

/** Returns how many of the layers are open. */
const heightOf = ({ isSearching, browsing, step }: Layers): number =>
  Number(isSearching) + Number(browsing.page !== "start") + Number(step !== null);

/** What an entry of the history knows besides the address. */
interface Entry {
  readonly layers: Layers;
  /** How many entries before it have the same address and fewer open layers. */
  readonly depth: number;
}

/**
 * Applies the address to the state, now and when the user goes back, and writes changes of the state to it. The search,
 * lists of places and single instructions get entries of the history as well, without an address of their own. Without
 * `keepsHistory`, the user cannot go back.
 */
export function startLinks(app: App, keepsHistory: boolean): void {
  const { store } = app;
  let isClosing = false; // the page goes back by itself, since a layer was closed
  let isNew = false; // the entry: what opens together with a view needs no entry of its own
  const entry = (): Entry => {
    const kept = history.state as Partial<Entry> | null; // maybe of another version of the page
    return { layers: kept?.layers ?? layersOf(startUi), depth: kept?.depth ?? 0 };
  };
  const write = (way: "pushState" | "replaceState", depth: number) => {
    const written: Entry = { layers: layersOf(app.ui), depth };
    history[way](written, "", addressOf(store.state, location.href));
  };
  const writeAddress = () => history.replaceState(history.state, "", addressOf(store.state, location.href));
  store.applyState(stateOf(location.href));
  app.changeUi(entry().layers); // those before a reload
  addEventListener("popstate", () => {
    if (isClosing) {
      isClosing = false;
      writeAddress();
      return keepLayers();
    }
    store.applyState(stateOf(location.href)); // first: another venue begins without layers
    app.changeUi(entry().layers);
  });
  store.on((state, { former, isApplied, isNewView }) => {
    if (isApplied) return;
    const isOther = (["venue", "place", "to"] as const).some((name) => state[name] !== former[name]);
    if (isOther && isNewView && keepsHistory) {
      write("pushState", 0);
      isNew = true;
    } else {
      writeAddress();
    }
  });
  const keepLayers = () => {
    if (!keepsHistory || isClosing) return;
    const { layers: known, depth } = entry();
    const opened = heightOf(app.ui) - heightOf(known);
    if (opened > 0 && !isNew) {
      write("pushState", depth + 1);
    } else if (opened < 0 && depth > 0) {
      isClosing = true;
      history.go(Math.max(opened, -depth));
    } else if (JSON.stringify(layersOf(app.ui)) !== JSON.stringify(known)) {
      write("replaceState", depth);
    }
    isNew = false;
  };
  app.on(keepLayers);
}
