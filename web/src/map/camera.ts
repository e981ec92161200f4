// The camera of a map.

import type { Guidance } from "../guidance.js";
import type { Floor, Node, Place } from "../records.js";
import type { Route } from "../venue.js";
import { LookFunctions } from "./look.js";
import { cameraPose, glides, pointsOn, radians, rawPose } from "./poses.js";
import type { CameraPose, Motion, Position } from "./types.js";

/** The functions of a map for its camera. */
export class CameraFunctions extends LookFunctions {
  get camera(): CameraPose {
    return cameraPose(this.module.state.pose);
  }

  set camera(pose: CameraPose) {
    this.moveTo(pose, { animated: false });
  }

  /** Moves the camera to the nearest possible pose; members that are missing stay as they are. */
  moveTo(pose: Partial<CameraPose>, motion: Motion = {}): void {
    this.module.do({ pose: { ...rawPose(pose), ...glides(motion) } });
  }

  /** Shows a place, a floor, a route, or points of the shown floor; without an argument, the whole floor. */
  fit(what?: Place | Floor | Route | Guidance | readonly Position[], motion: Motion = {}): void {
    const glide = glides(motion);
    if (what === undefined) {
      this.module.do({ fit: glide });
    } else if (Array.isArray(what)) {
      this.module.do({ fit: { points: what, ...glide } });
    } else if ("elevation" in what) {
      this.floor = what;
      this.module.do({ fit: glide });
    } else if ("categories" in what) {
      const [first] = what.floors;
      if (first && !what.floors.includes(this.wantedFloor)) this.floor = first;
      this.module.do({ fit: { place: what.id, ...glide } });
    } else {
      this.#fitNodes((what as Route | Guidance).nodes, motion);
    }
  }

  // Those of the wanted floor, or if there are none, those of the first one.
  #fitNodes(nodes: readonly Node[], motion: Motion): void {
    const wanted = this.wantedFloor;
    const floor = nodes.some((node) => node.floor === wanted) ? wanted : nodes[0]?.floor;
    if (!floor) return;
    this.floor = floor;
    this.fit(pointsOn(floor, nodes), motion);
  }

  /** Shows the part of the floor where most places are, as at the beginning. */
  showFirstView(motion: Motion = {}): void {
    this.module.do({ firstView: glides(motion) });
  }

  /**
   * Zooms in, or out if the factor is below 1. The point, in CSS pixels, keeps its place; without it, the middle of
   * what the insets leave uncovered.
   */
  zoomBy(factor: number, at?: { x: number; y: number }, motion: Motion = {}): void {
    this.module.do({ zoomBy: { factor, ...at, ...glides(motion) } });
  }

  /** Turns the view clockwise. */
  turnBy(degrees: number, motion: Motion = {}): void {
    this.module.do({ turnBy: { angle: -radians(degrees), ...glides(motion) } });
  }

  /** Tilts the view. */
  tiltBy(degrees: number, motion: Motion = {}): void {
    this.module.do({ tiltBy: { angle: radians(degrees), ...glides(motion) } });
  }

  /** Turns the view so that the y axis points up. */
  northUp(motion: Motion = {}): void {
    this.module.do({ north: glides(motion) });
  }

  /** How many CSS pixels one of the venue's units has in the middle of the view. */
  get pixelsPerUnit(): number {
    return this.module.state.pointsPerUnit;
  }

  /** Where a position of the shown floor appears, in CSS pixels. */
  pointOf([x, y, z]: Position): { x: number; y: number } {
    const point = this.module.call((core, map) => this.module.engine.numbers(core._orivantaMapPoint(map, x, y, z)));
    return { x: point[0]!, y: point[1]! };
  }
}
