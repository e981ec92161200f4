// The icons of kinds of places, as on the map. Each is drawn once, in a sprite, and used wherever it is shown.

import type { App } from "./app.js";
import { svg } from "./icons.js";

const namespace = "http://www.w3.org/2000/svg";

/** Makes the icon of a kind. It is hidden from screen readers. */
export function kindIcon(kind: string, isOutOfOrder = false): SVGSVGElement {
  const element = svg("0 0 24 24", "kind", []);
  const use = document.createElementNS(namespace, "use");
  use.setAttribute("href", `#kind-${kind}${isOutOfOrder ? "-out" : ""}`);
  element.append(use);
  return element;
}

/** The sprite. It changes with the theme. */
export class KindSprite {
  readonly element = svg("0 0 0 0", "sprite", []);
  readonly #app: App;
  #isDark: boolean | null = null;

  constructor(app: App) {
    this.#app = app;
    app.on(() => this.#update());
  }

  #update(): void {
    const { settings, shown } = this.#app;
    if (!shown || settings.isDark === this.#isDark) return;
    this.#isDark = settings.isDark;
    const symbols = shown.venue.icons(settings.isDark ? "dark" : "light").flatMap(({ kind, parts, outOfOrder }) =>
      [
        { id: `kind-${kind}`, paths: parts },
        { id: `kind-${kind}-out`, paths: outOfOrder },
      ].map(({ id, paths }) => {
        const symbol = document.createElementNS(namespace, "symbol");
        symbol.setAttribute("id", id);
        symbol.setAttribute("viewBox", "-12 -12 24 24");
        for (const { path, color, width } of paths) {
          const part = document.createElementNS(namespace, "path");
          const look = width > 0 ? { stroke: color, "stroke-width": width } : { fill: color, "fill-rule": "evenodd" };
          for (const [name, value] of Object.entries({ d: path, ...look })) part.setAttribute(name, String(value));
          symbol.append(part);
        }
        return symbol;
      }),
    );
    this.element.replaceChildren(...symbols);
  }
}
