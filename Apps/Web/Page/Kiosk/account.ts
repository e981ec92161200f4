// The account of a kiosk. It lasts as long as the tab, because a kiosk loads the page again by itself and nobody is
// there to sign in.

import type { Server } from "../app.js";

const storageKey = "orivanta-account";

/** Keeps the account at a server. */
export function keepAccount(server: Server): void {
  try {
    sessionStorage.setItem(storageKey, JSON.stringify(server));
  } catch {
    // Without storage, somebody has to sign in again.
  }
}

/** Returns the server with the account that was kept for it, if there is one. */
export function withAccount(server: Server): Server {
  try {
    const kept = JSON.parse(sessionStorage.getItem(storageKey) ?? "null") as Server | null;
    return kept?.endpoint === server.endpoint ? kept : server;
  } catch {
    return server;
  }
}
