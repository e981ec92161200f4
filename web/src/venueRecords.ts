// The records of a venue, read from the module at first use.

import { recordsOf, type Node, type Place, type RawRecords, type Records } from "./records.js";
import type { VenueModule } from "./venueModule.js";

type RawVenue = RawRecords & { id: string; slug: string; name: string };

/** The records, and where they are. */
export class VenueRecords {
  readonly id: string;
  readonly slug: string;
  readonly name: string;
  readonly #module: VenueModule;
  #raw: RawVenue | null; // null after the first use
  #records: Records | null = null;
  #indices: Map<Node, number> | null = null;
  #nodes: Map<string, Node> | null = null;
  #places: Map<string, Place> | null = null;

  constructor(module: VenueModule) {
    this.#module = module;
    this.#raw = module.call((core, venue) => module.engine.json(core._orivantaRecords(venue))) as RawVenue;
    ({ id: this.id, slug: this.slug, name: this.name } = this.#raw);
  }

  get all(): Records {
    this.#module.check();
    if (!this.#records) {
      const { engine } = this.#module;
      const numbers = this.#module.call((core, venue) => engine.numbers(core._orivantaNodes(venue)));
      this.#records = recordsOf(this.#raw!, numbers);
      this.#raw = null;
    }
    return this.#records;
  }

  nodeNamed(id: string): Node | undefined {
    this.#nodes ??= new Map(this.all.nodes.map((node) => [node.id, node]));
    return this.#nodes.get(id);
  }

  placeNamed(id: string): Place | undefined {
    this.#places ??= new Map([...this.all.connectors, ...this.all.places].map((each) => [each.id, each]));
    return this.#places.get(id);
  }

  /** Returns the indices of nodes, without those of other venues. */
  indicesOf(nodes: readonly Node[]): number[] {
    this.#indices ??= new Map(this.all.nodes.map((node, index) => [node, index]));
    return nodes.flatMap((node) => this.#indices!.get(node) ?? []);
  }
}
