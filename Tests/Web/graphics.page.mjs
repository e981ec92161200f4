// Draws texts and icons in a browser, and sends the failed checks to the server. See graphics.test.mjs.

import { graphics } from "./dist/platform/graphics.js";

const failures = [];
const check = (isTrue, ...what) => void (isTrue || failures.push(what.join(" ")));
const scale = 2;

const numbersOf = (style, drawnScale) => new Float64Array([
  style.size ?? 14, style.bold ? 1 : 0, 0, 0, 0, 1, 1, 1, 1, 1, style.outline ?? 0, style.width ?? 0,
  style.lines ?? 0, style.leading ? 0 : 1, style.whole ? 1 : 0, drawnScale]);
const bytesOf = (text) => (typeof text === "string" ? new TextEncoder().encode(text) : Uint8Array.from(text));
const family = bytesOf("Sans");

function take(width, height) {
  const pixels = new Uint8Array(4 * width * height);
  graphics.takePixels(pixels);
  return { width, height, pixels, alpha: (x, y) => pixels[4 * (y * width + x) + 3] };
}

function draw(text, style = {}) {
  const size = new Uint32Array(2);
  return graphics.drawText(bytesOf(text), family, numbersOf(style, scale), size) ? take(...size) : null;
}

function measure(text, style) {
  const size = new Float64Array(2);
  graphics.measureText(bytesOf(text), family, numbersOf(style, 1), size);
  return { width: size[0], height: size[1] };
}

function sum(image, left, right) {
  let ink = 0;
  for (let y = 0; y < image.height; ++y) for (let x = left; x < right; ++x) ink += image.alpha(x, y);
  return ink;
}

for (const text of ["Platform 9", "東京駅", "بوابة", "☺", "नमस्ते", "Ä\nq"]) {
  const image = draw(text);
  check(image, text, "has no ink");
  if (image) check(sum(image, 0, 1) && sum(image, image.width - 1, image.width), text, "is not cropped");
}
for (const text of ["", " ", "\t \n", "\u00A0\u200F"]) check(!draw(text), JSON.stringify(text), "has ink");

const plain = draw("l", { size: 40 });
const outlined = draw("l", { size: 40, outline: 3 });
check(Math.abs(outlined.width - plain.width - 12) <= 1 && Math.abs(outlined.height - plain.height - 12) <= 1, "outline");
const middle = 4 * Math.floor(outlined.height / 2) * outlined.width;
check(outlined.pixels[middle + 12] === 255, "the outline is white");
check(outlined.pixels[middle + 4 * (outlined.width >> 1)] === 0, "the fill is above the outline");

const words = "one two three four five six seven eight nine ten";
const [line, broken, cut] = [{}, { width: 80 }, { width: 80, lines: 2 }].map((style) => draw(words, style));
check(broken.width <= 160 && cut.width <= 160, "lines are too wide");
check(broken.height > 2 * cut.height && cut.height > line.height, "numbers of lines");
const same = (one, other, ...what) =>
  check(one && other && one.width === other.width && String(one.pixels) === String(other.pixels), ...what);
check(String(cut.pixels) !== String(draw("one two three four", { width: 80 }).pixels), "no ellipsis");
same(draw("a\nb\nc", { lines: 1 }), draw("a b c"), "breaks that are ignored");
same(draw("a\nb", { lines: 2 }), draw("a\nb"), "breaks that are kept");
check(draw("iiiiiiiiii", { width: 20, lines: 1 }).height < 40, "a word that is cut");
same(draw([0x61, 0xff, 0xc3, 0x7a]), draw("a\uFFFD\uFFFDz"), "invalid bytes");
same(draw("a\0\x01\u0085z\r\nx"), draw("a\uFFFD  z\u2028x"), "control characters");

for (const style of [{}, { size: 20, bold: true }, { width: 80 }, { width: 80, lines: 2 }]) {
  const drawn = draw(words, { ...style, whole: true });
  const { width, height } = measure(words, { ...style, outline: 3 });
  check(Math.abs(width - drawn.width / scale) <= 3 && Math.abs(height - drawn.height / scale) <= 1, "measures");
}
// The period follows the word: in Hebrew it is on the left.
for (const [text, isLeft] of [["ווו.", true], ["lll.", false]]) {
  const image = draw(text, { size: 40 });
  check(sum(image, 0, 6) < sum(image, image.width - 6, image.width) === isLeft, text, "runs the other way");
}
check(!draw("a\nb\nc", { size: 8000 }) && draw("m".repeat(9000)).width <= 16384, "sizes of pictures");

// A box in the upper half, a line, a circle with a hole, each in 4 by 4 units.
const steps = (...list) => list.map((step) => [...step, 0, 0, 0, 0, 0, 0].slice(0, 7));
const box = steps([0, -2, -2], [1, 2, -2], [1, 2, 0], [1, -2, 0], [5]);
const hole = steps([4], [3, 0, 0, 2.1, 0, 2 * Math.PI], [5], [0, -1, -1], [1, 1, -1], [1, 1, 1], [1, -1, 1], [5]);
for (const [path, stroke, expected] of [
  [box, 0, "####/####/..../...."],
  [steps([0, -2, 0.5], [1, 2, 0.5]), 1, "..../..../####/...."],
  [hole, 0, ".##./#..#/#..#/.##."],
]) {
  graphics.drawPaths(new Float64Array([1, 0, 0, 1, stroke, path.length, ...path.flat()]), 4, 1);
  const image = take(4, 4);
  const rows = [0, 1, 2, 3].map((y) => [0, 1, 2, 3].map((x) => (image.alpha(x, y) > 127 ? "#" : ".")).join(""));
  check(rows.join("/") === expected, expected, "is drawn as", rows.join("/"));
}
await fetch("result", { method: "POST", body: JSON.stringify(failures) });
