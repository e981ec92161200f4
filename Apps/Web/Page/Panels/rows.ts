// The parts of lists: headings, rows of places, and tiles.

import type { CatalogPlace } from "orivanta";

import { choosePlace } from "../actions.js";
import type { App } from "../app.js";
import { h } from "../dom.js";
import { icon, type IconName } from "../icons.js";
import { kindIcon } from "../kindIcon.js";

export function heading(text: string, ...children: Node[]): HTMLElement {
  return h("div", { class: "heading" }, h("h2", {}, text), ...children);
}

/** The line with a button that leads back, a title and a count. */
export function backLine(app: App, title: string, count: number | null, goBack: () => void): HTMLElement {
  return h(
    "div",
    { class: "back-line" },
    h("button", { class: "plain", "aria-label": app.t("page.back"), "data-key": "back", onclick: goBack }, icon("back")),
    h("h2", { tabindex: -1, "data-key": "list-title" }, title),
    count === null ? null : h("span", { class: "count" }, app.texts.number(count)),
  );
}

/** What a row of a place, or of a choice of places, shows. */
export function rowContent(app: App, place: Pick<CatalogPlace, "id" | "kind" | "name" | "floors">, detail: string): Node[] {
  return [
    kindIcon(place.kind, app.closed.includes(place.id)),
    h("span", { class: "row-texts" }, h("span", { class: "row-name" }, h("bdi", {}, place.name)), detail ? h("span", { class: "row-detail" }, h("bdi", {}, detail)) : null),
    h("span", { class: "row-floors" }, h("bdi", {}, place.floors)),
  ];
}

/** A list of places that show their cards, or become an end of the route. */
export function placeList(app: App, places: readonly string[], showsCategories: boolean): HTMLElement {
  const rows = places.flatMap((id) => app.shown?.places.get(id) ?? []);
  return h(
    "ul",
    { class: "rows" },
    ...rows.map((place) =>
      h(
        "li",
        {},
        h(
          "button",
          { class: "row", "data-key": place.id, onclick: () => choosePlace(app, place.id) },
          ...rowContent(app, place, showsCategories ? place.category : ""),
        ),
      ),
    ),
  );
}

/** What a tile shows: a kind of places, or a symbol. */
export interface TileContent {
  readonly title: string;
  readonly detail?: string;
  readonly kind?: string;
  readonly sign?: IconName;
  readonly action: () => void;
}

export function tiles(look: "tall" | "flat", contents: readonly TileContent[]): HTMLElement {
  return h(
    "ul",
    { class: `tiles is-${look}` },
    ...contents.map(({ title, detail, kind, sign, action }) =>
      h(
        "li",
        {},
        h(
          "button",
          { class: "tile", "data-key": `tile-${title}`, onclick: action },
          sign ? h("span", { class: "sign" }, icon(sign)) : kindIcon(kind ?? "other"),
          h("span", { class: "tile-title" }, title),
          detail === undefined ? null : h("span", { class: "tile-detail" }, detail),
        ),
      ),
    ),
  );
}
