// Buttons that take what the page shows to another device.

import type { App } from "../app.js";
import { openDialog } from "../dialog.js";
import { h } from "../dom.js";
import { icon } from "../icons.js";
import { showNotice } from "../notices.js";
import { isReachable, sharedLink } from "./sharedLink.js";

/** Returns what takes the route to another device: buttons, and on a kiosk, which visitors leave, the QR code itself. */
export function takeAway(app: App): HTMLElement[] {
  const code = app.kiosk ? codeOf(app, sharedLink(app.store.state, location.href)) : shareButtons(app);
  return code ? [code] : [];
}

function shareButtons(app: App): HTMLElement {
  const share = h("button", { class: "tinted", type: "button", "data-key": "share" }, icon("share"), app.t("page.share"));
  const code = h("button", { class: "tinted", type: "button", "data-key": "qr" }, icon("qr"), app.t("page.share.code"));
  share.addEventListener("click", () => void shareLink(app));
  code.addEventListener("click", () => showCode(app, sharedLink(app.store.state, location.href)));
  return h("div", { class: "buttons is-share" }, share, code);
}

async function shareLink(app: App): Promise<void> {
  const link = sharedLink(app.store.state, location.href);
  try {
    if (typeof navigator.share === "function") return await navigator.share({ title: document.title, url: link });
    await navigator.clipboard.writeText(link);
    showNotice(app.t("page.share.copied"), { seconds: 4 });
  } catch (error) {
    // The user has closed the dialog of the device, or the browser does not let the page write.
    if (!(error instanceof DOMException && error.name === "AbortError")) showCode(app, link);
  }
}

/**
 * Returns the QR code of a link, with the link as a text, or null if no other device can open it. The code is drawn
 * once its library is loaded; without the code, because the link is too long, the element removes itself.
 */
function codeOf(app: App, link: string): HTMLElement | null {
  if (!isReachable(link)) return null;
  const figure = h("figure", { class: "code" }, h("figcaption", {}, app.t("page.share.scan")));
  const draw = async () => {
    const { qrPicture } = await import("./qrPicture.js");
    const picture = qrPicture(link, app.t("page.share.name", { link }));
    if (picture) figure.prepend(picture);
    else figure.remove();
  };
  draw().catch(() => figure.remove());
  return figure;
}

/** Shows a link as a QR code and as a text. */
export function showCode(app: App, link: string): void {
  const close = h("button", { class: "filled", type: "button" }, app.t("page.close"));
  const text = h("p", { class: "link", dir: "ltr" }, link);
  const dialog = openDialog(app.t("page.share.code"), "code-dialog", codeOf(app, link), text, close);
  close.addEventListener("click", () => dialog.close());
}
