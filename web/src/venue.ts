// A loaded venue: its records, routes and search.

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
import { MapView } from "./map.js";
import type { ShowOptions } from "./mapTypes.js";
import {
  recordsOf,
  type Category,
  type Connector,
  type Floor,
  type Node,
  type Place,
  type RawRecords,
  type Records,
} from "./records.js";
import {
  iconsOf,
  type Card,
  type CardOptions,
  type Catalog,
  type KindIcon,
  type Nearest,
  type NearestOptions,
} from "./visitor.js";

/** A collection of the venue that could not be loaded and counts as empty. */
export interface LoadProblem {
  /** The name of the resource in the API, such as "polygon". */
  readonly collection: string;
  readonly kind: ErrorKind;
  readonly status: number;
  /** A sentence without a final period. */
  readonly reason: string;
}

/** A route through the network of ways. */
export interface Route {
  /** The cost of the search at the destination, in the venue's weights. */
  readonly cost: number;
  /** The start first. */
  readonly nodes: readonly Node[];
  /** How many nodes the search took. */
  readonly takenNodes: number;
}

/** A place that a search has found. */
export interface FoundPlace {
  readonly place: Place;
  /** The name as lists show it. */
  readonly name: string;
  /** The name of the first category; may be empty. */
  readonly category: string;
  /** The kind of place, such as "toilet" or "shop". */
  readonly kind: string;
  /** How it matches; from best to worst "name", "kind", "beginning", "word", "inside", "category", "description", "near". */
  readonly match: string;
  /** The lowest first. */
  readonly floors: readonly Floor[];
}

interface RawFound {
  id: string;
  name: string;
  category: string;
  kind: string;
  match: string;
  floors: number[];
}

/** Where a route begins or ends. */
export type RouteEnd = Place | Node | readonly Node[];

/** A venue. Release it with `destroy`. */
export class Venue {
  readonly id: string;
  readonly slug: string;
  readonly name: string;
  /** The collections that could not be loaded. */
  readonly problems: readonly LoadProblem[];

  readonly #engine: Engine;
  readonly #number: number;
  #records: Records | null = null;
  #indices: Map<Node, number> | null = null;
  #nodesByName: Map<string, Node> | null = null;
  #placesByName: Map<string, Place> | null = null;
  #isDestroyed = false;
  #map: MapView | null = null;

  /** For `Orivanta.venue`. */
  constructor(engine: Engine, number: number, problems: readonly LoadProblem[]) {
    this.#engine = engine;
    this.#number = number;
    this.problems = problems;
    const raw = this.#raw();
    this.id = raw.id;
    this.slug = raw.slug;
    this.name = raw.name;
  }

  get floors(): readonly Floor[] {
    return this.#all().floors;
  }

  get places(): readonly Place[] {
    return this.#all().places;
  }

  get connectors(): readonly Connector[] {
    return this.#all().connectors;
  }

  get categories(): readonly Category[] {
    return this.#all().categories;
  }

  get nodes(): readonly Node[] {
    return this.#all().nodes;
  }

  /** How many of the venue's units are a meter; 1 if the venue does not state it. */
  get unitsPerMeter(): number {
    return this.#all().unitsPerMeter;
  }

  /** The sources that the venue's license wants to be named with its map; may be empty. */
  get attribution(): string {
    return this.#all().attribution;
  }

  /** Returns the node with this identifier. */
  nodeNamed(id: string): Node | undefined {
    this.#nodesByName ??= new Map(this.nodes.map((node) => [node.id, node]));
    return this.#nodesByName.get(id);
  }

  /** Returns the place or connector with this identifier. */
  placeNamed(id: string): Place | undefined {
    this.#placesByName ??= new Map([...this.connectors, ...this.places].map((each) => [each.id, each]));
    return this.#placesByName.get(id);
  }

  /** Searches a route. Returns null if there is none. */
  route(from: RouteEnd, to: RouteEnd): Route | null {
    const numbers = this.#use(() =>
      this.#engine.withIndices([this.indicesOf(this.#nodesOf(from)), this.indicesOf(this.#nodesOf(to))], (core, ...places) =>
        this.#engine.numbers(
          core._orivantaRoute(this.#number, places[0]!, places[1]!, places[2]!, places[3]!),
        ),
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
    const plan = this.#ask(JSON.stringify(query), "_orivantaPlan") as
      | RawPlan
      | { error: { kind: ErrorKind; text: string } };
    if ("error" in plan) throw new OrivantaError(plan.error.kind, plan.error.text);
    if ("problem" in plan) return Object.freeze({ problem: Object.freeze(plan.problem) });
    return guidanceOf(plan, plan.language, this);
  }

  /** Returns the places and connectors that match a text as a user types it, the best first. */
  search(text: string): FoundPlace[] {
    const found = this.#ask(text, "_orivantaSearch") as RawFound[];
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
    const map = this.#use(() => new MapView(this.#engine, this, this.#number, target, options, () => (this.#map = null)));
    this.#map = map;
    try {
      await map.loaded;
    } catch (error) {
      this.#map = null;
      throw error;
    }
    return map;
  }

  /** Releases the memory of the venue, and its map. Every later call throws. */
  destroy(): void {
    if (this.#isDestroyed) return;
    this.#map?.destroy();
    this.#isDestroyed = true;
    this.#engine.call((core) => core._orivantaRemoveVenue(this.#number));
  }

  #use<Result>(use: () => Result): Result {
    if (this.#isDestroyed) throw new OrivantaError("invalid", "the venue was destroyed");
    return use();
  }

  #visitor(question: object): unknown {
    return this.#ask(JSON.stringify(question), "_orivantaVisitor");
  }

  #ask(text: string, name: "_orivantaPlan" | "_orivantaSearch" | "_orivantaVisitor"): unknown {
    return this.#use(() =>
      this.#engine.withTexts([text], (core, address, length) =>
        this.#engine.json(core[name](this.#number, address!, length!)),
      ),
    );
  }

  #raw(): RawRecords & { id: string; slug: string; name: string } {
    return this.#use(() =>
      this.#engine.call((core) => this.#engine.json(core._orivantaRecords(this.#number))),
    ) as RawRecords & { id: string; slug: string; name: string };
  }

  #all(): Records {
    this.#records ??= recordsOf(
      this.#raw(),
      this.#engine.call((core) => this.#engine.numbers(core._orivantaNodes(this.#number))),
    );
    return this.#records;
  }

  /** Returns the indices of nodes in `nodes`, without those of other venues. */
  indicesOf(nodes: readonly Node[]): number[] {
    this.#indices ??= new Map(this.nodes.map((node, index) => [node, index]));
    return nodes.flatMap((node) => this.#indices!.get(node) ?? []);
  }

  #nodesOf(end: RouteEnd): readonly Node[] {
    return Array.isArray(end) ? end : "nodes" in end ? end.nodes : [end as Node];
  }
}
