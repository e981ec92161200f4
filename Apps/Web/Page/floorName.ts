// The names of floors for visitors.

import type { Floor } from "orivanta";

/** Returns the name of a floor, or its short name if it has none; empty if it has neither. */
export function floorName({ name, shortName }: Floor): string {
  return name || shortName;
}
