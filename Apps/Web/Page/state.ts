// What the page shows, as far as links and the browser's history keep it.

import type { ProfileName } from "orivanta";

/**
 * The state of the page. Places and floors are identifiers of the venue. A stop of a route is the identifier of
 * a place or node, a position ("@FLOOR,X,Y"), or the nearest place of a kind ("nearest:toilet"; see `Nearest.key`).
 */
export interface State {
  /** The slug of the venue; null shows the list of venues. */
  readonly venue: string | null;
  /** The floor that the map shows; null is the one that the map chooses. */
  readonly floor: string | null;
  /** The place whose card is shown. */
  readonly place: string | null;
  readonly from: string | null;
  readonly to: string | null;
  readonly via: readonly string[];
  readonly profile: ProfileName;
}

/** The state without a link. */
export const startState: State = Object.freeze({
  venue: null,
  floor: null,
  place: null,
  from: null,
  to: null,
  via: Object.freeze([]),
  profile: "fastest",
});

/** A change of the state. */
export interface StateChange {
  readonly former: State;
  /** Whether it came from `applyState`: a link or the browser's history, which know it already. */
  readonly isApplied: boolean;
  /** Whether the user can go back to the state before. */
  readonly isNewView: boolean;
}

type Handler = (state: State, change: StateChange) => void;

/** Holds the state and tells who depends on it. */
export class StateStore {
  /** Completes each state before it becomes the current one. */
  rule: (state: State) => State = (state) => state;

  #state: State = startState;
  readonly #handlers = new Set<Handler>();

  get state(): State {
    return this.#state;
  }

  /** Changes members of the state. The handlers are called once, if anything has changed. */
  change(members: Partial<State>, { isNewView = true } = {}): void {
    this.#set({ ...this.#state, ...members }, { isApplied: false, isNewView });
  }

  /** Replaces the state; missing members are those of `startState`. */
  applyState(state: Partial<State>): void {
    this.#set({ ...startState, ...state }, { isApplied: true, isNewView: false });
  }

  /** Adds a handler. Returns a function that removes it. */
  on(handler: Handler): () => void {
    this.#handlers.add(handler);
    return () => void this.#handlers.delete(handler);
  }

  #set(incomplete: State, kind: Omit<StateChange, "former">): void {
    const state = this.rule(incomplete);
    const former = this.#state;
    const isEqual = (Object.keys(state) as (keyof State)[]).every(
      (name) => String(state[name]) === String(former[name]) && (state[name] === null) === (former[name] === null),
    );
    if (isEqual) return;
    this.#state = Object.freeze(state);
    for (const handler of [...this.#handlers]) handler(state, { former, ...kind });
  }
}
