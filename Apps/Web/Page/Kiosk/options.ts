// The parameters of a kiosk: ?kiosk=1&here=PLACE&idle=SECONDS&link=URL

import type { State } from "../state.js";

/** How a kiosk is set up. */
export interface KioskOptions {
  /** Where the kiosk stands: a place, a node or "@FLOOR,X,Y". */
  readonly here: string | null;
  /** The only venue that is shown; null if visitors choose one. */
  readonly venue: string | null;
  /** After how many seconds without a touch the start view comes back. */
  readonly idle: number;
}

/** The parameters that belong to a device and not to what it shows. Links that are shared do not have them. */
export const deviceParameters: readonly string[] = ["kiosk", "here", "idle", "link", "language", "theme", "text", "contrast"];

/** Returns the options that an address has, or null if it is not that of a kiosk. */
export function kioskOptionsOf(query: URLSearchParams): KioskOptions | null {
  if (!["1", "true", ""].includes(query.get("kiosk") ?? "0")) return null;
  const idle = Number(query.get("idle") ?? 60);
  return { here: query.get("here") || null, venue: query.get("venue"), idle: idle >= 5 && idle <= 3600 ? idle : 60 };
}

/** Returns the rule that a route without a start begins at the kiosk. */
export function startsHere({ here }: KioskOptions): (state: State) => State {
  return (state) => (state.to !== null && state.from === null && state.to !== here ? { ...state, from: here } : state);
}
