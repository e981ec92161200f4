// CSS colors as numbers.

import { OrivantaError } from "./errors.js";

/** Returns red, green, blue and alpha from 0 to 1. Throws if the text is not a CSS color. */
export function parseColor(text: string): [number, number, number, number] {
  const canvas = document.createElement("canvas");
  canvas.width = canvas.height = 1;
  const context = canvas.getContext("2d")!;
  // What is no color leaves the style as it is. CSS also allows "inherit" and variables, which mean nothing here.
  const [first, second] = ["#000", "#fff"].map((former) => {
    context.fillStyle = former;
    context.fillStyle = text;
    return context.fillStyle;
  });
  if (first !== second) throw new OrivantaError("invalid", `"${text}" is not a color`);
  context.fillRect(0, 0, 1, 1);
  const [red, green, blue, alpha] = context.getImageData(0, 0, 1, 1).data;
  return [red! / 255, green! / 255, blue! / 255, alpha! / 255];
}
