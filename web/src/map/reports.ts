// What the module writes about a map.

import type { FloorLoad, MapProblem, Position } from "./types.js";

/** What the module reports, see Apps/Web/Map/MapEvents.hpp. */
export type MapEvent =
  | { type: "tap"; place: string | null; floor: number; x: number; y: number; position: Position | null }
  | { type: "floor"; floor: number }
  | { type: "camera" | "loaded" | "ready" }
  | { type: "load"; floor: number; state: FloorLoad["state"]; filesDone: number; fileCount: number }
  | { type: "problem"; kind: MapProblem["kind"]; floor: number | null; text: string };

/** A pose as the module writes it, with angles in radians. */
export interface RawPose {
  x: number;
  y: number;
  z: number;
  distance: number;
  tilt: number;
  turn: number;
}

/** The state of a map, see Apps/Web/Map/MapCommands.hpp. */
export interface MapState {
  floor: number;
  awaited: number;
  stacked: boolean;
  follow: boolean;
  loaded: boolean;
  ready: boolean;
  pose: RawPose;
  target: RawPose;
  pointsPerUnit: number;
}
