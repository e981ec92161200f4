// The route: its stops, the profile, the routes to choose from, and the instructions or a problem.

import type { Guidance, ProfileName } from "orivanta";

import { endRoute, openSearch, removeStop, showStep, swapEnds, type End } from "../actions.js";
import type { App, Plan } from "../app.js";
import { h } from "../dom.js";
import { icon } from "../icons.js";
import { arrivalOf, closedStops } from "../planning.js";
import { takeAway } from "../Share/share.js";
import { stepIcon } from "../stepIcon.js";
import { clockText } from "../times.js";
import { choice } from "./choice.js";
import { waysOf } from "./ways.js";

const profiles: readonly (readonly [ProfileName, key: string])[] = [
  ["fastest", "profile.fastest"],
  ["step-free", "profile.stepFree"],
  ["prefer-lift", "profile.preferElevator"],
  ["no-escalator", "profile.noEscalator"],
];

/** Returns the panel of the route. */
export function routePage(app: App): Node[] {
  const { plan } = app;
  return [
    h("h2", { class: "visually-hidden", tabindex: -1, "data-key": "route-title" }, app.t("page.route")),
    stops(app),
    choice(app, app.t("page.route.profiles"), profiles.map(([name, key]) => ({ value: name, title: app.t(key) })), app.store.state.profile, (value) =>
      app.store.change({ profile: value as ProfileName }),
    ),
    ...(plan?.kind === "route" ? routeParts(app, plan) : [hint(app, plan)]),
  ];
}

function stops(app: App): HTMLElement {
  const { from, to, via } = app.store.state;
  const end = (which: End, stop: string | null, wish: string, label: string) => {
    const name = stop === null ? app.t(wish) : app.nameOf(stop);
    return h(
      "li",
      { class: `stop is-${which}` },
      h(
        "button",
        {
          class: stop === null ? "stop-name is-missing" : "stop-name",
          "data-key": which,
          "aria-label": stop === null ? name : app.t(label, { place: name }),
          onclick: () => openSearch(app, which),
        },
        h("bdi", {}, name),
      ),
    );
  };
  const between = via.map((stop, index) => {
    const place = app.nameOf(stop);
    return h(
      "li",
      { class: "stop is-between" },
      h("span", { class: "stop-name" }, h("bdi", {}, place)),
      h(
        "button",
        { class: "plain", "aria-label": app.t("page.route.remove", { place }), "data-key": `remove-${index}`, onclick: () => removeStop(app, index) },
        icon("remove"),
      ),
    );
  });
  const found = app.route?.visits.at(-1)?.place?.id ?? null;
  return h(
    "div",
    { class: "stops" },
    h("ol", {}, end("from", from, "route.from", "page.route.start"), ...between, end("to", to, "route.to", "page.route.destination")),
    h(
      "div",
      { class: "stops-buttons" },
      h("button", { class: "plain", "aria-label": app.t("page.route.end"), "data-key": "end", onclick: () => endRoute(app) }, icon("close")),
      h("button", { class: "plain", "aria-label": app.t("page.route.swap"), "data-key": "swap", onclick: () => swapEnds(app, found) }, icon("swap")),
    ),
  );
}

function hint(app: App, plan: Plan | null): HTMLElement {
  if (plan?.kind === "problem") {
    const offer =
      "kind" in plan.problem && plan.problem.kind === "onlyWithSteps"
        ? h(
            "button",
            { class: "tinted", "data-key": "offer", onclick: () => app.store.change({ profile: "prefer-lift" }) },
            app.t("route.try", { profile: app.t("profile.preferElevator") }),
          )
        : null;
    return h("div", { class: "summary" }, h("p", { class: "warning" }, plan.problem.text), offer);
  }
  return h("p", { class: "summary hint" }, app.t(plan ? "route.planning" : "route.hint"));
}

function routeParts(app: App, { routes }: Plan & { kind: "route" }): Node[] {
  const route = app.route!;
  const departure = new Date(); // the visitor has not left yet
  const arrival = arrivalOf(route, departure);
  const closed = closedStops(app, route, departure);
  const isThere = route.steps.length === 0;
  const nodes: Node[] = [
    h(
      "div",
      { class: "summary" },
      h(
        "div",
        { class: "summary-texts" },
        h("p", { class: "summary-length" }, isThere ? app.t("route.none") : summaryOf(app, route)),
        arrival ? h("p", { class: "detail" }, app.t("route.arrival", { time: clockText(arrival) })) : null,
      ),
      isThere
        ? null
        : h("button", { class: "filled", "data-key": "walk", onclick: () => showStep(app, route, 0) }, icon("play"), app.t("page.walk.start")),
    ),
    ...closed.map((place) => h("p", { class: "warning route-warning" }, app.t("route.closed", { place }))),
  ];
  const ways = waysOf(app, routes);
  const texts = new Set<string>(); // visitors cannot choose between equal ones
  const options = routes
    .map((each, index) => ({ value: String(index), title: summaryOf(app, each), detail: ways[index] }))
    .filter(({ title, detail }) => texts.size < texts.add(title + detail).size);
  if (options.length > 1) {
    nodes.push(choice(app, app.t("page.route.choices"), options, String(routes.indexOf(route)), (value) => app.changeUi({ routeIndex: Number(value) })));
  }
  if (!isThere) nodes.push(takeAway(app), stepList(app, route));
  return nodes;
}

function summaryOf(app: App, route: Guidance): string {
  return route.summary || app.t("route.units", { count: Math.round(route.costMilliseconds / 1000) });
}

function stepList(app: App, route: Guidance): HTMLElement {
  return h(
    "ol",
    { class: "steps", "aria-label": app.t("page.route.steps") },
    ...route.steps.map((step, index) =>
      h(
        "li",
        {},
        h(
          "button",
          { class: "step", "data-key": `step-${index}`, onclick: () => showStep(app, route, index) },
          stepIcon(step),
          h("span", { class: "step-text" }, step.text),
        ),
      ),
    ),
  );
}
