// Requests for routes with instructions, and their results.

import type { Floor, Node, Place } from "./records.js";

/** A profile of a traveler. */
export type ProfileName = "fastest" | "step-free" | "prefer-lift" | "no-escalator";

/** What to plan. A stop is a place, a node, or a text: an identifier, a name, or "@FLOOR,X,Y". */
export interface GuideRequest {
  from: Stop | readonly Stop[];
  /** Missing if `nearest` is given. */
  to?: Stop | readonly Stop[];
  via?: readonly Stop[];
  /** A category: the route leads to its nearest open place. */
  nearest?: string;
  /** Whether `via` may be visited in any order. */
  bestOrder?: boolean;
  profile?: ProfileName;
  avoidOutdoors?: boolean;
  /** In meters per second, 0.2 to 5. */
  speed?: number;
  /** The departure in local time, such as "2026-11-21T18:30". */
  at?: string;
  /** Identifiers of closed connectors, places or nodes. */
  closed?: readonly string[];
  /** Whether stops may be visited that are closed at the arrival; otherwise there is no such route. */
  visitsClosedStops?: boolean;
  /** Further routes, 0 to 4. */
  alternatives?: number;
  /**
   * The language of the instructions: a tag such as "de", or a list of tags. The best of the loaded languages is
   * used, see `Orivanta.loadLanguage`.
   */
  language?: string;
}

/** The end of a route. */
export type Stop = Place | Node | string;

/** An instruction. */
export interface Step {
  readonly kind: "depart" | "turn" | "ride" | "leave" | "arrive";
  /** The instruction and the walk to the next one, as sentences. */
  readonly text: string;
  readonly floor: Floor | null;
  /** The node where the instruction begins. */
  readonly node: Node | null;
  /** Left is positive. */
  readonly turnDegrees: number;
  /** Of a turn in the other direction immediately after it; null if there is none. */
  readonly secondTurnDegrees: number | null;
  /** "leave": where the walk begins, seen in the direction of the ride: "left", "right", "behind" or null. */
  readonly side: string | null;
  /** "ride": "lift", "escalator", "stairs", "ramp" or "other"; otherwise null. */
  readonly connectorKind: string | null;
  /** "ride": how many floors up, negative down; otherwise 0. */
  readonly floorsPassed: number;
  /** To the next step; null if the venue has no scale. */
  readonly meters: number | null;
  readonly seconds: number | null;
}

/** A stop of a route, in the order in which it is visited. */
export interface Visit {
  /** Null for a node or a position. */
  readonly place: Place | null;
  /** Of its node in the nodes of the route. */
  readonly index: number;
}

/** A route with instructions. */
export interface Guidance {
  /** What the search minimized: the expected time with penalties. */
  readonly costMilliseconds: number;
  /** Null if the venue has no scale. */
  readonly meters: number | null;
  readonly seconds: number | null;
  /** The length and the time as a text, such as "300 m, 5 min". */
  readonly summary: string;
  readonly language: string;
  readonly steps: readonly Step[];
  readonly nodes: readonly Node[];
  /** The start, the stops in between and the destination. */
  readonly visits: readonly Visit[];
  readonly alternatives: readonly Guidance[];
}

/** Why there is no route. */
export interface GuidanceProblem {
  readonly kind:
    | "tooFewStops"
    | "tooManyStops"
    | "unknownPlace"
    | "noNodes"
    | "unreachable"
    | "onlyWithSteps"
    | "closed"
    | "closesBeforeArrival";
  /** The index of the stop concerned. */
  readonly stop: number;
  /** As a sentence. */
  readonly text: string;
}

interface RawItinerary {
  costMilliseconds: number;
  meters: number | null;
  seconds: number | null;
  summary: string;
  path: (string | null)[];
  visits: { leg: number; location: string | null }[];
  legs: { nodes: (string | null)[]; connectorKind?: string; floors?: number }[];
  steps: {
    kind: Step["kind"];
    leg: number;
    nodes: [number, number];
    turnDegrees: number;
    secondTurnDegrees: number | null;
    side: string | null;
    meters: number | null;
    seconds: number | null;
    text: string;
  }[];
  alternatives?: RawItinerary[];
}

/** What the module writes, see `planJson` in Apps/Planning/PlanJson.hpp. */
export type RawPlan = (RawItinerary | { problem: GuidanceProblem }) & { language: string };

/** Finds records by their identifiers. */
export interface Records {
  nodeNamed(id: string): Node | undefined;
  placeNamed(id: string): Place | undefined;
}

// The last node of a leg begins the next one.
function visitsOf(raw: RawItinerary, records: Records): Visit[] {
  return raw.visits.map(({ leg, location }): Visit => {
    const before = raw.legs.slice(0, leg);
    const index = before.reduce((sum, each) => sum + each.nodes.length - 1, 0);
    return Object.freeze({ place: location === null ? null : (records.placeNamed(location) ?? null), index });
  });
}

/** Makes a route of what the module writes. */
export function guidanceOf(raw: RawItinerary, language: string, records: Records): Guidance {
  const nodeAt = (id: string | null | undefined) => (id == null ? null : (records.nodeNamed(id) ?? null));
  const steps = raw.steps.map((step): Step => {
    const leg = raw.legs[step.leg];
    const node = nodeAt(leg?.nodes[step.nodes[0]]);
    const { kind, text, turnDegrees, secondTurnDegrees, side, meters, seconds } = step;
    const isRide = kind === "ride";
    return Object.freeze({
      kind,
      text,
      turnDegrees,
      secondTurnDegrees,
      side,
      connectorKind: (isRide && leg?.connectorKind) || null,
      floorsPassed: (isRide && leg?.floors) || 0,
      meters,
      seconds,
      node,
      floor: node?.floor ?? null,
    });
  });
  return Object.freeze({
    costMilliseconds: raw.costMilliseconds,
    meters: raw.meters,
    seconds: raw.seconds,
    summary: raw.summary,
    language,
    steps: Object.freeze(steps),
    nodes: Object.freeze(raw.path.flatMap((id) => nodeAt(id) ?? [])),
    visits: Object.freeze(visitsOf(raw, records)),
    alternatives: Object.freeze((raw.alternatives ?? []).map((each) => guidanceOf(each, language, records))),
  });
}
