// Rows of radio buttons that look like segments.

import type { App } from "../app.js";
import { h, newIdentifier } from "../dom.js";

/** A segment. */
export interface Option {
  readonly value: string;
  readonly title: string;
  /** A second line. */
  readonly detail?: string | undefined;
}

/** Makes a choice. `change` is called with the value that the user has chosen. */
export function choice(
  app: App,
  label: string,
  options: readonly Option[],
  chosen: string,
  change: (value: string) => void,
): HTMLElement {
  const name = newIdentifier("choice");
  return h(
    "fieldset",
    { class: "choice" },
    h("legend", { class: "visually-hidden" }, label),
    ...options.map(({ value, title, detail }) =>
      h(
        "label",
        {},
        h("input", { type: "radio", name, value, checked: value === chosen, "data-key": `${label}-${value}`, onchange: () => change(value) }),
        h("span", { dir: app.texts.isRightToLeft ? "rtl" : "ltr" }, title, detail ? h("small", { dir: "auto" }, detail) : null),
      ),
    ),
  );
}
