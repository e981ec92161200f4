// Lines that say what has happened: above everything else, or for what lasts, in the column of the page.

import { h } from "./dom.js";

/** A notice that is shown. */
export interface Notice {
  /** Changes the text. Screen readers read it, unless `isQuiet`. */
  setText(text: string, isQuiet?: boolean): void;
  remove(): void;
}

interface NoticeOptions {
  readonly seconds?: number;
  readonly action?: { readonly label: string; readonly run: () => void };
  /** Shows it in the column, where it covers nothing. */
  readonly isStanding?: boolean;
}

/** The notices of the column. */
export const standing = h("div", { class: "standing" });

let region: HTMLElement | null = null;

/** Shows a notice, with a button if `action` is given; for `seconds`, or until it is removed. Screen readers read it. */
export function showNotice(text: string, { seconds, action, isStanding }: NoticeOptions = {}): Notice {
  region ??= topmost().appendChild(h("div", { class: "notices", popover: "manual" }));
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
  (isStanding ? standing : region).append(notice);
  if (!isStanding) raise(region);
  // A live region is read when its text changes after it has been added.
  requestAnimationFrame(() => (line.textContent ||= text));
  if (seconds !== undefined) setTimeout(remove, seconds * 1000);
  const setText = (changed: string, isQuiet = false) => {
    line.setAttribute("aria-live", isQuiet ? "off" : "polite");
    line.textContent = changed;
  };
  return { setText, remove };
}

/** Moves all notices into an element: the dialog that has been opened, since everything outside it cannot be used. */
export function moveNotices(parent: Element): void {
  if (!region || region.parentElement === parent) return;
  parent.append(region);
  if (region.childElementCount > 0) raise(region);
}

function topmost(): Element {
  return [...document.querySelectorAll("dialog[open]")].at(-1) ?? document.body;
}

// Puts it above all dialogs, also those that were opened later than another notice, where browsers can.
function raise(element: HTMLElement): void {
  if (typeof element.showPopover !== "function") return;
  element.hidePopover();
  element.showPopover();
}
