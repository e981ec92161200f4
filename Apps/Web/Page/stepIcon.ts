// The symbols of instructions.

import type { Step } from "orivanta";

import { icon } from "./icons.js";

const turns: readonly (readonly [most: number, name: "bear" | "left" | "sharp"])[] = [
  [60, "bear"],
  [120, "left"],
  [150, "sharp"],
];

/** Makes the symbol of an instruction. It is hidden from screen readers. */
export function stepIcon(step: Step): SVGSVGElement {
  if (step.kind === "ride") return rideIcon(step);
  return step.kind === "arrive" ? icon("pin") : turnIcon(step);
}

function turnIcon(step: Step): SVGSVGElement {
  if (step.kind === "leave" && step.side !== null) {
    if (step.side === "behind") return icon("around");
    return step.side === "left" || step.side === "right" ? icon("left", step.side === "right") : icon("straight");
  }
  const degrees = step.turnDegrees;
  if (degrees === 0) return icon("straight");
  const isSingle = step.secondTurnDegrees === null;
  const found = turns.find(([most]) => Math.abs(degrees) <= most);
  return icon(isSingle ? (found?.[1] ?? "around") : "left", degrees < 0);
}

function rideIcon({ connectorKind, floorsPassed }: Step): SVGSVGElement {
  if (connectorKind === "lift") return icon("lift");
  if (connectorKind !== "stairs" && connectorKind !== "escalator" && connectorKind !== "ramp") return icon("upAndDown");
  return icon(connectorKind, floorsPassed < 0);
}
