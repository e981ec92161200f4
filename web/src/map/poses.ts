// What pages say about the camera, for the module. Pages write degrees, the module has radians.

import type { Floor, Node } from "../records.js";
import type { RawPose } from "./reports.js";
import type { CameraPose, Motion, Position } from "./types.js";

export const radians = (degrees: number): number => (degrees * Math.PI) / 180;
const degrees = (angle: number): number => (angle * 180) / Math.PI;

/** Returns a pose for the page. */
export function cameraPose(pose: RawPose): CameraPose {
  return Object.freeze({
    center: Object.freeze([pose.x, pose.y] as const),
    distance: pose.distance,
    yaw: (360 - degrees(pose.turn)) % 360,
    tilt: degrees(pose.tilt),
  });
}

/** Returns the members that a pose of the page has, for the module. */
export function rawPose(pose: Partial<CameraPose>): Partial<RawPose> {
  const { center, distance, yaw, tilt } = pose;
  return {
    ...(center && { x: center[0], y: center[1] }),
    ...(distance !== undefined && { distance }),
    ...(yaw !== undefined && { turn: -radians(yaw) }),
    ...(tilt !== undefined && { tilt: radians(tilt) }),
  };
}

/** Returns how the camera moves, for the module. */
export const glides = (motion: Motion) => ({ glide: motion.animated ?? true });

/** Returns the positions of the nodes of a floor. */
export function pointsOn(floor: Floor, nodes: readonly Node[]): Position[] {
  return nodes.filter((node) => node.floor === floor).map((node) => [node.x, node.y, node.z]);
}
