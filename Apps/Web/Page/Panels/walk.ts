// One instruction at a time, while the user walks along the route.

import type { Guidance } from "orivanta";

import { showStep } from "../actions.js";
import type { App } from "../app.js";
import { h } from "../dom.js";
import { icon } from "../icons.js";
import { stepIcon } from "../stepIcon.js";

export function walkPage(app: App, route: Guidance, index: number): Node[] {
  const step = route.steps[index]!;
  const last = route.steps.length - 1;
  // A button that cannot go on keeps the focus, so it is not really disabled.
  const show = (next: number) => {
    if (route.steps[next]) showStep(app, route, next);
  };
  const number = app.t("page.walk.step", { number: index + 1, all: route.steps.length });
  const isRightToLeft = app.texts.isRightToLeft;
  return [
    h(
      "div",
      { class: "walk" },
      h("h2", { class: "walk-number", tabindex: -1, "data-key": "walk-title" }, number),
      h("progress", { max: route.steps.length, value: index + 1, "aria-hidden": "true" }),
      h("div", { class: "walk-step" }, stepIcon(step), h("p", {}, step.text)),
      index === last || route.meters === null ? null : h("p", { class: "detail" }, leftText(app, route, index)),
      h(
        "div",
        { class: "buttons" },
        h(
          "button",
          { class: "tinted", "data-key": "previous", "aria-disabled": index === 0 && "true", onclick: () => show(index - 1) },
          icon("back", isRightToLeft),
          app.t("page.walk.previous"),
        ),
        h(
          "button",
          { class: "filled", "data-key": "next", "aria-disabled": index === last && "true", onclick: () => show(index + 1) },
          app.t("page.walk.next"),
          icon("forward", isRightToLeft),
        ),
      ),
      h("button", { class: "plain text", "data-key": "all-steps", onclick: () => app.changeUi({ step: null }) }, icon("list"), app.t("page.walk.end")),
    ),
  ];
}

// The length and the time from an instruction to the destination.
function leftText(app: App, route: Guidance, index: number): string {
  if (index === 0) return route.summary;
  const passed = route.steps.slice(0, index);
  const meters = passed.reduce((left, step) => left - (step.meters ?? 0), route.meters ?? 0);
  const seconds = passed.reduce((left, step) => left - (step.seconds ?? 0), route.seconds ?? 0);
  const minutes = Math.max(1, Math.round(seconds / 60));
  const language = app.texts.language === "ar" ? "ar-u-nu-latn" : app.texts.language;
  const format = (value: number, options: Intl.NumberFormatOptions) =>
    new Intl.NumberFormat(language, { style: "unit", unitDisplay: "short", ...options }).format(value);
  const length = format(meters, { unit: "meter", maximumSignificantDigits: 2 });
  return app.t("walk.left", { length, time: format(minutes, { unit: "minute" }) });
}
