// What a venue answers.

import type { ErrorKind } from "./errors.js";
import type { Floor, Node, Place } from "./records.js";

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

/** Where a route begins or ends. */
export type RouteEnd = Place | Node | readonly Node[];
