// The dialogs: the settings, and the list of keys and gestures.

import type { App } from "./app.js";
import { openDialog } from "./dialog.js";
import { h } from "./dom.js";
import { choice } from "./Panels/choice.js";
import { textSizes, type Choices } from "./settings.js";
import { languages } from "./texts.js";

/** Shows the settings. */
export function showSettings(app: App): void {
  const { settings } = app;
  const part = (title: string, control: HTMLElement) => h("div", { class: "setting" }, h("h3", {}, title), control);
  const themes = (["automatic", "light", "dark"] as const).map((value) => ({ value, title: app.t(`page.theme.${value}`) }));
  const sizes = textSizes.map((size) => ({ value: String(size), title: `${Math.round(size * 100)} %` }));
  const language = h(
    "select",
    { "aria-label": app.t("page.language"), onchange: () => settings.change({ language: language.value }) },
    ...languages.map(({ tag, name }) => h("option", { value: tag, lang: tag, selected: tag === settings.choices.language }, name)),
  );
  const contrast = h("input", {
    type: "checkbox",
    checked: settings.choices.highContrast,
    onchange: () => settings.change({ highContrast: contrast.checked }),
  });
  const element = openDialog(
    app,
    app.t("page.settings"),
    "",
    part(app.t("page.language"), language),
    part(
      app.t("page.theme"),
      choice(app, app.t("page.theme"), themes, settings.choices.theme, (theme) => settings.change({ theme: theme as Choices["theme"] })),
    ),
    part(
      app.t("page.textSize"),
      choice(app, app.t("page.textSize"), sizes, String(settings.choices.textSize), (size) => settings.change({ textSize: Number(size) })),
    ),
    h("label", { class: "check" }, contrast, app.t("page.contrast")),
  );
  language.addEventListener("change", () => element.close());
}

const helpKeys: readonly (readonly [text: string, keys: string])[] = [
  ["help.move", "help.move.keys"],
  ["help.zoom", "help.zoom.keys"],
  ["help.closer", "help.closer.keys"],
  ["help.tilt", "help.tilt.keys"],
  ["help.fingers", "help.fingers.keys"],
  ["help.floor", "help.floor.keys"],
  ["help.search", "page.search.keys"],
  ["help.help", "page.help.keys"],
  ["help.tab", "help.tab.keys"],
  ["help.activate", "help.activate.keys"],
  ["help.close", "help.close.keys"],
];

/** Shows the list of keys and gestures. */
export function showHelp(app: App): void {
  const rows = helpKeys.map(([text, keys]) => h("tr", {}, h("th", { scope: "row" }, app.t(text)), h("td", {}, app.t(keys))));
  openDialog(app, app.t("help"), "", h("table", { class: "help" }, h("tbody", {}, ...rows)));
}
