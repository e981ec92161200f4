// Hands a link to another application, or copies it.

import type { App } from "../app.js";
import { showNotice } from "../notices.js";
import { showCode } from "./code.js";

/** Shares a link in the way of the device. Shows it as a QR code if that is not possible. */
export async function shareLink(app: App, link: string): Promise<void> {
  try {
    if (typeof navigator.share === "function") return await navigator.share({ title: document.title, url: link });
    await navigator.clipboard.writeText(link);
    showNotice(app.t("page.share.copied"), { seconds: 4 });
  } catch (error) {
    // The user has closed the dialog of the device, or the browser does not let the page write.
    if (!(error instanceof DOMException && error.name === "AbortError")) showCode(app, link);
  }
}
