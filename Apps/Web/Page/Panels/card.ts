// The card of a place: what it is, when it is open, how it is reached, and routes from and to it.

import type { Card } from "orivanta";

import { addStop, canAddStop, goToNearest, openSearch, setEnd } from "../actions.js";
import type { App } from "../app.js";
import { h } from "../dom.js";
import { icon } from "../icons.js";
import { kindIcon } from "../kindIcon.js";
import { localTime } from "../times.js";
import { tiles } from "./rows.js";

/** Returns the card of a place; null if the venue does not have it. */
export function cardPage(app: App, id: string): Node[] | null {
  const { venue } = app.shown!;
  const place = venue.placeNamed(id);
  if (!place) return null;
  const card = venue.card(place, { language: app.texts.language, now: localTime(new Date()), closed: app.closed });
  const nearest = app.nearest(id);
  return [
    head(app, card),
    hours(app, card),
    card.description ? h("p", { class: "description", dir: "auto" }, card.description) : null,
    contacts(app, card),
    buttons(app, id),
    nearest.length > 0
      ? tiles("flat", nearest.map((each) => ({ title: each.title, kind: each.kind, action: () => goToNearest(app, each) })))
      : null,
  ].filter((node) => node !== null);
}

function head(app: App, card: Card): HTMLElement {
  return h(
    "div",
    { class: "card-head" },
    pictureOf(card),
    kindIcon(card.kind, card.isOutOfOrder),
    h(
      "div",
      { class: "card-texts" },
      h("h2", { tabindex: -1, "data-key": "card-title" }, h("bdi", {}, card.title)),
      card.detail ? h("p", { class: "detail" }, card.detail) : null,
      card.state ? h("p", { class: card.isClosed ? "state is-closed" : "state" }, card.state) : null,
    ),
    h(
      "button",
      { class: "plain", "aria-label": app.t("page.close"), "data-key": "close", onclick: () => app.store.change({ place: null }) },
      icon("close"),
    ),
  );
}

function pictureOf(card: Card): HTMLElement | null {
  if (card.picture === null) return null;
  return h("img", { class: "picture", src: card.picture, alt: "", loading: "lazy", onerror: (event) => (event.target as Element).remove() });
}

function hours(app: App, card: Card): HTMLElement | null {
  const [today] = card.week;
  if (!today) return card.hours ? h("p", { class: "line" }, icon("clock"), card.hours) : null;
  return h(
    "details",
    { class: "week" },
    h("summary", { "data-key": "week" }, icon("clock"), h("span", {}, app.t("hours.today", { hours: today.hours }))),
    h(
      "table",
      {},
      h("tbody", {}, ...card.week.map(({ day, hours: time }) => h("tr", {}, h("th", { scope: "row" }, day), h("td", {}, time)))),
    ),
  );
}

/** Returns the address of a web site; null if the text is none that a page may link to. */
function linkOf(website: string): URL | null {
  try {
    const url = new URL(/^[a-z][a-z0-9+.-]*:/i.test(website) ? website : `https://${website}`);
    return url.protocol === "https:" || url.protocol === "http:" ? url : null;
  } catch {
    return null;
  }
}

function contacts(app: App, card: Card): HTMLElement | null {
  const lines: HTMLElement[] = [];
  if (card.phone) {
    const number = card.phone.replace(/[^\d+*#]/g, "");
    lines.push(h("a", { class: "line", href: `tel:${number}` }, icon("phone"), h("bdi", {}, card.phone)));
  }
  const url = card.website ? linkOf(card.website) : null;
  if (url) {
    const name = (url.host + url.pathname + url.search).replace(/\/$/, "");
    lines.push(h("a", { class: "line", href: url.href, target: "_blank", rel: "noopener noreferrer" }, icon("web"), h("bdi", {}, name)));
  } else if (card.website) {
    lines.push(h("p", { class: "line" }, icon("web"), h("bdi", {}, card.website)));
  }
  return lines.length > 0 ? h("div", { class: "contacts", "aria-label": app.t("kind.information"), role: "group" }, ...lines) : null;
}

function buttons(app: App, id: string): HTMLElement {
  const toHere = () => {
    setEnd(app, "to", id);
    if (app.store.state.from === null) openSearch(app, "from");
  };
  const fromHere = () => {
    const { to } = app.store.state;
    setEnd(app, "from", id);
    if (to === null) openSearch(app, "to");
  };
  return h(
    "div",
    { class: "buttons" },
    h("button", { class: "tinted", "data-key": "from", onclick: fromHere }, app.t("place.from")),
    canAddStop(app, id) ? h("button", { class: "tinted", "data-key": "stop", onclick: () => addStop(app, id) }, app.t("place.stop")) : null,
    h("button", { class: "filled", "data-key": "to", onclick: toHere }, app.t("place.to")),
  );
}
