// Browsing: the nearest places, the kinds of places, the recent places, the places of a kind, and all places.

import { goToNearest } from "../actions.js";
import type { App } from "../app.js";
import { h } from "../dom.js";
import { forgetPlaces, recentPlaces } from "../recent.js";
import { startBrowsing, type Browsing } from "../ui.js";
import { backLine, heading, placeList, tiles, type TileContent } from "./rows.js";

const foldedTiles = 8;

/** Returns the page of `app.ui.browsing`. */
export function browsePage(app: App): Node[] {
  const { browsing } = app.ui;
  if (browsing.page === "all") return allPlaces(app);
  if (browsing.page === "group") return groupPage(app, browsing.kind);
  return startPage(app, browsing.showsAllKinds);
}

function turn(app: App, browsing: Browsing): void {
  app.changeUi({ browsing, sheet: app.ui.sheet === "low" ? "half" : app.ui.sheet });
}

function startPage(app: App, showsAllKinds: boolean): Node[] {
  const nodes: Node[] = [];
  const nearest = app.ui.choosing === "from" ? [] : app.nearest(app.store.state.from);
  if (nearest.length > 0) {
    nodes.push(
      heading(app.t("browse.nearest")),
      tiles("flat", nearest.map((each) => ({ title: each.label, kind: each.kind, action: () => goToNearest(app, each) }))),
    );
  }
  const { groups, places } = app.shown!.catalog;
  if (places.length > 0) {
    nodes.push(heading(app.t("browse.kinds")), tiles("tall", kindTiles(app, groups, places.length, showsAllKinds)));
  }
  const recent = recentPlaces(app);
  if (recent.length > 0) {
    const clear = h("button", { class: "plain text", "data-key": "clear-recent", onclick: () => forgetPlaces(app) }, app.t("browse.clear"));
    nodes.push(heading(app.t("browse.recent"), clear), placeList(app, recent, false));
  }
  return nodes;
}

type Groups = NonNullable<App["shown"]>["catalog"]["groups"];

function kindTiles(app: App, groups: Groups, count: number, showsAll: boolean): TileContent[] {
  const number = (value: number) => app.texts.number(value);
  const contents: TileContent[] = groups
    .filter(({ kind }) => kind !== "other")
    .map(({ kind, name, places }) => ({
      title: name,
      detail: number(places.length),
      kind,
      action: () => turn(app, { page: "group", kind }),
    }));
  const all: TileContent = {
    title: app.t("browse.all"),
    detail: number(count),
    sign: "list",
    action: () => turn(app, { page: "all" }),
  };
  if (showsAll || contents.length + 1 <= foldedTiles + 1) return [...contents, all];
  const more: TileContent = {
    title: app.t("browse.more"),
    sign: "dots",
    action: () => turn(app, { page: "start", showsAllKinds: true }),
  };
  return [...contents.slice(0, foldedTiles - 1), all, more];
}

function wayBack(app: App, title: string, count: number): Node {
  return backLine(app, title, count, () => turn(app, startBrowsing));
}

function groupPage(app: App, kind: string): Node[] {
  const group = app.shown!.catalog.groups.find((each) => each.kind === kind);
  if (!group) return startPage(app, false);
  const nodes = [wayBack(app, group.name, group.places.length)];
  const categories = new Set(group.places.map((id) => app.shown!.places.get(id)?.category));
  for (const section of group.sections) {
    if (group.sections.length > 1) nodes.push(heading(section.title || app.t("search.others")));
    nodes.push(placeList(app, section.places, group.sections.length === 1 && categories.size > 1));
  }
  return nodes;
}

function allPlaces(app: App): Node[] {
  const { groups, places } = app.shown!.catalog;
  const nodes = [wayBack(app, app.t("browse.all"), places.length)];
  for (const group of groups) {
    if (groups.length > 1) nodes.push(heading(group.name));
    nodes.push(placeList(app, group.places, false));
  }
  return nodes;
}
