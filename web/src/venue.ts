// A loaded venue: its records, routes and search.

import { closuresOf, type VenueServer } from "./closures.js";
import type { Engine } from "./engine.js";
import { OrivantaError, type ErrorKind } from "./errors.js";
import {
  guidanceOf,
  type Guidance,
  type GuidanceProblem,
  type GuideRequest,
  type RawPlan,
  type Stop,
} from "./guidance.js";
import { MapView } from "./map/view.js";
import type { ShowOptions } from "./map/types.js";
import type { Category, Connector, Floor, Node, Place } from "./records.js";
import { VenueModule } from "./venueModule.js";
import { VenueRecords } from "./venueRecords.js";
import type { FoundPlace, LoadProblem, Route, RouteEnd } from "./venueTypes.js";
import {
  iconsOf,
  type Card,
  type CardOptions,
  type Catalog,
  type KindIcon,
  type Nearest,
  type NearestOptions,
} from "./visitor.js";

export type * from "./venueTypes.js";

interface RawFound {
  id: string;
  name: string;
  category: string;
  kind: string;
  match: string;
  floors: number[];
}

type Answer = object | { error: { kind: ErrorKind; text: string } } | null;

/** A venue. Release it with `destroy`. */
export class Venue {
  readonly id: string;
  readonly slug: string;
  readonly name: string;
  /** The collections that could not be loaded. */
  readonly problems: readonly LoadProblem[];

  readonly #module: VenueModule;
  readonly #records: VenueRecords;
  readonly #server: VenueServer | null;
  #map: MapView | null = null;

