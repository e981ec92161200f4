// The records of a venue, as plain frozen objects.

/** A floor. */
export interface Floor {
  readonly id: string;
  /** Such as "Ground floor"; may be empty. */
  readonly name: string;
  /** Such as "G"; may be empty. */
  readonly shortName: string;
  /** In the venue's units. */
  readonly elevation: number;
}

/** A category of places. */
export interface Category {
  readonly id: string;
  readonly name: string;
  /** The places of the category, in the order of the venue. */
  readonly places: readonly Place[];
}

/** A point of the network of ways. */
export interface Node {
  readonly id: string;
  /** The position in the venue's units; z is up and does not include the floor's elevation. */
  readonly x: number;
  readonly y: number;
  readonly z: number;
  readonly floor: Floor | null;
}

/** A place, such as a shop, an amenity or a room. */
export interface Place {
  readonly id: string;
  readonly name: string;
  readonly type: string;
  readonly description: string | null;
  readonly categories: readonly Category[];
  /** Where it has nodes or areas. */
  readonly floors: readonly Floor[];
  /** Where routes to the place end. */
  readonly nodes: readonly Node[];
}

/** An elevator, an escalator, stairs or a ramp. */
export interface Connector extends Place {
  readonly accessible: boolean;
}

/** All records of a venue. */
export interface Records {
  readonly floors: readonly Floor[];
  readonly places: readonly Place[];
  readonly connectors: readonly Connector[];
  readonly categories: readonly Category[];
  readonly nodes: readonly Node[];
  /** How many of the venue's units are a meter; 1 if the venue does not state it. */
  readonly unitsPerMeter: number;
  /** The sources that the venue's license wants to be named, as one line; may be empty. */
  readonly attribution: string;
}

interface RawPlace {
  id: string;
  name: string;
  type: string;
  description: string | null;
  categories: string[];
  floors: number[];
  nodes: number[];
  accessible?: boolean;
}

/** What the module writes, see `recordsJson` in Apps/Web/VenueJson.hpp. */
export interface RawRecords {
  floors: Floor[];
  places: RawPlace[];
  connectors: RawPlace[];
  categories: { id: string; name: string }[];
  nodes: string[];
  unitsPerMeter: number;
  attribution: string;
}

const freeze = <Value extends object>(value: Value): Readonly<Value> => Object.freeze(value);

/** Makes records of what the module writes. `numbers` has x, y, z and the floor's index of each node. */
export function recordsOf(raw: RawRecords, numbers: Float64Array): Records {
  const floors = freeze(raw.floors.map(freeze));
  const nodes = freeze(
    raw.nodes.map((id, index): Node => {
      const [x, y, z, floor] = numbers.subarray(index * 4, index * 4 + 4) as unknown as number[];
      return freeze({ id, x: x!, y: y!, z: z!, floor: floors[floor!] ?? null });
    }),
  );
  const categories = new Map<string, { id: string; name: string; places: Place[] }>();
  for (const { id, name } of raw.categories) categories.set(id, { id, name, places: [] });
  const place = (each: RawPlace): Place => ({
    id: each.id,
    name: each.name,
    type: each.type,
    description: each.description,
    categories: freeze(each.categories.flatMap((id) => categories.get(id) ?? [])),
    floors: freeze(each.floors.flatMap((index) => floors[index] ?? [])),
    nodes: freeze(each.nodes.flatMap((index) => nodes[index] ?? [])),
  });
  const places = freeze(raw.places.map((each) => freeze(place(each))));
  for (const each of places) {
    for (const category of each.categories) categories.get(category.id)!.places.push(each);
  }
  for (const category of categories.values()) freeze(freeze(category).places);
  return freeze({
    floors,
    places,
    connectors: freeze(
      raw.connectors.map((each) => freeze({ ...place(each), accessible: each.accessible ?? true })),
    ),
    categories: freeze([...categories.values()]),
    nodes,
    unitsPerMeter: raw.unitsPerMeter,
    attribution: raw.attribution,
  });
}
