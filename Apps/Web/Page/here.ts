// Where a kiosk stands, as a position on the map.

import type { Venue, VisitorPosition } from "orivanta";

/** Returns the position of a stop: a place, a node or "@FLOOR,X,Y". Returns null if the venue does not have it. */
export function positionOf(venue: Venue, stop: string): VisitorPosition | null {
  const written = /^@([^,]+),([^,]+),([^,]+)$/.exec(stop);
  if (written) {
    const [, name, x, y] = written;
    const floor = venue.floors.find(({ id, shortName }) => id === name || shortName === name);
    return floor && isFinite(Number(x)) && isFinite(Number(y)) ? { position: [Number(x), Number(y), 0], floor } : null;
  }
  const node = venue.nodeNamed(stop) ?? venue.placeNamed(stop)?.nodes[0];
  return node?.floor ? { position: [node.x, node.y, node.z], floor: node.floor } : null;
}
