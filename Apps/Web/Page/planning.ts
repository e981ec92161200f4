// Plans the route of the state, and again when the stops, the profile, the language or the closures change.

import { OrivantaError, type Guidance, type GuideRequest, type Venue } from "orivanta";

import type { App, Plan } from "./app.js";
import { localTime } from "./times.js";

const alternatives = 2;
const closuresPause = 60_000; // milliseconds between requests for what is closed

/** Keeps `App.plan` and `App.closed` current. */
export class Planning {
  readonly #app: App;
  #planned = ""; // what the plan was made for
  #wish = ""; // what the chosen route and step belong to
  #run = 0;
  #venue: Venue | null = null;
  #slug = ""; // of the venue that `App.closed` belongs to

  constructor(app: App) {
    this.#app = app;
    app.on(() => this.#update());
    setInterval(() => void this.#loadClosures(), closuresPause);
    document.addEventListener("visibilitychange", () => void this.#loadClosures());
  }

  #update(): void {
    const app = this.#app;
    const { from, to, via, profile } = app.store.state;
    const venue = app.shown?.venue ?? null;
    if (venue !== this.#venue) {
      this.#venue = venue;
      this.#planned = "";
      if (venue && venue.slug !== this.#slug) {
        this.#slug = venue.slug;
        app.closed = [];
      }
      void this.#loadClosures();
    }
    const wish = venue && from !== null && to !== null ? JSON.stringify([from, to, via, profile]) : "";
    const planned = wish && wish + String(app.closed);
    if (planned === this.#planned) return;
    this.#planned = planned;
    this.#run += 1;
    // A reload of the page or of the same venue asks the same again and keeps the place in the route.
    if (this.#wish && wish !== this.#wish) app.ui = { ...app.ui, routeIndex: 0, step: null };
    if (wish !== this.#wish || !app.plan) app.plan = wish ? { kind: "planning" } : null;
    this.#wish = wish;
    app.changed();
    if (!wish) return;
    const run = this.#run;
    // The page shows first that it is planning: the search of a route in a large venue takes a moment.
    setTimeout(() => this.#plan(run));
  }

  #plan(run: number): void {
    if (run !== this.#run) return;
    const app = this.#app;
    const former = wayOf(app.route);
    app.plan = this.#answer();
    const way = wayOf(app.route);
    app.changed();
    if (way && way === former) return; // something else was closed
    if (former) app.ui = { ...app.ui, routeIndex: 0, step: null };
    if (app.plan.kind === "problem") app.announce(app.plan.problem.text);
    if (app.plan.kind === "route") {
      const [best] = app.plan.routes;
      app.announce(`${app.t("page.route")}: ${best!.summary}. ${best!.steps[0]?.text ?? app.t("route.none")}`);
    }
  }

  #answer(): Plan {
    const app = this.#app;
    const { from, to, via, profile } = app.store.state;
    const departure = new Date();
    if (from === to && via.length === 0) return { kind: "problem", problem: { text: app.t("route.none") } };
    const stops = (stop: string) => {
      const nearest = app.nearestAt(stop);
      return nearest ? nearest.places : [stop];
    };
    const request: GuideRequest = {
      from: stops(from!),
      to: stops(to!),
      via,
      bestOrder: via.length > 1,
      profile,
      closed: app.closed,
      at: localTime(departure),
      visitsClosedStops: true,
      alternatives,
      language: app.texts.language,
    };
    try {
      const answer = app.shown!.venue.guide(request);
      if ("problem" in answer) return { kind: "problem", problem: answer.problem };
      return { kind: "route", routes: [answer, ...answer.alternatives], departure };
    } catch (error) {
      if (!(error instanceof OrivantaError)) throw error;
      if (error.kind === "fatal") return { kind: "planning" }; // the page says so in place of the route
      return { kind: "problem", problem: { text: app.t("problem.unknownPlace") } }; // an old link, for example
    }
  }

  async #loadClosures(): Promise<void> {
    const app = this.#app;
    const venue = app.shown?.venue;
    if (!venue || document.hidden) return;
    const closed = await venue.closures().catch(() => app.closed); // without an answer, what was known stays
    if (app.shown?.venue !== venue || String(closed) === String(app.closed)) return;
    app.closed = closed;
    app.changed();
  }
}

const wayOf = (route: Guidance | null): string => route?.nodes.map(({ id }) => id).join() ?? "";

/** Returns when a visitor arrives who departs with the plan; null if the venue has no scale. */
export function arrivalOf(route: Guidance, departure: Date): Date | null {
  if (route.seconds === null || route.steps.length === 0) return null;
  return new Date(departure.getTime() + Math.ceil(route.seconds / 60) * 60_000);
}

/** Returns the names of the stops that are closed when the visitor arrives. */
export function closedStops(app: App, route: Guidance, departure: Date): string[] {
  const arrival = arrivalOf(route, departure);
  if (!arrival || !app.shown) return [];
  const { venue } = app.shown;
  return route.visits.slice(1).flatMap(({ place }) => {
    if (!place) return [];
    const card = venue.card(place, { language: app.texts.language, now: localTime(arrival), closed: app.closed });
    return card.isClosed ? [card.title] : [];
  });
}
