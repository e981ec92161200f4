// Modal dialogs.

import type { App } from "./app.js";
import { h } from "./dom.js";
import { icon } from "./icons.js";
import { moveNotices } from "./notices.js";

/** Opens a dialog, which its button, a click beside it or the Escape key closes. It is removed then. Notices stay above it. */
export function openDialog(app: App, title: string, className: string, ...children: (Node | null)[]): HTMLDialogElement {
  const close = h("button", { class: "plain", type: "button", "aria-label": app.t("page.close"), onclick: () => dialog.close() }, icon("close"));
  const head = h("div", { class: "dialog-head" }, h("h2", {}, title), close);
  const content = h("div", { class: "dialog-content" }, ...children);
  const dialog: HTMLDialogElement = h("dialog", { class: className, "aria-label": title }, head, content);
  dialog.addEventListener("click", (event) => event.target === dialog && dialog.close());
  dialog.addEventListener("close", () => {
    moveNotices(document.body);
    dialog.remove();
  });
  document.body.append(dialog);
  dialog.showModal();
  moveNotices(dialog);
  return dialog;
}
