// A venue and its map as the attributes of an element describe them.

import { OrivantaError } from "../errors.js";
import type { Guidance, GuidanceProblem, GuideRequest, ProfileName } from "../guidance.js";
import type { ShowOptions } from "../map/types.js";
import type { MapView } from "../map/view.js";
import type { Floor, Place } from "../records.js";
import type { Venue } from "../venue.js";
import type { Parts } from "./parts.js";
import { hintOf } from "./texts.js";

/** The route of an element, or why there is none; both are null if it has no start or no destination. */
export interface ShownRoute {
  readonly guidance: Guidance | null;
  readonly problem: GuidanceProblem | null;
}

/** The attributes that change what is shown, but not what is loaded. */
export interface Wishes {
  readonly floor: string | null;
  readonly from: string | null;
  readonly to: string | null;
  readonly profile: string | null;
  readonly place: string | null;
  readonly theme: string | null;
  readonly cooperative: string | null;
}

type Emit = (type: "tap" | "floor" | "route" | "error", detail: unknown) => void;

const preferred = (query: string) => matchMedia(query);
const dark = () => preferred("(prefers-color-scheme: dark)");

function themeOf(wishes: Wishes): NonNullable<ShowOptions["theme"]> {
  const { theme } = wishes;
  if (theme === "light" || theme === "dark" || theme === "plain") return theme;
  return dark().matches ? "dark" : "light";
}

const isCooperative = ({ cooperative }: Wishes) => cooperative !== "false";

function floorOf(venue: Venue, name: string): Floor | undefined {
  return (["id", "shortName", "name"] as const).flatMap(
    (key) => venue.floors.find((floor) => floor[key] === name) ?? [],
  )[0];
}

function placeOf(venue: Venue, name: string): Place | undefined {
  return venue.placeNamed(name) ?? [...venue.places, ...venue.connectors].find((place) => place.name === name);
}

/** Returns how a map begins. */
export function optionsOf(wishes: Wishes, venue: Venue, language: string): ShowOptions {
  const floor = wishes.floor === null ? undefined : floorOf(venue, wishes.floor);
  return {
    ...(floor && { floor }),
    theme: themeOf(wishes),
    cooperative: isCooperative(wishes),
    language,
    highContrast: preferred("(prefers-contrast: more)").matches,
  };
}

/** A venue and its map. */
export class Shown {
  readonly venue: Venue;
  readonly map: MapView;
  #closed: readonly string[] = [];
  #isTouched = false; // the user has moved the map, or begun to
  readonly #parts: Parts;
  readonly #language: string;
  readonly #emit: Emit;
  readonly #end = new AbortController();

  /** Takes the map, which `destroy` destroys, but not the venue. */
  constructor(venue: Venue, map: MapView, parts: Parts, language: string, wishes: Wishes, emit: Emit) {
    this.venue = venue;
    this.map = map;
    this.#parts = parts;
    this.#language = language;
    this.#emit = emit;
    map.on("tap", (tap) => emit("tap", tap));
    map.on("floor", (floor) => {
      parts.markFloor(floor.id);
      emit("floor", floor);
    });
    map.on("refused", (gesture) => parts.showHint(hintOf(gesture, language)));
    for (const type of ["pointerdown", "wheel", "keydown"]) {
      map.canvas.addEventListener(type, () => (this.#isTouched = true), { once: true, passive: true });
    }
    const sizes = new ResizeObserver(() => this.#changeCovered());
    sizes.observe(map.canvas);
    this.#end.signal.addEventListener("abort", () => sizes.disconnect());
    dark().addEventListener("change", () => (map.theme = themeOf(wishes)), { signal: this.#end.signal });
  }

  /** Sets what is closed, see `Venue.closures`. Plans the route again. */
  close(closed: readonly string[], wishes: Wishes): void {
    this.#closed = closed;
    this.map.setClosures(closed);
    this.#plan(wishes, !this.#isTouched && wishes.floor === null);
  }

  /** Shows the floor switch. `label` is its name. */
  showFloors(label: string): void {
    const lowestFirst = [...this.venue.floors].sort((one, other) => one.elevation - other.elevation);
    const buttons = lowestFirst.map((floor) => ({ ...floor, label: floor.shortName || floor.name }));
    this.#parts.showFloors(buttons, label, (id) => {
      const floor = floorOf(this.venue, id);
      if (floor) this.map.floor = floor;
    });
    this.#parts.markFloor(this.map.floor.id);
    this.#changeCovered();
  }

  /** Shows what attributes say. Empties the set of their names. */
  apply(wishes: Wishes, changed: Set<string>): void {
    const has = (...names: (keyof Wishes)[]) => names.some((name) => changed.has(name));
    const [themes, floors, places, routes] = [has("theme"), has("floor"), has("place"), has("from", "to", "profile")];
    if (has("cooperative")) this.map.cooperative = isCooperative(wishes);
    changed.clear();
    if (themes) this.map.theme = themeOf(wishes);
    if (routes) this.#plan(wishes, !floors || wishes.floor === null);
    if (places) this.#select(wishes.place);
    if (floors && wishes.floor !== null) {
      const floor = floorOf(this.venue, wishes.floor);
      if (floor) this.map.floor = floor;
      else this.#complain(`the venue has no floor "${wishes.floor}"`);
    }
  }

  destroy(): void {
    this.#end.abort();
    this.map.destroy();
  }

  // The scale bar stays above the note, and labels avoid both.
  #changeCovered(): void {
    const { covered, note } = this.#parts.covered();
    this.map.setCovered(covered);
    this.map.insets = { bottom: note };
  }

  #plan({ from, to, profile }: Wishes, isFitted: boolean): void {
    let answer: Guidance | { readonly problem: GuidanceProblem } | null = null;
    if (from && to) {
      const request: GuideRequest = { from, to, closed: this.#closed, language: this.#language };
      if (profile) request.profile = profile as ProfileName;
      try {
        answer = this.venue.guide(request);
      } catch (error) {
        if (!(error instanceof OrivantaError) || error.kind === "fatal") throw error;
        this.#complain(error.message, error);
      }
    }
    const problem = answer && "problem" in answer ? answer.problem : null;
    const guidance = answer && "steps" in answer ? answer : null;
    this.map.showRoute(guidance);
    this.#parts.showNote(problem?.text ?? guidance?.summary ?? null);
    this.#changeCovered();
    if (guidance && isFitted) this.map.fit(guidance);
    this.#emit("route", { guidance, problem } satisfies ShownRoute);
  }

  #select(name: string | null): void {
    const place = name === null ? null : (placeOf(this.venue, name) ?? null);
    if (name !== null && !place) this.#complain(`the venue has no place "${name}"`);
    this.map.select(place);
    if (place) this.map.fit(place);
  }

  #complain(message: string, error = new OrivantaError("notFound", message)): void {
    this.#emit("error", error);
  }
}
