// Draws the paths of icons, for Platform/Graphics/Canvas/Drawing.cpp.

import { canvasOf, cssColor, keepPicture, type Context } from "./canvas.js";

/** The kinds of steps, with the numbers of `DrawingStep::Kind` in Platform/Graphics/DrawingPath.hpp. */
const enum Step {
  moveTo = 0,
  lineTo = 1,
  curveTo = 2,
  arc = 3,
  begin = 4,
  close = 5,
}

/** The numbers of a step: its kind and up to six coordinates. */
const stepLength = 7;

function addArc(context: Context, x: number, y: number, radius: number, from: number, to: number): void {
  if (radius > 0) context.arc(x, y, radius, from, to);
  else context.lineTo(x, y);
}

function addSteps(context: Context, numbers: Float64Array, begin: number, end: number): void {
  let isNew = false;
  for (let at = begin; at < end; at += stepLength) {
    const [a = 0, b = 0, c = 0, d = 0, e = 0, f = 0] = numbers.subarray(at + 1, at + stepLength);
    switch (numbers[at] as Step) {
      case Step.moveTo:
        context.moveTo(a, b);
        break;
      case Step.lineTo:
        context.lineTo(a, b);
        break;
      case Step.curveTo:
        context.bezierCurveTo(a, b, c, d, e, f);
        break;
      case Step.arc:
        if (isNew) context.moveTo(a + Math.max(c, 0) * Math.cos(d), b + Math.max(c, 0) * Math.sin(d));
        addArc(context, a, b, c, d, e);
        break;
      case Step.begin:
        break;
      case Step.close:
        context.closePath();
        break;
    }
    isNew = numbers[at] === Step.begin;
  }
}

/**
 * Draws parts, each of which has a color, the width of a stroke (0 fills the path), the number of steps and the steps.
 * The picture is a square around the origin with `side` pixels, `scale` of them per unit. Returns whether there is a
 * picture for `takePixels`.
 */
export function drawPaths(numbers: Float64Array, side: number, scale: number): boolean {
  const context = canvasOf(side, side);
  if (!context) return false;
  context.setTransform(scale, 0, 0, scale, side / 2, side / 2);
  context.lineCap = "round";
  context.lineJoin = "round";
  for (let at = 0; at < numbers.length; ) {
    const width = numbers[at + 4]!;
    const steps = at + 6;
    const end = steps + stepLength * numbers[at + 5]!;
    context.beginPath();
    addSteps(context, numbers, steps, end);
    if (width > 0) {
      context.lineWidth = width;
      context.strokeStyle = cssColor(numbers, at);
      context.stroke();
    } else {
      context.fillStyle = cssColor(numbers, at);
      context.fill("evenodd");
    }
    at = end;
  }
  return keepPicture(context, side, side) !== null;
}
