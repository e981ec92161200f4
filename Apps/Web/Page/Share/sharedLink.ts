// The link to what the page shows, for another device.

import { deviceParameters } from "../Kiosk/options.js";
import { addressOf } from "../links.js";
import type { State } from "../state.js";

const isLocal = (host: string) => /^(localhost|127\.\d+\.\d+\.\d+|\[::1\])$/.test(host);

/**
 * Returns the link to a state. The page's parameter "link" is the public address of the page, for a device that
 * reads the page from a private one.
 */
export function sharedLink(state: State, current: string): string {
  const from = new URL(current);
  const public_ = from.searchParams.get("link");
  const isRoute = state.from !== null && state.to !== null; // which is shown from its first floor on
  const link = new URL(addressOf(isRoute ? { ...state, floor: null } : state, current));
  for (const name of deviceParameters) link.searchParams.delete(name);
  if (!public_) return link.href;
  const result = new URL(public_, current);
  for (const [name, value] of link.searchParams) result.searchParams.append(name, value);
  return result.href;
}

/** Whether other devices can open a link. */
export function isReachable(link: string): boolean {
  return !isLocal(new URL(link).hostname);
}
