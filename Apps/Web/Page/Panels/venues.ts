// The list of venues, and what the page says while it loads or when it cannot.

import type { App, Failure } from "../app.js";
import { h } from "../dom.js";
import { icon } from "../icons.js";
import { whenLoaded } from "../loaded.js";
import type { Session } from "../session.js";

export function venuesPage(app: App): Node[] {
  return [
    h("h1", { class: "venues-title" }, app.t("venues.title")),
    h(
      "ul",
      { class: "rows is-venues" },
      ...(app.venues ?? []).map((venue) =>
        h(
          "li",
          {},
          h(
            "button",
            { class: "row", "data-key": venue.slug, onclick: () => app.store.change({ venue: venue.slug }) },
            h("span", { class: "row-texts" }, h("span", { class: "row-name" }, h("bdi", {}, venue.name))),
            icon("forward", app.texts.isRightToLeft),
          ),
        ),
      ),
    ),
  ];
}

export function loadingPage(app: App): Node[] {
  const share = app.loadedShare;
  const bar = h("progress", { max: 1, "aria-label": app.loading ?? "", ...(share === null ? {} : { value: share }) });
  return [h("div", { class: "message" }, h("p", {}, app.loading ?? ""), bar)];
}

export function failurePage(app: App, failure: Failure, session: Session): Node[] {
  const again = h("button", { class: "filled", "data-key": "retry", onclick: () => act(app, failure, session) }, buttonText(app, failure));
  return [
    h(
      "div",
      { class: "message is-problem" },
      h("h2", { tabindex: -1, "data-key": "failure-title" }, failure.title),
      h("p", { dir: "auto" }, failure.detail),
      failure.way === "signIn" ? credentials(app, session) : again,
    ),
  ];
}

function credentials(app: App, session: Session): HTMLElement {
  const place = h("div");
  whenLoaded(app, ({ credentialsForm }) => place.append(credentialsForm(app, session)));
  return place;
}

function buttonText(app: App, { way }: Failure): string {
  if (way === "venues") return app.t("venues.all");
  return way === "reload" ? app.t("page.reload") : app.t("retry");
}

function act(app: App, { way }: Failure, session: Session): void {
  if (way === "reload") return location.reload();
  if (way === "venues") {
    app.failure = null;
    return app.store.change({ venue: null });
  }
  void session.reload();
}
