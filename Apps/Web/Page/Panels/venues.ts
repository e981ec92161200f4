// The list of venues, and what the page says while it loads or when it cannot.

import type { App, Failure } from "../app.js";
import { h } from "../dom.js";
import { icon } from "../icons.js";
import { keepAccount } from "../Kiosk/account.js";
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
      failure.way === "signIn" ? credentialsForm(app, session) : again,
    ),
  ];
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

// A link can name any server. The browser fills in nothing for one of another origin, and the form says who gets
// the password.
function credentialsForm(app: App, session: Session): HTMLElement {
  const { host, origin } = new URL(app.server.endpoint);
  const isForeign = origin !== location.origin;
  const field = (name: "username" | "password", label: string, type: string, autocomplete: string) =>
    h("label", {}, label, h("input", { name, type, autocomplete: isForeign ? "off" : autocomplete, required: true, "data-key": name }));
  const username = field("username", app.t("page.user"), "text", "username");
  username.querySelector("input")!.value = app.server.username;
  const form = h(
    "form",
    {
      onsubmit: (event) => {
        event.preventDefault();
        const data = new FormData(form);
        app.server = { ...app.server, username: String(data.get("username")), password: String(data.get("password")) };
        if (app.kiosk) keepAccount(app.server);
        void session.reload();
      },
    },
    username,
    field("password", app.t("page.password"), "password", "current-password"),
    h("button", { class: "filled", type: "submit" }, app.t("page.signIn")),
    isForeign ? h("p", { class: "host", dir: "ltr" }, host) : null,
  );
  return form;
}
