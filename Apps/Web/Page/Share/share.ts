// Buttons that take what the page shows to another device.

import type { App } from "../app.js";
import { h } from "../dom.js";
import { icon } from "../icons.js";
import { whenLoaded } from "../loaded.js";
import { showNotice } from "../notices.js";
import { sharedLink } from "./sharedLink.js";

/** Returns what takes the route to another device: buttons, and on a kiosk, which visitors leave, the QR code itself. */
export function takeAway(app: App): HTMLElement {
  if (!app.kiosk) return shareButtons(app);
  const place = h("div");
  const link = sharedLink(app.store.state, location.href);
  whenLoaded(app, ({ codeOf }) => place.append(codeOf(app, link) ?? ""));
  return place;
}

function shareButtons(app: App): HTMLElement {
  const link = () => sharedLink(app.store.state, location.href);
  const button = (key: string, ...content: (Node | string)[]) => h("button", { class: "tinted", type: "button", "data-key": key }, ...content);
  const share = button("share", icon("share"), app.t("page.share"));
  const code = button("qr", icon("qr"), app.t("page.share.code"));
  share.addEventListener("click", () => void shareLink(app, link()));
  code.addEventListener("click", () => showCode(app, link()));
  return h("div", { class: "buttons is-share" }, share, code);
}

async function shareLink(app: App, link: string): Promise<void> {
  try {
    if (typeof navigator.share === "function") return await navigator.share({ title: document.title, url: link });
    await navigator.clipboard.writeText(link);
    showNotice(app.t("page.share.copied"), { seconds: 4 });
  } catch (error) {
    // The user has closed the dialog of the device, or the browser does not let the page write.
    if (!(error instanceof DOMException && error.name === "AbortError")) showCode(app, link);
  }
}

/** Shows a link as a QR code and as a text. */
export function showCode(app: App, link: string): void {
  whenLoaded(app, (later) => later.showCode(app, link));
}
