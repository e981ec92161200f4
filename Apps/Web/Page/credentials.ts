// The account at a server.

import type { App } from "./app.js";
import { h } from "./dom.js";
import { keepAccount } from "./Kiosk/account.js";
import type { Session } from "./session.js";

/**
 * Returns a form for the account at the server, which loads the venues again. A link can name any server, so the
 * browser fills in nothing for one of another origin, and the form says who gets the password.
 */
export function credentialsForm(app: App, session: Session): HTMLElement {
  const { foreignHost } = app;
  const field = (name: "username" | "password", label: string, type: string, autocomplete: string) =>
    h("label", {}, label, h("input", { name, type, autocomplete: foreignHost ? "off" : autocomplete, required: true, "data-key": name }));
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
    foreignHost && h("p", { class: "host", dir: "ltr" }, foreignHost),
  );
  return form;
}
