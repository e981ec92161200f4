// The functions of Platform/Graphics/Canvas/PageFunctions.js.

import { takePixels } from "./canvas.js";
import { drawPaths } from "./drawing.js";
import { drawText, measureText } from "./text.js";

/** What the module's graphics call. The arrays are views of its memory, valid during the call. */
export interface Graphics {
  measureText(text: Uint8Array, family: Uint8Array, numbers: Float64Array, size: Float64Array): boolean;
  drawText(text: Uint8Array, family: Uint8Array, numbers: Float64Array, size: Uint32Array): boolean;
  drawPaths(numbers: Float64Array, side: number, scale: number): boolean;
  takePixels(pixels: Uint8Array): void;
}

export const graphics: Graphics = { measureText, drawText, drawPaths, takePixels };
