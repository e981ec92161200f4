// The route on a map.

import { parseColor } from "../colors.js";
import type { Guidance } from "../guidance.js";
import type { Node } from "../records.js";
import type { Route } from "../venue.js";
import { MarkFunctions } from "./marks.js";
import { pointsOn } from "./poses.js";
import type { Motion, RouteLook, VisitorPosition } from "./types.js";

/** The functions of a map for its route. */
export class RouteFunctions extends MarkFunctions {
  #guidance: Guidance | null = null;

  /** Shows a route instead of the current one; null removes it. The camera does not move. */
  showRoute(route: Route | Guidance | null, look: RouteLook = {}): void {
    this.#guidance = route && "steps" in route ? route : null;
    if (!route) return void this.module.do({ route: null });
    const visits = "visits" in route ? route.visits : [];
    const stops = visits.slice(1, -1).map(({ index, place }) => ({ index, place: place?.id }));
    this.module.do({
      route: {
        nodes: this.venue.indicesOf(route.nodes),
        from: (look.from === undefined ? visits.at(0)?.place : look.from)?.id,
        to: (look.to === undefined ? visits.at(-1)?.place : look.to)?.id,
        stops,
        color: look.color === undefined ? undefined : parseColor(look.color),
      },
    });
  }

  /** Shows the route as passed up to a position, in another color; null shows none of it as passed. */
  showProgress(at: Node | VisitorPosition | null): void {
    if (!at) return void this.module.do({ passed: null });
    const position = "position" in at ? at.position : [at.x, at.y, at.z];
    this.module.do({ passed: { floor: this.venue.floors.indexOf(at.floor!), position } });
  }

  /**
   * Shows where an instruction of the shown `Guidance` begins, and the way to the next one. Null removes the
   * position.
   */
  showStep(index: number | null, motion: Motion = {}): void {
    const { steps = [], nodes = [] } = this.#guidance ?? {};
    const step = index === null ? undefined : steps[index];
    if (!step?.node?.floor) return void (this.position = null);
    const next = steps[index! + 1]?.node;
    const start = nodes.indexOf(step.node);
    const end = next ? nodes.indexOf(next, start) : -1;
    const way = nodes.slice(start, step.kind === "ride" || end < start ? start + 1 : end + 1);
    const { x, y, z, floor } = step.node;
    this.floor = floor;
    this.position = { position: [x, y, z], floor };
    this.fit(pointsOn(floor, way), motion);
  }
}
