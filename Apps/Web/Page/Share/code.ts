// QR codes of links.

import type { App } from "../app.js";
import { openDialog } from "../dialog.js";
import { h } from "../dom.js";
import { qrPicture } from "./qrPicture.js";
import { isReachable } from "./sharedLink.js";

/** Returns the QR code of a link, or null if no other device can open the link or it is too long. */
export function codeOf(app: App, link: string): HTMLElement | null {
  const picture = isReachable(link) ? qrPicture(link, app.t("page.share.name", { link })) : null;
  return picture && h("figure", { class: "code" }, picture, h("figcaption", {}, app.t("page.share.scan")));
}

/** Shows a link as a QR code and as a text. */
export function showCode(app: App, link: string): void {
  const code = codeOf(app, link) ?? h("p", {}, app.t(isReachable(link) ? "page.share.long" : "page.share.local"));
  openDialog(app, app.t("page.share.code"), "code-dialog", code, h("p", { class: "link", dir: "ltr" }, link));
}
