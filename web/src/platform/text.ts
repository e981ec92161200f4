// Draws and measures texts, for Platform/Graphics/Canvas/Text.cpp.

import { allowsImage, canvasOf, keepPicture, type Context, type Picture } from "./canvas.js";
import { layOut, measured, presentable, readStyle, useFont, type Layout, type TextStyle } from "./layout.js";

/** A part of the plane in pixels. */
interface Frame {
  left: number;
  top: number;
  width: number;
  height: number;
}

/** Returns the bounds of the ink in pixels, with a margin for antialiasing. Call with the font of the style. */
function frameOf(context: Context, layout: Layout, style: TextStyle): Frame {
  let [left, top, right, bottom] = [Infinity, Infinity, -Infinity, -Infinity];
  for (const line of layout.lines) {
    const measures = measured(context, line);
    const baseline = line.top + line.ascent;
    left = Math.min(left, line.left - measures.actualBoundingBoxLeft);
    right = Math.max(right, line.left + measures.actualBoundingBoxRight);
    top = Math.min(top, baseline - measures.actualBoundingBoxAscent);
    bottom = Math.max(bottom, baseline + measures.actualBoundingBoxDescent);
  }
  const first = (value: number) => Math.floor((value - style.outlineWidth) * style.scale) - 2;
  const last = (value: number) => Math.ceil((value + style.outlineWidth) * style.scale) + 2;
  let [upper, lower] = [first(top), last(bottom)];
  if (style.wholeLines) [upper, lower] = [Math.min(upper, 0), Math.max(lower, Math.ceil(style.scale * layout.height))];
  return { left: first(left), top: upper, width: last(right) - first(left), height: lower - upper };
}

function paint(context: Context, layout: Layout, style: TextStyle): void {
  useFont(context, style.font);
  const each = (draw: (text: string, left: number, baseline: number) => void) => {
    for (const line of layout.lines) {
      context.direction = line.direction;
      draw(line.text, line.left, line.top + line.ascent);
    }
  };
  if (style.outlineWidth > 0) {
    context.lineJoin = "round";
    context.lineCap = "round";
    context.lineWidth = 2 * style.outlineWidth;
    context.strokeStyle = style.outlineColor;
    each((text, left, baseline) => context.strokeText(text, left, baseline));
  }
  context.fillStyle = style.color;
  each((text, left, baseline) => context.fillText(text, left, baseline));
}

/** Reduces a picture to the pixels that are not transparent. Returns false if there are none. */
function cropToInk(picture: Picture): boolean {
  const pixels = new Uint32Array(picture.data.buffer, picture.data.byteOffset, picture.stride * picture.height);
  let [left, top, right, bottom] = [picture.width, picture.height, 0, 0];
  for (let y = 0, at = 0; y < picture.height; ++y)
    for (let x = 0; x < picture.width; ++x, ++at)
      if (pixels[at]! >>> 24) {
        if (x < left) left = x;
        if (x >= right) right = x + 1;
        if (top > y) top = y;
        bottom = y + 1;
      }
  if (right <= left) return false;
  Object.assign(picture, { left, top, width: right - left, height: bottom - top });
  return true;
}

/**
 * Draws a text for `takePixels`, and sets the width and the height of its picture in pixels. Returns false if nothing
 * can be seen, if the picture would be too large, or without a canvas.
 */
export function drawText(text: Uint8Array, family: Uint8Array, numbers: Float64Array, size: Uint32Array): boolean {
  const style = readStyle(family, numbers);
  const measuring = canvasOf(1, 1);
  if (!measuring) return false;
  const layout = layOut(measuring, presentable(text), style);
  const frame = frameOf(measuring, layout, style);
  if (!allowsImage(frame.width, frame.height)) return false;
  const context = canvasOf(frame.width, frame.height);
  if (!context) return false;
  context.setTransform(style.scale, 0, 0, style.scale, -frame.left, -frame.top);
  paint(context, layout, style);
  const picture = keepPicture(context, frame.width, frame.height);
  if (!picture || !cropToInk(picture)) return false;
  if (style.wholeLines) {
    const bottom = Math.max(picture.top + picture.height, Math.ceil(style.scale * layout.height) - frame.top);
    picture.top = Math.min(picture.top, -frame.top);
    picture.height = bottom - picture.top;
  }
  size[0] = picture.width;
  size[1] = picture.height;
  return true;
}

/** Sets the width and the height of the lines of a text in points. Returns false without a canvas. */
export function measureText(text: Uint8Array, family: Uint8Array, numbers: Float64Array, size: Float64Array): boolean {
  const context = canvasOf(1, 1);
  if (!context) return false;
  const layout = layOut(context, presentable(text), readStyle(family, numbers));
  size[0] = layout.width;
  size[1] = layout.height;
  return true;
}
