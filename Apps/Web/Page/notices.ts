// Lines above everything else that say what has happened.

import { h } from "./dom.js";

/** A notice that is shown. */
export interface Notice {
  /** Changes the text. */
  setText(text: string): void;
  remove(): void;
}

let region: HTMLElement | null = null;

/** Shows a notice, with a button if `action` is given; for `seconds`, or until it is removed. Screen readers read it. */
export function showNotice(
  text: string,
  { seconds, action }: { seconds?: number; action?: { label: string; run: () => void } } = {},
): Notice {
  region ??= document.body.appendChild(h("div", { class: "notices", popover: "manual" }));
  const line = h("span", { role: "status" });
  const notice = h("div", { class: "notice" }, line);
  const remove = () => {
    notice.remove();
    if (region?.childElementCount === 0) region.hidePopover?.();
  };
  if (action) {
    const run = () => (remove(), action.run());
    notice.append(h("button", { type: "button", onclick: run }, action.label));
  }
  region.append(notice);
  raise(region);
  // A live region is read when its text changes after it has been added.
  requestAnimationFrame(() => (line.textContent ||= text));
  if (seconds !== undefined) setTimeout(remove, seconds * 1000);
  return { setText: (changed) => (line.textContent = changed), remove };
}

// Puts it above all dialogs, also those that were opened later than another notice, where browsers can.
function raise(element: HTMLElement): void {
  if (typeof element.showPopover !== "function") return;
  element.hidePopover();
  element.showPopover();
}
