// Lays out texts on a 2D canvas. The layout follows that of Platform/Graphics/Pango: lines have the height of their
// font, and begin at the top of the first line.

import { cssColor, maximumSide, type Context } from "./canvas.js";
import { ellipsize, wrap } from "./lines.js";

/** A `TextStyle` of Platform/Graphics/Text.hpp, and the scale. */
export interface TextStyle {
  font: string;
  /** The font at the size of `fontUnits`, for exact measures. */
  largeFont: string;
  fontSize: number;
  color: string;
  outlineColor: string;
  outlineWidth: number;
  maximumWidth: number;
  maximumLines: number;
  isCentered: boolean;
  wholeLines: boolean;
  scale: number;
}

/** A line of a text. The lengths are points. */
export interface Line {
  text: string;
  direction: "ltr" | "rtl";
  width: number;
  left: number;
  top: number;
  ascent: number;
  descent: number;
}

/** The lines of a text, and their size in points. */
export interface Layout {
  lines: Line[];
  width: number;
  height: number;
}

interface FontHeights {
  ascent: number;
  descent: number;
}

const rightToLeft = /[\u0590-\u08FF\u200F\uFB1D-\uFDFF\uFE70-\uFEFE\u{10800}-\u{10FFF}\u{1E800}-\u{1EFFF}]/u;
const fontUnits = 1000;
const decoder = new TextDecoder("utf-8", { ignoreBOM: true });
const heightsOfFonts = new Map<string, FontHeights>();

// The names that Fontconfig gives to what each system has.
const genericFamilies = new Map([
  ["sans", "sans-serif"],
  ["sans-serif", "sans-serif"],
  ["serif", "serif"],
  ["mono", "monospace"],
  ["monospace", "monospace"],
  ["system-ui", "system-ui"],
]);

function cssFamily(families: string): string {
  const names = families.split(",").map((name) => name.trim());
  const quoted = names.map((name) => genericFamilies.get(name.toLowerCase()) ?? JSON.stringify(name));
  return [...quoted, "sans-serif"].join(", ");
}

/** Reads the numbers of `numbersOf` in Platform/Graphics/Canvas/Text.cpp. */
export function readStyle(family: Uint8Array, numbers: Float64Array): TextStyle {
  const at = (index: number) => numbers[index]!;
  const name = cssFamily(presentable(family).replace(/[\r\n]/g, " "));
  const weight = at(1) ? "bold" : "normal";
  return {
    font: `${weight} ${at(0)}px ${name}`,
    largeFont: `${weight} ${fontUnits}px ${name}`,
    fontSize: at(0),
    color: cssColor(numbers, 2),
    outlineColor: cssColor(numbers, 6),
    outlineWidth: at(10),
    maximumWidth: at(11),
    maximumLines: at(12),
    isCentered: at(13) !== 0,
    wholeLines: at(14) !== 0,
    scale: at(15),
  };
}

/** Decodes UTF-8. Control characters become blanks, separators become line feeds, invalid bytes are replaced. */
export function presentable(bytes: Uint8Array): string {
  return decoder
    .decode(bytes)
    .replace(/\0/g, "\uFFFD")
    .replace(/[\u2028\u2029]/g, "\n")
    .replace(/[\u0001-\u0009\u000B\u000C\u000E-\u001F\u007F-\u009F]/g, " ");
}

/** Returns the direction of the first letter, or `otherwise` if there is none. */
function directionOf(paragraph: string, otherwise: Line["direction"]): Line["direction"] {
  const first = /[\p{L}\u200E\u200F]/u.exec(paragraph)?.[0];
  if (!first) return otherwise;
  return rightToLeft.test(first) ? "rtl" : "ltr";
}

/** Sets the font for drawing and measuring. */
export function useFont(context: Context, font: string): void {
  context.font = font;
  context.textAlign = "left";
  context.textBaseline = "alphabetic";
  // Glyphs keep their shapes and distances at every scale.
  if ("textRendering" in context) context.textRendering = "geometricPrecision";
  if ("fontKerning" in context) context.fontKerning = "normal";
}

/** To be called when a font was loaded: another one has stood in for it. */
export function forgetFonts(): void {
  heightsOfFonts.clear();
}

/** Returns the ascent and the descent of a font, for a size of 1. Browsers round them to whole pixels. */
function heightsOf(context: Context, largeFont: string): FontHeights {
  let heights = heightsOfFonts.get(largeFont);
  if (!heights) {
    useFont(context, largeFont);
    const { fontBoundingBoxAscent: ascent, fontBoundingBoxDescent: descent } = context.measureText("x");
    heights = { ascent: (ascent || 0.93 * fontUnits) / fontUnits, descent: (descent || 0.24 * fontUnits) / fontUnits };
    heightsOfFonts.set(largeFont, heights);
  }
  return heights;
}

function textLines(text: string, widest: number, most: number, measure: (text: string) => number): Line[] {
  const linesOf = (whole: string) => {
    let direction: Line["direction"] = "ltr";
    return whole.split(/\r\n|\r|\n/).flatMap((paragraph) => {
      direction = directionOf(paragraph, direction);
      const line = { direction, width: 0, left: 0, top: 0, ascent: 0, descent: 0 };
      return wrap(paragraph, widest, measure).map((part) => ({ ...line, text: part }));
    });
  };
  const lines = linesOf(text);
  if (most <= 0 || lines.length <= most) return lines;
  const whole = text.replace(/[\r\n]/g, " ");
  const fewer = linesOf(whole);
  if (fewer.length <= most) return fewer;
  const kept = fewer.slice(0, most);
  const last = kept[most - 1]!;
  last.text = ellipsize(restOf(whole, fewer.slice(0, most - 1)), widest, measure);
  return kept;
}

/** Returns what follows the lines in the text that they are the beginning of. */
function restOf(text: string, lines: Line[]): string {
  let at = 0;
  for (const line of lines) at = text.indexOf(line.text, at) + line.text.length;
  return text.slice(at).trimStart();
}

/** Breaks a text into lines and places them. Leaves the font of the style in the context. */
export function layOut(context: Context, text: string, style: TextStyle): Layout {
  const widest = maximumSide / style.scale - 2 * style.outlineWidth;
  const most = style.maximumWidth > 0 ? Math.min(style.maximumWidth, widest) : widest;
  const font = heightsOf(context, style.largeFont);
  useFont(context, style.font);
  const lines = textLines(text, most, style.maximumLines, (part) => context.measureText(part).width);
  const layout: Layout = { lines, width: 0, height: 0 };
  for (const line of lines) {
    const measures = measured(context, line);
    line.width = measures.width;
    line.top = layout.height;
    // Glyphs of another font may be higher than those of this one.
    line.ascent = Math.max(font.ascent * style.fontSize, measures.actualBoundingBoxAscent);
    line.descent = Math.max(font.descent * style.fontSize, measures.actualBoundingBoxDescent);
    layout.height += line.ascent + line.descent;
    layout.width = Math.max(layout.width, line.width);
  }
  const box = style.maximumWidth > 0 ? most : layout.width;
  for (const line of lines)
    line.left = style.isCentered ? (box - line.width) / 2 : line.direction === "rtl" ? box - line.width : 0;
  return layout;
}

/** Measures a line with the font of the context. */
export function measured(context: Context, line: Line): TextMetrics {
  context.direction = line.direction;
  return context.measureText(line.text);
}
