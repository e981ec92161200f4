// The icons of kinds of places, as on the map.

import { svg } from "./icons.js";

/** Makes the icon of a kind. It is hidden from screen readers. */
export function kindIcon(kind: string, isOutOfOrder = false): SVGSVGElement {
  const parts = [{ class: "disc", d: "M-12 0a12 12 0 1 0 24 0a12 12 0 1 0-24 0" }, { d: "M-3 0a3 3 0 1 0 6 0a3 3 0 1 0-6 0" }];
  const element = svg("-12 -12 24 24", `kind${isOutOfOrder ? " is-out" : ""}`, parts);
  element.dataset["kind"] = kind;
  return element;
}
