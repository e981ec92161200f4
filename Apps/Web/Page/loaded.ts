// Parts of the page that are loaded when they are needed.

import type { App } from "./app.js";
import { showNotice } from "./notices.js";

type Later = typeof import("./later.js");

/** Uses these parts as soon as they are loaded. If they cannot be loaded, a notice says so. */
export function whenLoaded(app: App, use: (later: Later) => void): void {
  import("./later.js").then(use, () => showNotice(app.t("page.notLoaded"), { seconds: 8 }));
}
