// Buttons that take what the page shows to another device.

import type { App } from "../app.js";
import { h } from "../dom.js";
import { icon } from "../icons.js";
import { whenLoaded } from "../loaded.js";
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
  share.addEventListener("click", () => whenLoaded(app, (later) => void later.shareLink(app, link())));
  code.addEventListener("click", () => showCode(app, link()));
  return h("div", { class: "buttons is-share" }, share, code);
}

/** Shows a link as a QR code and as a text. */
export function showCode(app: App, link: string): void {
  whenLoaded(app, (later) => later.showCode(app, link));
}
