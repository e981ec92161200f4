// Keeps the state in the address of the page: ?venue=…&floor=…&place=…&from=…&to=…&via=…&profile=…

import { startState, type State, type StateStore } from "./state.js";

const names = ["venue", "floor", "place", "from", "to", "profile"] as const;

/** Returns the state that an address names. */
export function stateOf(address: string): Partial<State> {
  const query = new URL(address).searchParams;
  const members = names.flatMap((name) => (query.get(name) ? [[name, query.get(name)]] : []));
  return { ...(Object.fromEntries(members) as Partial<State>), via: query.getAll("via") };
}

/** Returns the address of a state. Parameters that are none of the state's are kept. */
export function addressOf(state: State, current: string): string {
  const url = new URL(current);
  for (const name of names) {
    if (state[name] === startState[name]) url.searchParams.delete(name);
    else url.searchParams.set(name, state[name]!);
  }
  url.searchParams.delete("via");
  for (const stop of state.via) url.searchParams.append("via", stop);
  return url.href;
}

/** Applies the address to the state, now and when the user goes back, and writes changes of the state to it. */
export function startLinks(store: StateStore): void {
  store.applyState(stateOf(location.href));
  addEventListener("popstate", () => store.applyState(stateOf(location.href)));
  store.on((state, { former, isApplied }) => {
    if (isApplied) return;
    const isNewView = state.venue !== former.venue || state.place !== former.place || state.to !== former.to;
    history[isNewView ? "pushState" : "replaceState"](null, "", addressOf(state, location.href));
  });
}
