// The link to what the page shows, for another device.

import { deviceParameters, kioskOptionsOf } from "../Kiosk/options.js";
import { addressOf } from "../links.js";
import type { State } from "../state.js";

const isLocal = (host: string) => /^(localhost|127\.\d+\.\d+\.\d+|\[::1\])$/.test(host);

/**
 * Returns the link to a state. The parameter "link" of a kiosk is the public address of the page, for a device that
 * reads the page from a private one. It is ignored if it is no address of a web page.
 */
export function sharedLink(state: State, current: string): string {
  const from = new URL(current);
  const public_ = kioskOptionsOf(from.searchParams) && webAddress(from.searchParams.get("link") ?? "", current);
  const isRoute = state.from !== null && state.to !== null; // which is shown from its first floor on
  const link = new URL(addressOf(isRoute ? { ...state, floor: null } : state, current));
  for (const name of deviceParameters) link.searchParams.delete(name);
  if (!public_) return link.href;
  for (const [name, value] of link.searchParams) public_.searchParams.append(name, value);
  return public_.href;
}

function webAddress(text: string, base: string): URL | null {
  try {
    const url = new URL(text, base);
    return text && /^https?:$/.test(url.protocol) ? url : null;
  } catch {
    return null;
  }
}

/** Whether other devices can open a link. */
export function isReachable(link: string): boolean {
  return !isLocal(new URL(link).hostname);
}
