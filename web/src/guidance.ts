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
  /** To the next step; null if the venue has no scale. */
  readonly meters: number | null;
  readonly seconds: number | null;
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
  legs: { nodes: (string | null)[] }[];
  steps: {
    kind: Step["kind"];
    leg: number;
    nodes: [number, number];
    turnDegrees: number;
    meters: number | null;
    seconds: number | null;
    text: string;
  }[];
  alternatives?: RawItinerary[];
}

/** What the module writes, see `planJson` in Apps/Planning/PlanJson.hpp. */
export type RawPlan = (RawItinerary | { problem: GuidanceProblem }) & { language: string };

/** Makes a route of what the module writes. */
export function guidanceOf(
  raw: RawItinerary,
  language: string,
  nodeNamed: (id: string) => Node | undefined,
): Guidance {
  const nodeAt = (id: string | null | undefined) => (id == null ? null : (nodeNamed(id) ?? null));
  const steps = raw.steps.map((step): Step => {
    const node = nodeAt(raw.legs[step.leg]?.nodes[step.nodes[0]]);
    const { kind, text, turnDegrees, meters, seconds } = step;
    return Object.freeze({ kind, text, turnDegrees, meters, seconds, node, floor: node?.floor ?? null });
  });
  return Object.freeze({
    costMilliseconds: raw.costMilliseconds,
    meters: raw.meters,
    seconds: raw.seconds,
    summary: raw.summary,
    language,
    steps: Object.freeze(steps),
    nodes: Object.freeze(raw.path.flatMap((id) => nodeAt(id) ?? [])),
    alternatives: Object.freeze(
      (raw.alternatives ?? []).map((each) => guidanceOf(each, language, nodeNamed)),
    ),
  });
}
