// Modal dialogs.

import { h } from "./dom.js";
import { moveNotices } from "./notices.js";

/** Opens a dialog, which a click beside it or the Escape key closes. It is removed then. Notices stay above it. */
export function openDialog(label: string, className: string, ...children: (Node | null)[]): HTMLDialogElement {
  const dialog = h("dialog", { class: className, "aria-label": label }, ...children);
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