  /** For `Orivanta.venue`. */
  constructor(engine: Engine, number: number, problems: readonly LoadProblem[], server: VenueServer | null) {
    this.problems = problems;
    this.#server = server;
    this.#module = new VenueModule(engine, number);
    this.#records = new VenueRecords(this.#module);
    ({ id: this.id, slug: this.slug, name: this.name } = this.#records);
  }

  get floors(): readonly Floor[] {
    return this.#records.all.floors;
  }

  get places(): readonly Place[] {
    return this.#records.all.places;
  }

  get connectors(): readonly Connector[] {
    return this.#records.all.connectors;
  }

  get categories(): readonly Category[] {
    return this.#records.all.categories;
  }

  get nodes(): readonly Node[] {
    return this.#records.all.nodes;
  }

  /** How many of the venue's units are a meter; 1 if the venue does not state it. */
  get unitsPerMeter(): number {
    return this.#records.all.unitsPerMeter;
  }

  /** The sources that the venue's license wants to be named with its map; may be empty. */
  get attribution(): string {
    return this.#records.all.attribution;
  }

  /** Returns the node with this identifier. */
  nodeNamed(id: string): Node | undefined {
    return this.#records.nodeNamed(id);
  }

  /** Returns the place or connector with this identifier. */
  placeNamed(id: string): Place | undefined {
    return this.#records.placeNamed(id);
  }

  /**
   * Asks the server for the identifiers of what is closed at the moment: connectors, places and nodes, for
   * `GuideRequest.closed` and `MapView.setClosures`. Servers without such a list close nothing, and neither does a
   * venue that `Orivanta.open` has loaded. Rejected with an `OrivantaError` if the list cannot be had.
   */
  async closures({ signal }: { signal?: AbortSignal } = {}): Promise<readonly string[]> {
    this.#module.check();
    return Object.freeze(this.#server ? await closuresOf(this.#server, this.slug, signal) : []);
  }

  /** Searches a route. Returns null if there is none. */
  route(from: RouteEnd, to: RouteEnd): Route | null {
    const { engine } = this.#module;
    const ends = [from, to].map((end) => this.indicesOf(this.#nodesOf(end)));
    const numbers = this.#module.call((_, venue) =>
      engine.withIndices(ends, (core, ...places) =>
        engine.numbers(core._orivantaRoute(venue, places[0]!, places[1]!, places[2]!, places[3]!)),
      ),
    );
    if (numbers.length === 0) return null;
    const nodes = Array.from(numbers.subarray(2), (index) => this.nodes[index]!);
    return Object.freeze({ cost: numbers[0]!, takenNodes: numbers[1]!, nodes: Object.freeze(nodes) });
  }

  /** Plans a route with instructions. Throws an `OrivantaError` if a text names nothing. */
  guide(request: GuideRequest): Guidance | { readonly problem: GuidanceProblem } {
    const texts = (stops: Stop | readonly Stop[] | undefined): string[] =>
      stops === undefined ? [] : [stops].flat().map((stop) => (typeof stop === "string" ? stop : stop.id));
    const query = { ...request, from: texts(request.from), to: texts(request.to), via: texts(request.via) };
    const plan = this.#answer(query, "_orivantaPlan") as RawPlan;
    if ("problem" in plan) return Object.freeze({ problem: Object.freeze(plan.problem) });
    return guidanceOf(plan, plan.language, this);
  }

  /** Returns the places and connectors that match a text as a user types it, the best first. */
  search(text: string): FoundPlace[] {
    const found = this.#module.ask(text, "_orivantaSearch") as RawFound[];
    return found.flatMap((each) => {
      const place = this.placeNamed(each.id);
      const floors = each.floors.flatMap((index) => this.floors[index] ?? []);
      const { name, category, kind, match } = each;
      return place ? [Object.freeze({ place, name, category, kind, match, floors })] : [];
    });
  }

  /** Returns all places by kind, as visitors browse them. */
  catalog(language: string): Catalog {
    return this.#visitor({ what: "catalog", language }) as Catalog;
  }

  /** Returns what the card of a place or connector says. */
  card(place: Place, options: CardOptions): Card {
    return this.#visitor({ ...options, what: "card", place: place.id }) as Card;
  }

  /** Returns the nearest toilet, exit and so on, to offer as destinations of routes. */
  nearest(options: NearestOptions): Nearest[] {
    return this.#visitor({ ...options, what: "nearest", place: options.place?.id ?? null }) as Nearest[];
  }

  /** Returns the nearest places of the categories that a typed text means. */
  nearestTyped(text: string, language: string): Nearest[] {
    return this.#visitor({ what: "typed", text, language }) as Nearest[];
  }

  /** Returns the icons of all kinds, as on the map. */
  icons(theme: "light" | "dark"): KindIcon[] {
    return iconsOf(this.#visitor({ what: "icons", theme }) as KindIcon[]);
  }

  /**
   * Shows the venue on a canvas, or on a canvas that is added to an element and fills it. The promise is
   * fulfilled when the first floor is shown. It is rejected with an `OrivantaError` if no floor can be shown
   * or the browser does not support WebGL 2. A venue has at most one map at a time.
   */
  async show(target: HTMLElement, options: ShowOptions = {}): Promise<MapView> {
    if (this.#map) throw new OrivantaError("invalid", "the venue is shown already; load it again for another map");
    this.#module.check();
    if (target?.nodeType !== 1) throw new OrivantaError("invalid", "a map needs an element of a page");
    const { engine, number } = this.#module;
    const destroyed = () => void (this.#map = null);
    const map = new MapView({ engine, venue: this, venueNumber: number, target, options, destroyed });
    this.#map = map;
    try {
      await map.loaded;
    } catch (error) {
      if (this.#map === map) this.#map = null; // it has ended before it was kept
      throw error;
    }
    return map;
  }

  /** Releases the memory of the venue, and its map. Every later call throws. */
  destroy(): void {
    this.#map?.destroy();
    this.#module.release();
  }

  /** Returns the indices of nodes in `nodes`, without those of other venues. */
  indicesOf(nodes: readonly Node[]): number[] {
    return this.#records.indicesOf(nodes);
  }

  // Throws what the module has to say against a question.
  #answer(question: object, name: "_orivantaPlan" | "_orivantaVisitor"): object {
    const answer = this.#module.ask(JSON.stringify(question), name) as Answer;
    if (answer === null) throw new OrivantaError("notFound", "the venue has no such place");
    if ("error" in answer) throw new OrivantaError(answer.error.kind, answer.error.text);
    return answer;
  }

  #visitor(question: object): unknown {
    return this.#answer(question, "_orivantaVisitor");
  }

  #nodesOf(end: RouteEnd): readonly Node[] {
    if (typeof end !== "object" || end === null)
      throw new OrivantaError("invalid", "a route has a place, a node or a list of nodes at each end");
    return Array.isArray(end) ? end : "nodes" in end ? end.nodes : [end as Node];
  }
}
