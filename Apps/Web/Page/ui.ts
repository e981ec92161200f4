// What the page shows besides `State`: not in links, not in the browser's history.

/** What the panel shows for browsing. */
export type Browsing =
  | { readonly page: "start"; readonly showsAllKinds: boolean }
  | { readonly page: "group"; readonly kind: string }
  | { readonly page: "all" };

/** The state of the controls. */
export interface Ui {
  /** The typed text. */
  readonly typed: string;
  /** Whether the search is open: the panel shows places to choose from. */
  readonly isSearching: boolean;
  /** The end of the route for which the user searches a place; null shows the card of a chosen place. */
  readonly choosing: "from" | "to" | null;
  readonly browsing: Browsing;
  /** The index of the shown route: 0 is the best one, others are alternatives. */
  readonly routeIndex: number;
  /** The instruction that is shown alone while the user walks along the route. */
  readonly step: number | null;
  /** Whether all floors are shown above each other. */
  readonly isStacked: boolean;
  /** The height of the sheet on small screens. */
  readonly sheet: "low" | "half" | "full";
}

export const startBrowsing: Browsing = { page: "start", showsAllKinds: false };

export const startUi: Ui = {
  typed: "",
  isSearching: false,
  choosing: null,
  browsing: startBrowsing,
  routeIndex: 0,
  step: null,
  isStacked: false,
  sheet: "half",
};
