// Keeps the state in the address of the page: ?venue=…&floor=…&place=…&from=…&to=…&via=…&profile=…

import { startState, type State, type StateStore } from "./state.js";

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

/**
 * Applies the address to the state, now and when the user goes back, and writes changes of the state to it. Without
 * `keepsHistory`, the user cannot go back. `wentBack` is called when the user goes back or forward.
 */
export function startLinks(store: StateStore, keepsHistory: boolean, wentBack: () => void): void {
  store.applyState(stateOf(location.href));
  addEventListener("popstate", () => {
    wentBack();
    store.applyState(stateOf(location.href));
  });
  store.on((state, { former, isApplied, isNewView }) => {
    if (isApplied) return;
    const isOther = (["venue", "place", "to"] as const).some((name) => state[name] !== former[name]);
    const way = isOther && isNewView && keepsHistory ? "pushState" : "replaceState";
    history[way](null, "", addressOf(state, location.href));
  });
}
