// Converts poses between degrees, as pages write them, and radians.

import type { CameraPose, RawPose } from "./mapTypes.js";

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
