// CSS colors as numbers.

import { OrivantaError } from "./errors.js";

/** Returns red, green, blue and alpha from 0 to 1. Throws if the text is not a CSS color. */
export function parseColor(text: string): [number, number, number, number] {
  if (!CSS.supports("color", text)) throw new OrivantaError("invalid", `"${text}" is not a color`);
  const canvas = document.createElement("canvas");
  canvas.width = canvas.height = 1;
  const context = canvas.getContext("2d")!;
  context.fillStyle = text;
  context.fillRect(0, 0, 1, 1);
  const [red, green, blue, alpha] = context.getImageData(0, 0, 1, 1).data;
  return [red! / 255, green! / 255, blue! / 255, alpha! / 255];
}
