// Where a kiosk stands, as a position on the map, and what it shows first.

import type { MapView, Venue, VisitorPosition } from "orivanta";

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

const share = 0.7; // of the usual first view, which a kiosk shows of its surroundings

/** Shows the map as at the beginning: the usual view, or a part of it with a position in the middle. */
export function showFirstView(view: MapView, here: VisitorPosition | null): void {
  view.showFirstView({ animated: false });
  if (!here) return;
  const { clientWidth, clientHeight } = view.canvas;
  const { top = 0, right = 0, bottom = 0, left = 0 } = view.insets;
  const radius = (share * Math.min(clientWidth - left - right, clientHeight - top - bottom)) / 2 / view.pixelsPerUnit;
  const [x, y, z] = here.position;
  view.fit([[x - radius, y - radius, z], [x + radius, y + radius, z]], { animated: false });
}
