// The 2D canvas on which texts and icons are drawn, and the picture that the module fetches from it.

export type Context = CanvasRenderingContext2D | OffscreenCanvasRenderingContext2D;

/** The limits of an image, as in Platform/Graphics/Image.hpp. */
export const maximumSide = 16384;
const maximumPixels = 64_000_000;

/** A larger canvas is released after its picture was taken. */
const mostKeptPixels = 4_000_000;

/** A part of drawn pixels: 8-bit RGBA, not premultiplied. */
export interface Picture {
  data: Uint8ClampedArray;
  /** The number of pixels in a row of `data`. */
  stride: number;
  left: number;
  top: number;
  width: number;
  height: number;
}

let context: Context | null = null;
let picture: Picture | null = null;

export function allowsImage(width: number, height: number): boolean {
  return width > 0 && height > 0 && width <= maximumSide && height <= maximumSide && width * height <= maximumPixels;
}

function makeContext(width: number, height: number): Context | null {
  // The pixels are read after each drawing, which is slow if a graphics processor has drawn them.
  const options: CanvasRenderingContext2DSettings = { willReadFrequently: true };
  if (typeof OffscreenCanvas !== "undefined") {
    const offscreen = new OffscreenCanvas(width, height).getContext("2d", options);
    if (offscreen) return offscreen;
  }
  if (typeof document === "undefined") return null;
  const canvas = document.createElement("canvas");
  canvas.width = width;
  canvas.height = height;
  return canvas.getContext("2d", options);
}

/**
 * Returns the context of the canvas, which has at least this size in pixels. Its upper left part of this size is
 * cleared and its transformation is the identity. Returns null where there is no canvas, as in Node.js.
 */
export function canvasOf(width: number, height: number): Context | null {
  context ??= makeContext(width, height);
  if (!context) return null;
  const { canvas } = context;
  if (canvas.width < width || canvas.height < height) {
    canvas.width = Math.max(canvas.width, width);
    canvas.height = Math.max(canvas.height, height);
  }
  context.setTransform(1, 0, 0, 1, 0, 0);
  context.clearRect(0, 0, width, height);
  return context;
}

/**
 * Reads the upper left part of the canvas and keeps it for `takePixels`, as a whole. Returns null if there is not
 * enough memory.
 */
export function keepPicture(source: Context, width: number, height: number): Picture | null {
  if (source.canvas.width * source.canvas.height > mostKeptPixels) context = null;
  try {
    const { data } = source.getImageData(0, 0, width, height);
    picture = { data, stride: width, left: 0, top: 0, width, height };
  } catch {
    picture = null;
  }
  return picture;
}

/** Copies the kept picture to `target`, row by row, and releases it. */
export function takePixels(target: Uint8Array): void {
  if (!picture) return;
  const { data, stride, left, top, width, height } = picture;
  for (let row = 0; row < height; ++row) {
    const from = 4 * ((top + row) * stride + left);
    target.set(data.subarray(from, from + 4 * width), 4 * row * width);
  }
  picture = null;
}

/** Returns the color that four numbers from 0 to 1 describe, in the syntax of CSS. */
export function cssColor(numbers: Float64Array, at: number): string {
  const [red, green, blue, alpha] = numbers.subarray(at, at + 4);
  return `rgba(${255 * red!}, ${255 * green!}, ${255 * blue!}, ${alpha})`;
}
